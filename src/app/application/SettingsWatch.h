#pragma once

#include "platform/Log.h"
#include "platform/linux/PreferenceDomainWatch.h"

#include <memory>
#include <optional>
#include <string_view>

class QSocketNotifier;

namespace blankwell {

class AppSettings;

/// Lets the settings take in what other processes write to their domain.
class SettingsWatch {
public:
    /// Watches the domain `name` in `directory`. Where that is impossible it is logged, and changes
    /// by others are seen at the next start. Both must outlive this object.
    SettingsWatch(std::string_view directory, std::string_view name, AppSettings& settings,
                  Log& log);
    ~SettingsWatch();

    /// Hears of no further change.
    void end();

private:
    std::optional<PreferenceDomainWatch> watch_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace blankwell
