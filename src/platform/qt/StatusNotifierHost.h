#pragma once

#include <QDBusServiceWatcher>

#include <functional>

namespace blankwell {

/// Whether the session has a place for status items: a program that owns the name of the
/// StatusNotifierItem protocol's watcher.
///
/// Qt settles for good whether there is such a place when an icon is first made, so none may be
/// made before this says that there is.
class StatusNotifierHost {
public:
    /// `changed` is called from the event loop whenever the place comes, is taken over by another
    /// program, or goes; first when it is found to be there.
    explicit StatusNotifierHost(std::function<void()> changed);

    [[nodiscard]] bool isPresent() const { return isPresent_; }

private:
    void askForPresence();
    void setPresent(bool isPresent);

    std::function<void()> changed_;
    bool isPresent_ = false;
    QDBusServiceWatcher watcher_;
};

} // namespace blankwell
