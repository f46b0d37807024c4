#pragma once

#include "base/FileUrl.h"

#include <optional>

namespace blankwell {

/// The user database's entry of the user who runs the process.
struct AccountRecord {
    /// The home directory; nothing where the entry has the field but no value in it.
    std::optional<FileUrl> home;
};

/// Who runs the process.
class Account {
public:
    virtual ~Account() = default;

    /// The entry of the current user id, or nothing where the database has none.
    [[nodiscard]] virtual std::optional<AccountRecord> record() const = 0;

    /// The home that the process was given, which may be a sandbox's or moved by the environment.
    [[nodiscard]] virtual FileUrl processHome() const = 0;
};

} // namespace blankwell
