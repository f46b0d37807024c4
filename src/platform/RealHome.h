#pragma once

#include "base/FileUrl.h"

#include <optional>

namespace blankwell {

class Account;

/// The home directory of the user's account record, standardized: what the user calls home,
/// whatever the environment or a sandbox say. Nothing where the user database has no entry for the
/// user. Ends the process where the entry has no home in it: the database is broken.
[[nodiscard]] std::optional<FileUrl> realHomeFolder(const Account& account);

/// The real home folder, or the process's own where the user database has no entry for the user.
[[nodiscard]] FileUrl homeFolder(const Account& account);

} // namespace blankwell
