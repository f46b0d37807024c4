#include "updates/UpdateRefusal.h"

#include "platform/Bundle.h"
#include "platform/Identifiers.h"
#include "updates/VersionOrder.h"

namespace blankwell {
namespace {

std::optional<UpdateFailure> wrongBundle(const char* description) {
    return UpdateFailure{UpdateFailure::Reason::wrongBundle, description};
}

} // namespace

std::optional<std::string> updaterElsewhere(InstallationForm installation) {
    switch (installation) {
    case InstallationForm::ownBundle:
        return std::nullopt;
    case InstallationForm::foreignBundle:
        return "You may not replace this copy of Blankwell+. Whoever installed it can update it.";
    case InstallationForm::package:
        return "This copy of Blankwell+ came with the system's packages, and is updated with them.";
    case InstallationForm::sandbox:
        return "This copy of Blankwell+ runs in a sandbox. The software center that installed it "
               "also updates it.";
    case InstallationForm::looseProgram:
        return "This copy of Blankwell+ is not an installed application, so there is nothing to "
               "replace. Whoever built it can update it.";
    }
    return std::nullopt;
}

std::optional<UpdateFailure> refusalOf(const Bundle& update, const Bundle& running,
                                       std::string_view announced) {
    if (update.infoString("CFBundleIdentifier") != bundleIdentifier) {
        return wrongBundle("The update is another application. It was thrown away.");
    }
    const auto key = update.infoString("SUPublicEDKey");
    if (!key || key != running.infoString("SUPublicEDKey")) {
        return wrongBundle("The update would trust other makers than those of Blankwell+. "
                           "It was thrown away.");
    }
    const auto version = update.infoString("CFBundleVersion").value_or("");
    if (!isNewer(version, running.infoString("CFBundleVersion").value_or(""))) {
        return wrongBundle("The update is no newer than what you have. It was thrown away.");
    }
    if (compareVersions(version, announced) != 0) {
        return wrongBundle("The update is not the version that was announced. It was thrown away.");
    }
    return std::nullopt;
}

} // namespace blankwell
