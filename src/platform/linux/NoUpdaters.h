#pragma once

#include "platform/UpdaterController.h"

namespace blankwell {

/// The updaters of a program that somebody else keeps up to date: none ever can check.
class NoUpdaters : public Updaters {
public:
    [[nodiscard]] std::unique_ptr<UpdaterController> start() override {
        return std::make_unique<Controller>();
    }

private:
    class Controller : public UpdaterController {
    public:
        [[nodiscard]] bool canCheckForUpdates() const override { return false; }

        Subscription observeCanCheckForUpdates(std::function<void()> observer) override {
            observer();
            return {};
        }

        void checkForUpdates() override {}
    };
};

} // namespace blankwell
