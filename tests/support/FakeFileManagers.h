#pragma once

#include "platform/FileManagers.h"
#include "support/EventLog.h"

#include <memory>
#include <string>
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
    };

    explicit FakeFileManagers(EventLog& events) : events_(events) {}

    std::vector<std::unique_ptr<RunningFileManager>> running() override {
        std::vector<std::unique_ptr<RunningFileManager>> found;
        for (auto& process : processes) {
            found.push_back(std::make_unique<Handle>(events_, process));
        }
        return found;
    }

    void relaunch() override { events_.emplace_back("relaunch file managers"); }

    std::vector<Process> processes;

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
            return process_.wasAsked && --process_.looksUntilGone < 0;
        }

    private:
        EventLog& events_;
        Process& process_;
    };

    EventLog& events_;
};

} // namespace blankwell
