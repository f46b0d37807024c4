#pragma once

#include "platform/Application.h"
#include "platform/Workspace.h"
#include "support/EventLog.h"

#include <functional>
#include <set>
#include <string>

namespace blankwell {

/// An application that records what it is told.
class FakeApplication : public Application {
public:
    explicit FakeApplication(EventLog& events) : events_(events) {}

    bool isActive() const override { return active; }

    void activate() override {
        events_.emplace_back("activate");
        active = true;
    }

    void closeWindows(std::string_view title) override {
        events_.push_back("close windows " + std::string(title));
    }

    bool active = false;

private:
    EventLog& events_;
};

/// A file manager that records what it is shown.
class FakeWorkspace : public Workspace {
public:
    explicit FakeWorkspace(EventLog& events) : events_(events) {}

    void reveal(const FileUrl& url) override { events_.push_back("reveal " + url.path()); }

    bool open(std::string_view url) override {
        events_.push_back("open " + std::string(url));
        return handledSchemes.contains(url.substr(0, url.find(':')));
    }

    /// The schemes that a program is there for.
    std::set<std::string, std::less<>> handledSchemes;

private:
    EventLog& events_;
};

} // namespace blankwell
