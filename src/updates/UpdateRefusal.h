#pragma once

#include "platform/InstallationForm.h"
#include "platform/UpdateFailure.h"

#include <optional>
#include <string>
#include <string_view>

namespace blankwell {

class Bundle;

/// Who updates an installation of this kind, in a sentence for the user; nothing where it updates
/// itself.
[[nodiscard]] std::optional<std::string> updaterElsewhere(InstallationForm installation);

/// Why `update`, which was announced as the version `announced`, must not take the place of
/// `running`; nothing where it may. It has to be the same program with the same key, in the version
/// that was announced, and newer: an archive that was signed once can be announced again under any
/// number.
[[nodiscard]] std::optional<UpdateFailure> refusalOf(const Bundle& update, const Bundle& running,
                                                     std::string_view announced);

} // namespace blankwell
