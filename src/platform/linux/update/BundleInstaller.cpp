#include "platform/linux/update/BundleInstaller.h"

#include "base/Bytes.h"
#include "platform/linux/BundleDirectory.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/SystemErrors.h"
#include "platform/linux/update/BundleUnpacker.h"
#include "platform/linux/update/BundleUse.h"
#include "platform/linux/update/Ed25519.h"
#include "platform/linux/update/StagingFolder.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <span>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace blankwell {
namespace {

using Reason = UpdateFailure::Reason;

/// The largest archive that is taken: all of it is held in memory, so that what was verified is
/// what is unpacked.
constexpr std::size_t largestArchive = std::size_t{512} << 20U;

std::unexpected<UpdateFailure> diskFailure(int number, std::string_view what) {
    return std::unexpected(UpdateFailure{Reason::disk, posixError(number, what).description});
}

std::expected<Bytes, int> read(const FileUrl& url) {
    const FileDescriptor file(::open(url.path().c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status{};
    if (!file || ::fstat(file.get(), &status) != 0) {
        return std::unexpected(errno);
    }
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size > largestArchive) {
        return std::unexpected(EFBIG);
    }
    Bytes contents(size);
    for (std::span<std::byte> rest(contents); !rest.empty();) {
        const auto count = ::read(file.get(), rest.data(), rest.size());
        if (count == 0 || (count < 0 && errno != EINTR)) {
            return std::unexpected(count == 0 ? EIO : errno);
        }
        rest = rest.subspan(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    return contents;
}

/// A room of the staging folder, with the bundle in it.
class Staged : public StagedBundle {
public:
    Staged(const StagingFolder& staging, const BundleUse& running, FileUrl room, FileUrl bundle)
        : staging_(staging),
          running_(running),
          room_(std::move(room)),
          place_(std::move(bundle)),
          bundle_(place_.appending("Contents").appending("Linux")) {}

    ~Staged() override {
        if (!isInstalled_) {
            std::error_code ignored; // the next sweep tries again
            std::filesystem::remove_all(room_.path(), ignored);
        }
    }

    [[nodiscard]] const Bundle& bundle() const override { return bundle_; }

    std::expected<void, UpdateFailure> install() override {
        if (!running_.isInPlace()) {
            return std::unexpected(UpdateFailure{
                Reason::disk, "Blankwell+ was moved or replaced since it was started. "
                              "Start it again, and then check for updates."});
        }
        if (const auto flushed = staging_.flush(); !flushed) {
            return diskFailure(flushed.error(), "The update could not be written");
        }
        if (::renameat2(AT_FDCWD, place_.path().c_str(), AT_FDCWD, running_.bundle().path().c_str(),
                        RENAME_EXCHANGE) != 0) {
            return diskFailure(errno, "The application could not be exchanged for the update");
        }
        isInstalled_ = true;
        // A crash may still undo the exchange as a whole, which leaves the old bundle.
        static_cast<void>(staging_.flush());
        return {};
    }

private:
    const StagingFolder& staging_;
    const BundleUse& running_;
    FileUrl room_;
    FileUrl place_;
    BundleDirectory bundle_;
    bool isInstalled_ = false;
};

class Staging : public UpdateStaging {
public:
    Staging(StagingFolder folder, const BundleUse& running)
        : folder_(std::move(folder)), running_(running) {}

    FileUrl archive(std::string_view name) override { return folder_.archive(name); }

    std::expected<std::unique_ptr<StagedBundle>, UpdateFailure>
    unpack(const FileUrl& archive, const std::string& signature, const std::string& key,
           std::stop_token stop) override {
        auto staged = unpackSigned(archive, signature, key, stop);
        if (!stop.stop_requested()) {
            ::unlink(archive.path().c_str());
        }
        return staged;
    }

private:
    std::expected<std::unique_ptr<StagedBundle>, UpdateFailure>
    unpackSigned(const FileUrl& archive, const std::string& signature, const std::string& key,
                 const std::stop_token& stop) {
        const auto contents = read(archive);
        if (!contents) {
            return diskFailure(contents.error(), "The update could not be read");
        }
        if (!isSignedByEd25519(*contents, signature, key)) {
            return std::unexpected(UpdateFailure{
                Reason::wrongSignature, "The update is not signed by the makers of Blankwell+. "
                                        "It was thrown away, and nothing has changed."});
        }
        return unpackInto(*contents, stop);
    }

    std::expected<std::unique_ptr<StagedBundle>, UpdateFailure>
    unpackInto(std::span<const std::byte> archive, const std::stop_token& stop) {
        const auto room = folder_.makeRoom();
        if (!room) {
            return diskFailure(room.error(), "The update could not be unpacked");
        }
        const auto bundle = BundleUnpacker().unpack(archive, *room, stop);
        auto staged = std::make_unique<Staged>(folder_, running_, *room, bundle.value_or(*room));
        if (!bundle) {
            return std::unexpected(bundle.error());
        }
        return staged;
    }

    StagingFolder folder_;
    const BundleUse& running_;
};

} // namespace

std::expected<std::unique_ptr<UpdateStaging>, UpdateFailure> BundleInstaller::begin() {
    auto folder = StagingFolder::hold(running_.bundle());
    if (!folder) {
        return std::unexpected(std::move(folder.error()));
    }
    return std::make_unique<Staging>(*std::move(folder), running_);
}

} // namespace blankwell
