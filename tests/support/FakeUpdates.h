#pragma once

#include "platform/BackgroundWork.h"
#include "platform/UpdateInstaller.h"
#include "platform/UpdateTransfers.h"
#include "support/FakeBundle.h"
#include "support/TemporaryFolder.h"
#include "updates/UpdateUserInterface.h"

#include <deque>
#include <optional>
#include <utility>
#include <vector>

namespace blankwell {

/// A web of one feed and one archive.
class FakeUpdateTransfers : public UpdateTransfers {
public:
    std::expected<std::string, UpdateFailure> fetch(const std::string& url, std::size_t /*largest*/,
                                                    std::stop_token stop) override {
        fetched.push_back(url);
        if (stop.stop_requested()) {
            return std::unexpected(UpdateFailure{UpdateFailure::Reason::cancelled, "Cancelled."});
        }
        return failWith ? std::unexpected(*failWith)
                        : std::expected<std::string, UpdateFailure>(feed);
    }

    std::expected<void, UpdateFailure>
    download(const std::string& url, std::uint64_t length, const FileUrl& file,
             const std::function<void(const TransferProgress&)>& progress,
             std::stop_token /*stop*/) override {
        downloaded.emplace_back(url, file.path());
        for (const auto received : steps) {
            progress({received, length, received});
        }
        if (failWith) {
            return std::unexpected(*failWith);
        }
        return {};
    }

    std::string feed;
    std::vector<std::uint64_t> steps;
    std::optional<UpdateFailure> failWith;
    std::vector<std::string> fetched;
    std::vector<std::pair<std::string, std::string>> downloaded;
};

/// An installer whose archive holds the bundle that a test puts in.
class FakeUpdateInstaller : public UpdateInstaller {
public:
    std::expected<std::unique_ptr<UpdateStaging>, UpdateFailure> begin() override {
        if (failToBegin) {
            return std::unexpected(*failToBegin);
        }
        return std::make_unique<Staging>(*this);
    }

    FakeBundle update;
    std::optional<UpdateFailure> failToBegin;
    std::optional<UpdateFailure> failToUnpack;
    /// Called with each thing that is done.
    std::vector<std::string> done;
    std::function<void()> whileUnpacking = [] {};

private:
    class Staged : public StagedBundle {
    public:
        explicit Staged(FakeUpdateInstaller& installer) : installer_(installer) {}

        const Bundle& bundle() const override { return installer_.update; }

        std::expected<void, UpdateFailure> install() override {
            installer_.done.emplace_back("install");
            return {};
        }

    private:
        FakeUpdateInstaller& installer_;
    };

    class Staging : public UpdateStaging {
    public:
        explicit Staging(FakeUpdateInstaller& installer) : installer_(installer) {}

        FileUrl archive(std::string_view name) override {
            return FileUrl("/staging").appending(name);
        }

        std::expected<std::unique_ptr<StagedBundle>, UpdateFailure>
        unpack(const FileUrl& archive, const std::string& signature, const std::string& key,
               std::stop_token /*stop*/) override {
            installer_.done.push_back("unpack " + archive.path() + " " + signature + " " + key);
            installer_.whileUnpacking();
            if (installer_.failToUnpack) {
                return std::unexpected(*installer_.failToUnpack);
            }
            return std::make_unique<Staged>(installer_);
        }

    private:
        FakeUpdateInstaller& installer_;
    };
};

/// Work that is done when the test says so.
class FakeBackgroundWork : public BackgroundWork {
public:
    Subscription run(std::move_only_function<void(std::stop_token)> work) override {
        std::stop_source source;
        pending.emplace_back(std::move(work), source);
        return Subscription([source]() mutable { source.request_stop(); });
    }

    void work() {
        while (!pending.empty()) {
            auto [next, source] = std::move(pending.front());
            pending.pop_front();
            next(source.get_token());
        }
    }

    std::deque<std::pair<std::move_only_function<void(std::stop_token)>, std::stop_source>> pending;
};

/// A user who sees everything, and answers when the test says so.
class FakeUpdateUserInterface : public UpdateUserInterface {
public:
    void setListener(Listener newListener) override { listener = std::move(newListener); }

    void show(const UpdateState& state, bool checks) override {
        shown.push_back(state);
        checksAutomatically = checks;
        isOpen = true;
    }

    void raise() override { ++raises; }

    void close() override { isOpen = false; }

    Listener listener;
    std::vector<UpdateState> shown;
    bool checksAutomatically = false;
    bool isOpen = false;
    int raises = 0;
};

} // namespace blankwell
