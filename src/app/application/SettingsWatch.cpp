#include "app/application/SettingsWatch.h"

#include "settings/AppSettings.h"

#include <QSocketNotifier>

namespace blankwell {

SettingsWatch::SettingsWatch(std::string_view directory, std::string_view name,
                             AppSettings& settings, Log& log) {
    auto watch = PreferenceDomainWatch::begin(directory, name);
    if (!watch) {
        Logger(log, "AppSettings").error("{}", watch.error().description);
        return;
    }
    watch_ = *std::move(watch);
    notifier_ = std::make_unique<QSocketNotifier>(watch_->descriptor(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this, &settings] {
        if (watch_->drain()) {
            settings.reloadFromStore();
        }
    });
}

SettingsWatch::~SettingsWatch() = default;

void SettingsWatch::end() {
    notifier_.reset();
    watch_.reset();
}

} // namespace blankwell
