#pragma once

#include "base/Subscription.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace blankwell {

/// Those who want to hear of something, told in the order in which they came.
///
/// An observer may do anything while it is told: end its own subscription or another's (which is
/// then not told any more), subscribe (a newcomer is told too), or cause the next notification.
/// Belongs to one thread.
template <typename... Values>
class Observers {
public:
    using Observer = std::function<void(const Values&...)>;

    Observers() = default;
    Observers(const Observers&) = delete;
    Observers& operator=(const Observers&) = delete;

    /// Tells `observer` of what comes as long as the subscription lasts, which may be longer than
    /// this object.
    Subscription add(Observer observer) {
        const auto entry = std::make_shared<Entry>(std::move(observer));
        list_->entries.push_back(entry);
        return Subscription([entry, list = std::weak_ptr(list_)] {
            entry->isActive = false;
            if (const auto alive = list.lock()) {
                alive->sweep();
            }
        });
    }

    void notify(const Values&... values) {
        const auto list = list_;
        ++list->notifications;
        for (std::size_t i = 0; i < list->entries.size(); ++i) {
            const auto entry = list->entries[i];
            if (entry->isActive) {
                entry->observer(values...);
            }
        }
        --list->notifications;
        list->sweep();
    }

    [[nodiscard]] std::size_t count() const {
        return static_cast<std::size_t>(std::ranges::count(
            list_->entries, true, [](const auto& entry) { return entry->isActive; }));
    }

private:
    struct Entry {
        explicit Entry(Observer toTell) : observer(std::move(toTell)) {}

        Observer observer;
        bool isActive = true;
    };

    struct List {
        /// Forgets those who ended, except while somebody walks along the list.
        void sweep() {
            if (notifications == 0) {
                std::erase_if(entries, [](const auto& entry) { return !entry->isActive; });
            }
        }

        std::vector<std::shared_ptr<Entry>> entries;
        int notifications = 0;
    };

    std::shared_ptr<List> list_ = std::make_shared<List>();
};

} // namespace blankwell
