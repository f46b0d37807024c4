#pragma once

#include <string_view>

namespace blankwell {

/// What the application left on the machine beside its bundle and the files that the user created.
/// What cannot be removed stays, and nobody is told: the rest is removed all the same.
class InstallationTraces {
public:
    virtual ~InstallationTraces() = default;

    /// Removes the preference domain called `name`, as it is stored.
    virtual void removePersistentDomain(std::string_view name) = 0;

    /// Removes the folder that the programs of the app group share, with all that is in it.
    virtual void removeGroupContainer(std::string_view group) = 0;

    /// Removes what makes the desktop know the application: entries, menus, completions.
    virtual void removeRegistrations() = 0;
};

} // namespace blankwell
