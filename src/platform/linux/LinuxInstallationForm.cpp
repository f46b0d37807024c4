#include "platform/linux/LinuxInstallationForm.h"

#include "platform/Environment.h"
#include "platform/Sandbox.h"

#include <algorithm>
#include <array>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace blankwell {
namespace {

/// Where packages put what users do not touch.
constexpr std::array<std::string_view, 6> packageFolders{"/usr/",  "/nix/", "/gnu/",
                                                         "/snap/", "/app/", "/var/lib/"};

bool isBundle(const FileUrl& bundle) {
    struct stat status{};
    return bundle.path().ends_with(".app") &&
           ::stat(bundle.appending("Contents/Info.plist").path().c_str(), &status) == 0 &&
           S_ISREG(status.st_mode);
}

bool isPackaged(const FileUrl& bundle) {
    const std::string_view path = bundle.path();
    return !path.starts_with("/usr/local/") &&
           std::ranges::any_of(packageFolders,
                               [&](std::string_view folder) { return path.starts_with(folder); });
}

/// Whether the user may exchange the folder: it is the user's own, in a folder to write to.
bool isReplaceable(const FileUrl& bundle) {
    struct stat status{};
    return ::lstat(bundle.path().c_str(), &status) == 0 && status.st_uid == ::geteuid() &&
           ::faccessat(AT_FDCWD, bundle.path().c_str(), W_OK | X_OK, AT_EACCESS) == 0 &&
           ::faccessat(AT_FDCWD, bundle.deletingLastPathComponent().path().c_str(), W_OK | X_OK,
                       AT_EACCESS) == 0;
}

} // namespace

InstallationForm installationForm(const FileUrl& bundle, const Environment& environment) {
    if (isSandboxed(environment)) {
        return InstallationForm::sandbox;
    }
    if (isPackaged(bundle)) {
        return InstallationForm::package;
    }
    if (!isBundle(bundle)) {
        return InstallationForm::looseProgram;
    }
    return isReplaceable(bundle) ? InstallationForm::ownBundle : InstallationForm::foreignBundle;
}

} // namespace blankwell
