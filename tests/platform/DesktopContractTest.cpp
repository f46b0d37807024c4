#include "contract/ScreensContract.h"
#include "contract/StatusBarContract.h"
#include "support/FakeStatusBar.h"
#include "support/FakeWindows.h"

namespace blankwell {
namespace {

class FakeScreensWorld {
public:
    const Screens& screens() const { return screens_; }

    void movePointer(Point to) { screens_.pointer = to; }

private:
    FakeScreens screens_;
};

class FakeStatusBarWorld {
public:
    StatusBar& bar() { return bar_; }

    std::ptrdiff_t items() const { return std::ssize(bar_.items); }

    std::vector<std::string> titles() const {
        std::vector<std::string> titles;
        for (const auto& item : bar_.items.front()->menu) {
            titles.push_back(std::get<Command>(item).title);
        }
        return titles;
    }

    void choose(const std::string& title) const {
        for (const auto& item : bar_.items.front()->menu) {
            if (const auto& command = std::get<Command>(item); command.title == title) {
                // A copy, since it may replace the menu.
                const auto action = command.action;
                action();
                return;
            }
        }
    }

private:
    using Command = MenuCommand<std::function<void()>>;

    EventLog events_;
    FakeStatusBar bar_{events_};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, ScreensContract, FakeScreensWorld);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, StatusBarContract, FakeStatusBarWorld);

} // namespace
} // namespace blankwell
