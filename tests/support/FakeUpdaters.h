#pragma once

#include "platform/UpdaterController.h"

#include <utility>

namespace blankwell {

/// Updaters whose state the test sets.
class FakeUpdaters : public Updaters {
public:
    std::unique_ptr<UpdaterController> start() override {
        ++started;
        return std::make_unique<Controller>(*this);
    }

    /// What the running updater answers; tells its observer.
    void setCanCheckForUpdates(bool can) {
        canCheck = can;
        if (observer) {
            observer();
        }
    }

    bool canCheck = false;
    std::function<void()> observer;
    int started = 0;
    int checks = 0;

private:
    class Controller : public UpdaterController {
    public:
        explicit Controller(FakeUpdaters& updaters) : updaters_(updaters) {}

        bool canCheckForUpdates() const override { return updaters_.canCheck; }

        Subscription observeCanCheckForUpdates(std::function<void()> newObserver) override {
            updaters_.observer = std::move(newObserver);
            updaters_.observer();
            return Subscription([&updaters = updaters_] { updaters.observer = nullptr; });
        }

        void checkForUpdates() override { ++updaters_.checks; }

    private:
        FakeUpdaters& updaters_;
    };
};

} // namespace blankwell
