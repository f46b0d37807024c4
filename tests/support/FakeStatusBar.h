#pragma once

#include "platform/StatusBar.h"
#include "support/EventLog.h"

#include <algorithm>

namespace blankwell {

/// A status bar in memory.
class FakeStatusBar : public StatusBar {
public:
    /// What stands in the bar.
    struct Shown {
        StatusItemConfiguration configuration;
        ActionMenu menu;
        int menusSet = 0;
    };

    explicit FakeStatusBar(EventLog& events) : events_(events) {}

    std::unique_ptr<StatusItem> makeItem(const StatusItemConfiguration& configuration) override {
        events_.emplace_back("show status item");
        return std::make_unique<Item>(*this, configuration);
    }

    /// The items in the bar, each as long as its owner keeps it.
    std::vector<Shown*> items;

private:
    class Item : public StatusItem {
    public:
        Item(FakeStatusBar& bar, const StatusItemConfiguration& configuration)
            : bar_(bar), shown_{.configuration = configuration} {
            bar_.items.push_back(&shown_);
        }

        ~Item() override {
            bar_.events_.emplace_back("remove status item");
            std::erase(bar_.items, &shown_);
        }

        void setMenu(ActionMenu menu) override {
            shown_.menu = std::move(menu);
            ++shown_.menusSet;
        }

    private:
        FakeStatusBar& bar_;
        Shown shown_;
    };

    EventLog& events_;
};

} // namespace blankwell
