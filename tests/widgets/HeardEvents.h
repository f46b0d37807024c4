#pragma once

#include <QAccessible>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace blankwell {

/// What screen readers hear from the widgets while this lives. One at a time.
class HeardEvents {
public:
    HeardEvents() : before_(QAccessible::installUpdateHandler(hear)) {
        heard().clear();
        QAccessible::setActive(true);
    }

    ~HeardEvents() {
        QAccessible::setActive(false);
        QAccessible::installUpdateHandler(before_);
    }

    HeardEvents(const HeardEvents&) = delete;
    HeardEvents& operator=(const HeardEvents&) = delete;

    /// How many events of the kind `event` came from `source`.
    [[nodiscard]] std::ptrdiff_t count(QAccessible::Event event, const QObject& source) const {
        return std::ranges::count_if(
            heard(), [&](const Heard& one) { return one.event == event && one.source == &source; });
    }

    /// How often `source` told that it was expanded or collapsed.
    [[nodiscard]] std::ptrdiff_t countExpansions(const QObject& source) const {
        return std::ranges::count_if(
            heard(), [&](const Heard& one) { return one.isExpansion && one.source == &source; });
    }

private:
    struct Heard {
        QAccessible::Event event;
        const QObject* source;
        bool isExpansion;
    };

    static std::vector<Heard>& heard() {
        static std::vector<Heard> events;
        return events;
    }

    static void hear(QAccessibleEvent* event) {
        const auto* const change = event->type() == QAccessible::StateChanged
                                       ? static_cast<QAccessibleStateChangeEvent*>(event)
                                       : nullptr;
        heard().push_back({.event = event->type(),
                           .source = event->object(),
                           .isExpansion = change != nullptr && change->changedStates().expanded});
    }

    QAccessible::UpdateHandler before_;
};

} // namespace blankwell
