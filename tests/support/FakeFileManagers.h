#pragma once

#include "platform/FileManagers.h"
#include "support/EventLog.h"

#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace blankwell {

/// File managers that the test starts, and that end as it says.
class FakeFileManagers : public FileManagers {
public:
    /// One process, and how it takes to being ended.
    struct Process {
        std::string name;
        bool refusesToTerminate = false;
        /// How often it is still there when somebody looks.
        int looksUntilGone = 0;
        bool wasAsked = false;
        bool isGone = false;
    };

    explicit FakeFileManagers(EventLog& events) : events_(events) {}

    std::vector<std::unique_ptr<RunningFileManager>> running() override {
        std::vector<std::unique_ptr<RunningFileManager>> handles;
        found_.clear();
        for (auto& process : processes) {
            if (!process.isGone) {
                found_.push_back(&process);
                handles.push_back(std::make_unique<Handle>(events_, process));
            }
        }
        return handles;
    }

    void relaunch() override {
        events_.emplace_back("relaunch file managers");
        for (const auto* process : std::exchange(found_, {})) {
            if (process->isGone) {
                processes.push_back({.name = process->name});
            }
        }
    }

    /// In the order in which they were started.
    std::deque<Process> processes;

private:
    class Handle : public RunningFileManager {
    public:
        Handle(EventLog& events, Process& process) : events_(events), process_(process) {}

        bool terminate() override {
            events_.push_back("terminate " + process_.name);
            process_.wasAsked = !process_.refusesToTerminate;
            return process_.wasAsked;
        }

        void forceTerminate() override {
            events_.push_back("force " + process_.name);
            process_.wasAsked = true;
        }

        bool isTerminated() const override {
            process_.isGone =
                process_.isGone || (process_.wasAsked && --process_.looksUntilGone < 0);
            return process_.isGone;
        }

    private:
        EventLog& events_;
        Process& process_;
    };

    EventLog& events_;
    std::vector<const Process*> found_;
};

} // namespace blankwell
