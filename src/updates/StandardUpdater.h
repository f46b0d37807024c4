#pragma once

#include "base/Observers.h"
#include "platform/InstallationForm.h"
#include "platform/Log.h"
#include "platform/UpdaterController.h"
#include "updates/UpdateChoice.h"
#include "updates/UpdateSchedule.h"
#include "updates/UpdateState.h"

#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace blankwell {

class BackgroundWork;
class Bundle;
class MainQueue;
class Timer;
class UpdateJob;
class UpdateUserInterface;

/// The updater of the running application: checks when it is asked to, and once a day where the
/// user agreed to that; finds, downloads and installs what the user wants.
///
/// One thing at a time: a check can be asked for exactly while no state is shown and none is
/// looked for. Nothing is downloaded or installed that the user was not asked about. What nobody
/// asked for fails silently but for the log. Belongs to the main thread.
class StandardUpdater : public UpdaterController {
public:
    /// All must outlive the updater, which the user interface must not share with another.
    struct Services {
        const Bundle& bundle;
        InstallationForm installation;
        /// The system's version, which updates can demand; empty where it is not known.
        std::string systemVersion;
        UserDefaults& defaults;
        /// What does the work, made at its first use. Error: it cannot be made.
        std::function<std::expected<UpdateJob*, UpdateFailure>()> job;
        UpdateUserInterface& userInterface;
        BackgroundWork& background;
        MainQueue& mainQueue;
        Timer& timer;
        std::function<UpdateSchedule::Clock::time_point()> now;
        /// Ends the application and starts it again.
        std::function<void()> relaunch;
        Log& log;
    };

    explicit StandardUpdater(Services services);
    ~StandardUpdater() override;

    [[nodiscard]] bool canCheckForUpdates() const override { return !isBusy_; }

    Subscription observeCanCheckForUpdates(std::function<void()> observer) override;

    void checkForUpdates() override;

private:
    /// Who wants a check.
    enum class Asker { user, schedule };

    void check(Asker asker);
    void begin(Asker asker, UpdateJob& job);
    void finishCheck(Asker asker,
                     const std::expected<std::optional<AppcastItem>, UpdateFailure>& found);
    void offer(Asker asker, const AppcastItem& item);
    void install(const AppcastItem& item);
    void finishInstall(const AppcastItem& item, const std::expected<void, UpdateFailure>& result);
    void fail(Asker asker, const UpdateFailure& failure);

    void answered(UpdateAnswer answer);
    void tryAgain();
    void setChecksAutomatically(bool checks);
    void note(const std::expected<void, SystemError>& stored);

    void show(UpdateState state);
    void setBusy(bool isBusy);
    /// Back to where a check can be asked for.
    void finish();
    void planCheck();

    /// Has `work` done in the background, with a way to run something on the main thread that
    /// is dropped once this piece of work is no longer the current one.
    using Post = std::function<void(std::move_only_function<void()>)>;
    void run(std::function<void(const std::stop_token&, const Post&)> work);

    Services services_;
    Logger log_;
    UpdateSchedule schedule_;
    UpdateTarget target_;
    bool isBusy_ = false;
    std::optional<UpdateState> state_;
    /// What a failed installation was to install.
    std::optional<AppcastItem> attempted_;
    Observers<> observers_;
    /// Stands for the current piece of work; what the others report is dropped.
    std::shared_ptr<int> current_;
    Subscription work_;
    Subscription nextCheck_;
};

} // namespace blankwell
