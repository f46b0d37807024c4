#pragma once

#include "base/FileUrl.h"
#include "platform/InstallationTraces.h"

#include <functional>
#include <vector>

namespace blankwell {

/// Where an installation leaves its traces on Linux:
///
/// - a preference domain is NAME.plist in `preferences`, with what `PlistDomain` keeps beside it:
///   the lock, copies of damaged files, and what is left of a write that was cut off;
/// - the group's container is the folder GROUP in `dataHome`, the user's `XDG_DATA_HOME`;
/// - each registration has a part that undoes it.
///
/// Links are removed, not what they lead to. A name that could lead out of its folder names
/// nothing. Settings that a program writes at that very moment may come back.
class LinuxInstallationTraces : public InstallationTraces {
public:
    /// Undoes one registration. Must not fail visibly.
    using Undo = std::function<void()>;

    /// `registrations` are undone in their order.
    LinuxInstallationTraces(FileUrl preferences, FileUrl dataHome, std::vector<Undo> registrations);

    void removePersistentDomain(std::string_view name) override;
    void removeGroupContainer(std::string_view group) override;
    void removeRegistrations() override;

private:
    FileUrl preferences_;
    FileUrl dataHome_;
    std::vector<Undo> registrations_;
};

} // namespace blankwell
