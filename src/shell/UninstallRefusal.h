#pragma once

#include "base/FileUrl.h"
#include "platform/InstallationForm.h"

#include <optional>
#include <string>

namespace blankwell {

/// Who removes an installation of this kind whose bundle is `bundle`, in sentences for the user;
/// nothing where it removes itself.
[[nodiscard]] std::optional<std::string> removerElsewhere(InstallationForm installation,
                                                          const FileUrl& bundle);

} // namespace blankwell
