#include "platform/linux/BookmarkBlob.h"

#include "base/FileUrl.h"

#include <fcntl.h>
#include <zlib.h>

#include <algorithm>
#include <climits>
#include <concepts>
#include <ranges>
#include <string_view>
#include <type_traits>
#include <utility>

namespace blankwell {
namespace {

constexpr std::string_view magic = "BWFOLDER";
constexpr std::uint32_t version = 1;
constexpr std::size_t lengthPosition = magic.size() + sizeof version;
constexpr std::size_t headerSize = lengthPosition + sizeof(std::uint32_t);
constexpr std::size_t checksumSize = sizeof(std::uint32_t);
/// More than any folder can need: `PATH_MAX / 2` ancestors with the longest handles.
constexpr std::size_t maximumSize = std::size_t{512} * 1024;
constexpr std::uint32_t nanosecondsPerSecond = 1'000'000'000;

std::uint32_t checksumOf(std::span<const std::byte> bytes) {
    return static_cast<std::uint32_t>(
        ::crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())));
}

class Writer {
public:
    template <std::integral Integer>
    void integer(Integer value) {
        auto rest = static_cast<std::uint64_t>(value);
        for (std::size_t i = 0; i < sizeof value; ++i, rest >>= 8) {
            bytes_.push_back(static_cast<std::byte>(rest & 0xFF));
        }
    }

    void raw(std::string_view text) {
        const auto bytes = bytesOf(text);
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    }

    void path(std::string_view path) {
        integer(static_cast<std::uint16_t>(path.size()));
        raw(path);
    }

    void identity(const FolderIdentity& identity) {
        integer(identity.inode);
        integer(static_cast<std::uint8_t>(identity.birthTime.has_value()));
        if (identity.birthTime) {
            integer(identity.birthTime->seconds);
            integer(identity.birthTime->nanoseconds);
        }
        integer(static_cast<std::uint8_t>(identity.handle.size()));
        if (!identity.handle.empty()) {
            integer(identity.handleType);
            raw(identity.handle);
        }
    }

    /// The bytes, their length and checksum filled in.
    Bytes finished() {
        const auto length = static_cast<std::uint32_t>(bytes_.size() + checksumSize);
        for (std::size_t i = 0; i < sizeof length; ++i) {
            bytes_[lengthPosition + i] = static_cast<std::byte>((length >> (8 * i)) & 0xFF);
        }
        integer(checksumOf(bytes_));
        return std::move(bytes_);
    }

private:
    Bytes bytes_;
};

/// Takes fields off the front of bytes. One that is not whole makes the reader fail for good; what
/// it gives from then on is zero or empty.
class Reader {
public:
    explicit Reader(std::span<const std::byte> bytes) : rest_(textOf(bytes)) {}

    template <std::integral Integer>
    Integer integer() {
        std::uint64_t value = 0;
        for (const char byte : std::views::reverse(raw(sizeof(Integer)))) {
            value = value << 8 | static_cast<std::uint8_t>(byte);
        }
        return static_cast<Integer>(value);
    }

    std::string_view raw(std::size_t size) {
        if (size > rest_.size()) {
            fail();
            return {};
        }
        const auto taken = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return taken;
    }

    std::string path() { return std::string(raw(integer<std::uint16_t>())); }

    bool flag() {
        const auto value = integer<std::uint8_t>();
        require(value <= 1);
        return value == 1;
    }

    FolderIdentity identity() {
        FolderIdentity identity{.inode = integer<std::uint64_t>()};
        if (flag()) {
            identity.birthTime.emplace();
            identity.birthTime->seconds = integer<std::int64_t>();
            identity.birthTime->nanoseconds = integer<std::uint32_t>();
            require(identity.birthTime->nanoseconds < nanosecondsPerSecond);
        }
        const auto handleSize = integer<std::uint8_t>();
        require(handleSize <= MAX_HANDLE_SZ);
        if (handleSize > 0) {
            identity.handleType = integer<std::int32_t>();
            identity.handle = raw(handleSize);
        }
        return identity;
    }

