#include "shell/UninstallRefusal.h"

#include "shell/AppUninstallError.h"

#include <fmt/core.h>

namespace blankwell {

std::optional<std::string> removerElsewhere(InstallationForm installation, const FileUrl& bundle) {
    switch (installation) {
    case InstallationForm::ownBundle:
        return std::nullopt;
    case InstallationForm::foreignBundle:
        return "You may not remove this copy of Blankwell+. Whoever installed it can remove it.";
    case InstallationForm::package:
        return "This copy of Blankwell+ came with the system's packages, and is removed with them "
               "(on Debian by 'apt remove blankwell-plus'). What it made known to your desktop is "
               "taken back by 'blankwell unregister'.";
    case InstallationForm::sandbox:
        return "This copy of Blankwell+ runs in a sandbox. The software center that installed it "
               "also removes it.";
    case InstallationForm::looseProgram:
        return fmt::format(
            "{}\nIt was not installed, so there is nothing to remove. Whoever put it there can "
            "delete it.",
            AppUninstallError{AppUninstallError::NotRunningFromAppBundle{bundle}}.description());
    }
    return std::nullopt;
}

} // namespace blankwell
