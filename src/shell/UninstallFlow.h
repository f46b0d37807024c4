#pragma once

namespace blankwell {

/// Removes the application from the machine.
class UninstallFlow {
public:
    virtual ~UninstallFlow() = default;

    /// Asks the user to confirm, and if so begins: the rest happens after the call returned.
    virtual void uninstall() = 0;
};

} // namespace blankwell
