#pragma once

#include "platform/Timer.h"

namespace blankwell {

/// Alarms of Qt's event loop. Belongs to the thread of the application.
class QtTimer : public Timer {
public:
    Subscription after(std::chrono::seconds delay, std::move_only_function<void()> work) override;
};

} // namespace blankwell
