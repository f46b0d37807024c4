#pragma once

#include "platform/Pause.h"

#include <QObject>

namespace blankwell {

/// Pauses by the application's event loop; a dialog's loop counts too. Belongs to the thread of the
/// application, which must exist.
class QtPause : public Pause {
public:
    void after(std::chrono::milliseconds duration, std::move_only_function<void()> work) override;

private:
    /// Work runs only while this is there.
    QObject waiting_;
};

} // namespace blankwell
