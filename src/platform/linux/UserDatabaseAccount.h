#pragma once

#include "platform/Account.h"

#include <optional>
#include <string>

struct passwd;

namespace blankwell {

class Environment;

/// The account of the process's real user id in the system's user database.
///
/// Each call looks anew, and no look happens before it is needed: the database may be a directory
/// server behind plug-ins that have to be loaded first. A database that cannot be read has no
/// entry.
class UserDatabaseAccount : public Account {
public:
    /// `environment` must outlive this object.
    explicit UserDatabaseAccount(const Environment& environment) : environment_(environment) {}

    [[nodiscard]] std::optional<AccountRecord> record() const override;

    /// `HOME` if it is an absolute path, else the record's home, else the root folder.
    [[nodiscard]] FileUrl processHome() const override;

    /// The user's login name, or nothing where the database has no entry.
    [[nodiscard]] std::optional<std::string> userName() const;

private:
    const Environment& environment_;
};

/// What `entry` says about the account. A home that is not an absolute path (the field is empty, or
/// names a place that would depend on the working directory) is no home.
[[nodiscard]] AccountRecord accountRecord(const passwd& entry);

} // namespace blankwell
