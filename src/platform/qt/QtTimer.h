#pragma once

#include "platform/Timer.h"

namespace blankwell {

/// Alarms of Qt's event loop; a dialog's loop counts too. Belongs to the thread of the application,
/// which must exist.
class QtTimer : public Timer {
public:
    Subscription after(std::chrono::milliseconds delay,
                       std::move_only_function<void()> work) override;
};

} // namespace blankwell
