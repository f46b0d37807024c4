#include "updates/StandardUpdater.h"

#include "base/Text.h"
#include "platform/BackgroundWork.h"
#include "platform/Bundle.h"
#include "platform/MainQueue.h"
#include "platform/Timer.h"
#include "platform/UserDefaults.h"
#include "updates/UpdateJob.h"
#include "updates/UpdateRefusal.h"
#include "updates/UpdateUserInterface.h"

#include <algorithm>
#include <utility>

namespace blankwell {
namespace {

/// A start is busy enough without a check.
constexpr std::chrono::seconds earliestCheck{10};

std::string feedOf(const Bundle& bundle) {
    return std::string(trimmed(bundle.infoString("SUFeedURL").value_or("")));
}

} // namespace

StandardUpdater::StandardUpdater(Services services)
    : services_(std::move(services)),
      log_(services_.log, "SelfUpdate"),
      schedule_(services_.defaults),
      target_{services_.bundle.infoString("CFBundleVersion").value_or(""),
              services_.systemVersion} {
    services_.userInterface.setListener({
        .answered = [this](UpdateAnswer answer) { answered(answer); },
        .setChecksAutomatically = [this](bool checks) { setChecksAutomatically(checks); },
    });
    planCheck();
}

StandardUpdater::~StandardUpdater() {
    services_.userInterface.setListener({});
}

Subscription StandardUpdater::observeCanCheckForUpdates(std::function<void()> observer) {
    observer();
    return observers_.add(std::move(observer));
}

void StandardUpdater::checkForUpdates() {
    if (isBusy_) {
        services_.userInterface.raise();
    } else {
        check(Asker::user);
    }
}

void StandardUpdater::check(Asker asker) {
    setBusy(true);
    if (const auto elsewhere = updaterElsewhere(services_.installation)) {
        show(UpdatedElsewhere{*elsewhere});
        return;
    }
    note(schedule_.checked(services_.now()));
    if (const auto job = services_.job()) {
        begin(asker, **job);
    } else {
        fail(asker, job.error());
    }
}

void StandardUpdater::begin(Asker asker, UpdateJob& job) {
    attempted_.reset();
    if (asker == Asker::user) {
        show(CheckingForUpdate{});
    }
    run([this, asker, &job, feed = feedOf(services_.bundle),
         target = target_](const std::stop_token& stop, const Post& post) {
        post([this, asker, found = job.check(feed, target, stop)] { finishCheck(asker, found); });
    });
}

void StandardUpdater::finishCheck(
    Asker asker, const std::expected<std::optional<AppcastItem>, UpdateFailure>& found) {
    if (!found) {
        fail(asker, found.error());
    } else if (*found) {
        offer(asker, **found);
    } else if (asker == Asker::user) {
        show(NoUpdateFound{});
    } else {
        finish();
    }
}

void StandardUpdater::offer(Asker asker, const AppcastItem& item) {
    const bool critical = isCritical(item, target_.version);
    const bool isSkipped =
        asker == Asker::schedule && !critical && schedule_.skippedVersion() == item.version;
    log_.notice("Found version {}{}", item.version, isSkipped ? ", which is to be skipped" : "");
    if (isSkipped) {
        finish();
    } else {
        show(UpdateFound{item, critical});
    }
}

void StandardUpdater::install(const AppcastItem& item) {
    const auto job = services_.job();
    if (!job) {
        fail(Asker::user, job.error());
        return;
    }
    attempted_ = item;
    show(DownloadingUpdate{item, {.expected = item.length.value_or(0)}});
    run([this, item, &job = **job, &bundle = services_.bundle](const std::stop_token& stop,
                                                               const Post& post) {
        const UpdateJob::Observer observer{
            .downloaded =
                [&](const TransferProgress& progress) {
                    post([this, item, progress] { show(DownloadingUpdate{item, progress}); });
                },
            .willUnpack = [&] { post([this, item] { show(InstallingUpdate{item}); }); },
        };
        post([this, item, result = job.install(item, bundle, observer, stop)] {
            finishInstall(item, result);
        });
    });
}

void StandardUpdater::finishInstall(const AppcastItem& item,
                                    const std::expected<void, UpdateFailure>& result) {
    if (!result) {
        fail(Asker::user, result.error());
        return;
    }
    log_.notice("Installed version {}", item.version);
    target_.version = item.version; // which the next check is to go beyond
    attempted_.reset();
    show(UpdateReady{item});
}

void StandardUpdater::fail(Asker asker, const UpdateFailure& failure) {
    log_.error("Update failed: {}", failure.description);
    if (asker == Asker::user) {
        show(UpdateFailed{failure.description});
    } else {
        finish();
    }
}

void StandardUpdater::answered(UpdateAnswer answer) {
    const auto* const found = state_ ? std::get_if<UpdateFound>(&*state_) : nullptr;
    const auto offered = found == nullptr ? std::nullopt : std::optional(found->item);
    switch (answer) {
    case UpdateAnswer::install:
        if (offered) {
            install(*offered);
        }
        return;
    case UpdateAnswer::tryAgain:
        tryAgain();
        return;
    case UpdateAnswer::skipVersion:
        if (offered) {
            note(schedule_.skip(offered->version));
        }
        finish();
        return;
    case UpdateAnswer::relaunch:
        finish();
        services_.relaunch();
        return;
    case UpdateAnswer::close:
        finish();
        return;
    }
}

void StandardUpdater::tryAgain() {
    if (attempted_) {
        install(AppcastItem(*attempted_));
    } else {
        check(Asker::user);
    }
}

void StandardUpdater::setChecksAutomatically(bool checks) {
    note(schedule_.setChecksAutomatically(checks));
    planCheck();
}

void StandardUpdater::note(const std::expected<void, SystemError>& stored) {
    if (!stored) {
        log_.error("The settings of updates could not be stored: {}", stored.error().description);
    }
}

void StandardUpdater::show(UpdateState state) {
    state_ = std::move(state);
    services_.userInterface.show(*state_, schedule_.checksAutomatically());
}

void StandardUpdater::setBusy(bool isBusy) {
    if (std::exchange(isBusy_, isBusy) != isBusy) {
        observers_.notify();
    }
}

void StandardUpdater::finish() {
    current_.reset();
    work_.end();
    state_.reset();
    services_.userInterface.close();
    planCheck();
    setBusy(false);
}

void StandardUpdater::planCheck() {
    nextCheck_.end();
    const auto delay = schedule_.untilNextCheck(services_.now());
    if (!delay || updaterElsewhere(services_.installation)) {
        return;
    }
    nextCheck_ = services_.timer.after(std::max(*delay, earliestCheck), [this] {
        if (!isBusy_) {
            check(Asker::schedule);
        }
    });
}

void StandardUpdater::run(std::function<void(const std::stop_token&, const Post&)> work) {
    current_ = std::make_shared<int>();
    work_ =
        services_.background.run([work = std::move(work), weak = std::weak_ptr(current_),
                                  &mainQueue = services_.mainQueue](const std::stop_token& stop) {
            work(stop, [&](std::move_only_function<void()> report) {
                mainQueue.async([weak, report = std::move(report)]() mutable {
                    if (!weak.expired()) {
                        report();
                    }
                });
            });
        });
}

} // namespace blankwell
