#include "platform/linux/update/BundleUnpacker.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <numeric>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>
#include <sys/stat.h>

namespace blankwell {
namespace {

constexpr BundleUnpacker::Limits limits{.size = 1U << 20U, .entries = 64};
constexpr std::size_t blockSize = 512;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// The archive with the checksum of each header put right, since no mutation would get past those.
std::vector<std::byte> sealed(std::span<const std::byte> archive) {
    constexpr std::string_view magic = "ustar";
    constexpr std::size_t magicAt = 257;
    constexpr std::size_t sumAt = 148;
    constexpr std::size_t sumSize = 8;
    std::vector<std::byte> result(archive.begin(), archive.end());
    for (std::size_t at = 0; at + blockSize <= result.size(); at += blockSize) {
        const auto header = std::span(result).subspan(at, blockSize);
        const auto* const text = reinterpret_cast<const char*>(header.data());
        if (std::string_view(text + magicAt, magic.size()) != magic) {
            continue;
        }
        std::ranges::fill(header.subspan(sumAt, sumSize), std::byte{' '});
        const auto sum =
            std::accumulate(header.begin(), header.end(), 0U, [](unsigned total, std::byte byte) {
                return total + std::to_integer<unsigned>(byte);
            });
        const auto digits = fmt::format("{:06o}", sum);
        std::ranges::transform(digits, header.subspan(sumAt).begin(),
                               [](char digit) { return std::byte(digit); });
        header[sumAt + digits.size()] = std::byte{0};
    }
    return result;
}

/// Requires that `entry` is a folder, a file or a link, and has no rights but the usual ones.
/// Returns the bytes that it takes of the disk.
std::uint64_t requirePlain(const std::filesystem::path& entry) {
    struct stat status{};
    require(::lstat(entry.c_str(), &status) == 0);
    const auto type = status.st_mode & S_IFMT;
    require(type == S_IFDIR || type == S_IFREG || type == S_IFLNK);
    require((status.st_mode & (S_ISUID | S_ISGID | S_ISVTX)) == 0);
    require(type != S_IFREG || status.st_nlink == 1);
    return type == S_IFREG ? static_cast<std::uint64_t>(status.st_blocks) * blockSize : 0;
}

/// A link that leads somewhere leads into `bundle`.
void requireInside(const std::filesystem::path& link, const std::string& bundle) {
    std::error_code error;
    const auto target = std::filesystem::canonical(link, error).string();
    require(error || target == bundle || target.starts_with(bundle + "/"));
}

void unpack(std::span<const std::byte> archive) {
    const TemporaryFolder folder;
    folder.addFile("neighbour", "untouched");
    const auto place = folder.addFolder("place");
    const auto bundle = BundleUnpacker(limits).unpack(archive, place, {});

    require(folder.contents("neighbour") == "untouched");
    const std::filesystem::directory_iterator around(folder.url().path());
    require(std::distance(begin(around), end(around)) == 2);
    constexpr std::uint64_t roundedUp = 4096;
    std::uint64_t size = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(place.path())) {
        size += requirePlain(entry.path());
        if (bundle && entry.is_symlink()) {
            requireInside(entry.path(), bundle->path());
        }
    }
    require(size <= limits.size + limits.entries * roundedUp);
    require(!bundle ||
            (bundle->path().ends_with(".app") && std::filesystem::is_directory(bundle->path())));
    require(bundle || !bundle.error().description.empty());
}

} // namespace
} // namespace blankwell

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = std::as_bytes(std::span(data, size));
    blankwell::unpack(bytes);
    blankwell::unpack(blankwell::sealed(bytes));
    return 0;
}
