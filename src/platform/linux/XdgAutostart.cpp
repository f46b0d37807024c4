#include "platform/linux/XdgAutostart.h"

#include "base/Text.h"
#include "platform/linux/AutostartEntry.h"
#include "platform/linux/FileReplacement.h"
#include "platform/linux/FileSnapshot.h"
#include "platform/linux/PrivateFolder.h"
#include "platform/linux/SystemErrors.h"

#include <fmt/core.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace blankwell {
namespace {

/// More than any entry has.
constexpr std::size_t mostBytes = 1024UL * 1024;

std::unexpected<SystemError> failure(int number, std::string_view what, const FileUrl& url) {
    return std::unexpected(
        posixError(number, fmt::format("Could not {} \"{}\"", what, url.path())));
}

} // namespace

XdgAutostart::XdgAutostart(const FileUrl& configHome, std::string_view name, FileUrl program)
    : folder_(configHome.appending("autostart")),
      file_(folder_.appending(fmt::format("{}.desktop", name))),
      program_(std::move(program)) {}

std::expected<bool, SystemError> XdgAutostart::isOn() const {
    const auto entry = load();
    if (!entry) {
        return std::unexpected(entry.error());
    }
    return *entry && (**entry).isOn();
}

std::expected<void, SystemError> XdgAutostart::turnOn() {
    const auto program = program_.path();
    if (::access(program.c_str(), X_OK) != 0) {
        return failure(errno, "start", program_);
    }
    if (!isUtf8(program)) {
        return failure(EILSEQ, "name in a desktop entry", program_);
    }
    if (const auto made = makePrivateFolder(folder_.path()); !made) {
        return failure(made.error(), "make the folder", folder_);
    }
    return locked([&]() -> std::expected<void, SystemError> {
        auto entry = load();
        if (!entry) {
            return std::unexpected(entry.error());
        }
        if (!*entry) {
            return store(AutostartEntry::starting(program));
        }
        (**entry).turnOn(program);
        return store(**entry);
    });
}

std::expected<void, SystemError> XdgAutostart::turnOff() {
    if (const auto entry = load(); !entry || !*entry) {
        return entry ? std::expected<void, SystemError>() : std::unexpected(entry.error());
    }
    return locked([&]() -> std::expected<void, SystemError> {
        auto entry = load();
        if (!entry) {
            return std::unexpected(entry.error());
        }
        if (*entry && !(**entry).isUntouched()) {
            (**entry).turnOff();
            return store(**entry);
        }
        if (::unlink(file_.path().c_str()) != 0 && errno != ENOENT) {
            return failure(errno, "remove", file_);
        }
        return {};
    });
}

void XdgAutostart::forget() const {
    ::unlink(file_.path().c_str());
    ::rmdir(folder_.path().c_str()); // stays while there are other entries
}

std::expected<std::optional<AutostartEntry>, SystemError> XdgAutostart::load() const {
    const auto file = FileSnapshot::open(file_.path());
    if (!file && (file.error() == ENOENT || file.error() == ENOTDIR)) {
        return std::nullopt;
    }
    const auto text = file ? file->contents(mostBytes) : std::unexpected(file.error());
    if (!text) {
        return failure(text.error(), "read", file_);
    }
    auto entry = AutostartEntry::parse(*text);
    if (!entry) {
        return std::unexpected(
            SystemError{SystemError::Domain::posix, EBADMSG,
                        fmt::format("\"{}\" is damaged: {}.", file_.path(), entry.error())});
    }
    return *std::move(entry);
}

std::expected<void, SystemError> XdgAutostart::store(const AutostartEntry& entry) const {
    // A link stays one: its target is what the user keeps.
    std::error_code error;
    const auto target = std::filesystem::canonical(file_.path(), error);
    auto replacement =
        FileReplacement::prepare(error ? file_.path() : target.string(), entry.text());
    const auto replaced =
        replacement ? replacement->commit() : std::unexpected(replacement.error());
    return replaced ? std::expected<void, SystemError>()
                    : failure(replaced.error(), "write", file_);
}

std::expected<void, SystemError> XdgAutostart::locked(const Change& change) const {
    const FileDescriptor folder(::open(folder_.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder || ::flock(folder.get(), LOCK_EX) != 0) {
        return failure(errno, "open", folder_);
    }
    return change();
}

} // namespace blankwell
