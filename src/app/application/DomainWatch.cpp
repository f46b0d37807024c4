#include "app/application/DomainWatch.h"

#include <QSocketNotifier>

#include <utility>

namespace blankwell {

DomainWatch::DomainWatch(std::string_view directory, std::string_view name,
                         std::function<void()> changed, Log& log) {
    auto watch = PreferenceDomainWatch::begin(directory, name);
    if (!watch) {
        Logger(log, "AppSettings").error("{}", watch.error().description);
        return;
    }
    watch_ = *std::move(watch);
    notifier_ = std::make_unique<QSocketNotifier>(watch_->descriptor(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated,
                     [this, changed = std::move(changed)] {
                         if (watch_->drain()) {
                             changed();
                         }
                     });
}

DomainWatch::~DomainWatch() = default;

void DomainWatch::end() {
    notifier_.reset();
    watch_.reset();
}

} // namespace blankwell
