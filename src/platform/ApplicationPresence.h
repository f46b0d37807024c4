#pragma once

namespace blankwell {

/// How the desktop lists a running application.
enum class ActivationPolicy {
    /// Among the others: its windows are in the task bar.
    regular,
    /// Not at all: its windows are kept out of task bar and pager.
    accessory,
};

/// The application's standing in the session.
class ApplicationPresence {
public:
    virtual ~ApplicationPresence() = default;

    /// Holds for the windows there are and all that come.
    virtual void setActivationPolicy(ActivationPolicy policy) = 0;

    /// Ends the application in the orderly way, after the work under way: returns to the caller.
    virtual void terminate() = 0;
};

} // namespace blankwell
