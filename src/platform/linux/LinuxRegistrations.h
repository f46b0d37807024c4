#pragma once

#include "base/FileUrl.h"
#include "platform/Registrations.h"

#include <expected>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

class UserDefaults;
struct RegistrationRecord;

/// Registrations in the file system, listed in a preference domain.
///
/// Every file is replaced in one step, and a link that stands for one stays a link. Processes take
/// turns by a lock on the home folder.
class LinuxRegistrations : public Registrations {
public:
    /// `list` keeps the list, and must outlive this object. `home` is the user's home folder.
    LinuxRegistrations(UserDefaults& list, FileUrl home);

    std::expected<void, SystemError> set(std::string_view group,
                                         const std::vector<Registration>& registrations) override;
    std::expected<void, SystemError> clear(std::string_view group) override;
    [[nodiscard]] std::vector<std::string> groups() const override;

private:
    using Records = std::set<RegistrationRecord>;

    [[nodiscard]] std::set<FileUrl> madeFolders() const;
    [[nodiscard]] Records load(std::string_view group) const;
    std::expected<void, SystemError> store(std::string_view group, const Records& records);
    std::expected<void, SystemError> change(std::string_view group,
                                            const std::vector<Registration>& registrations);

    UserDefaults& list_;
    FileUrl home_;
};

} // namespace blankwell