    void require(bool condition) {
        if (!condition) {
            fail();
        }
    }

    [[nodiscard]] bool failed() const { return failed_; }

    [[nodiscard]] bool isAtEnd() const { return rest_.empty() && !failed_; }

private:
    void fail() {
        failed_ = true;
        rest_ = {};
    }

    std::string_view rest_;
    bool failed_ = false;
};

/// Whether magic, version, length and checksum are right.
bool isSealed(std::span<const std::byte> bytes) {
    if (bytes.size() < headerSize + checksumSize || bytes.size() > maximumSize) {
        return false;
    }
    Reader header(bytes);
    if (header.raw(magic.size()) != magic || header.integer<std::uint32_t>() != version ||
        header.integer<std::uint32_t>() != bytes.size()) {
        return false;
    }
    Reader checksum(bytes.last(checksumSize));
    return checksum.integer<std::uint32_t>() ==
           checksumOf(bytes.first(bytes.size() - checksumSize));
}

bool isUsablePath(const std::string& path) {
    return path.starts_with('/') && path.size() < PATH_MAX && !path.contains('\0') &&
           FileUrl(path).standardized().path() == path;
}

/// How many folders stand above `location` up to `mountPoint`; nothing if it is not below it.
std::optional<std::size_t> depthBelow(std::string_view mountPoint, std::string_view location) {
    if (mountPoint == location) {
        return 0;
    }
    const auto prefix = mountPoint == "/" ? std::string_view() : mountPoint;
    if (!location.starts_with(prefix) || location[prefix.size()] != '/') {
        return std::nullopt;
    }
    return std::ranges::count(location.substr(prefix.size()), '/');
}

bool isConsistent(const BookmarkBlob& blob) {
    return isUsablePath(blob.path) && isUsablePath(blob.location) &&
           isUsablePath(blob.mountPoint) &&
           depthBelow(blob.mountPoint, blob.location) == blob.ancestors.size();
}

} // namespace

Bytes encodeBookmark(const BookmarkBlob& blob) {
    Writer writer;
    writer.raw(magic);
    writer.integer(version);
    writer.integer(std::uint32_t{0});
    writer.integer(blob.volume.kind);
    writer.integer(blob.volume.id);
    writer.integer(std::to_underlying(blob.strength));
    writer.path(blob.path);
    writer.path(blob.location == blob.path ? std::string_view() : blob.location);
    writer.path(blob.mountPoint);
    writer.integer(static_cast<std::uint16_t>(1 + blob.ancestors.size()));
    writer.identity(blob.folder);
    std::ranges::for_each(blob.ancestors, [&](const auto& each) { writer.identity(each); });
    return writer.finished();
}

std::optional<BookmarkBlob> decodeBookmark(std::span<const std::byte> bytes) {
    if (!isSealed(bytes)) {
        return std::nullopt;
    }
    Reader reader(bytes.first(bytes.size() - checksumSize).subspan(headerSize));
    BookmarkBlob blob;
    blob.volume.kind = reader.integer<std::uint64_t>();
    blob.volume.id = reader.integer<std::uint64_t>();
    blob.strength = reader.flag() ? IdentityStrength::weak : IdentityStrength::strong;
    blob.path = reader.path();
    blob.location = reader.path();
    reader.require(blob.location != blob.path);
    if (blob.location.empty()) {
        blob.location = blob.path;
    }
    blob.mountPoint = reader.path();
    const auto identities = reader.integer<std::uint16_t>();
    reader.require(identities > 0 && identities <= PATH_MAX);
    blob.folder = reader.identity();
    for (std::size_t i = 1; i < identities && !reader.failed(); ++i) {
        blob.ancestors.push_back(reader.identity());
    }
    if (!reader.isAtEnd() || !isConsistent(blob)) {
        return std::nullopt;
    }
    return blob;
}

} // namespace blankwell
