#pragma once

#include "platform/Log.h"
#include "platform/linux/PreferenceDomainWatch.h"

#include <functional>
#include <memory>
#include <optional>
#include <string_view>

class QSocketNotifier;

namespace blankwell {

/// Tells, in the event loop, when a preference domain was written by this process or another.
class DomainWatch {
public:
    /// Watches the domain `name` in `directory`. Where that is impossible it is logged, and changes
    /// by others are seen at the next start.
    DomainWatch(std::string_view directory, std::string_view name, std::function<void()> changed,
                Log& log);
    ~DomainWatch();

    /// Tells of no further change.
    void end();

private:
    std::optional<PreferenceDomainWatch> watch_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace blankwell
