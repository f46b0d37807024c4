#pragma once

#include "platform/AccessScopes.h"
#include "support/EventLog.h"

#include <algorithm>
#include <map>
#include <set>

namespace blankwell {

/// Scopes that open for the URLs in `grants`, which are standardized.
class FakeAccessScopes : public AccessScopes {
public:
    explicit FakeAccessScopes(EventLog& events) : events_(events) {}

    bool start(const FileUrl& url) override {
        const bool opens = grants.contains(url.standardized());
        events_.push_back((opens ? "start " : "cannot start ") + url.path());
        if (opens) {
            ++open[url.standardized()];
        }
        return opens;
    }

    void stop(const FileUrl& url) override {
        events_.push_back("stop " + url.path());
        if (int& starts = open[url.standardized()]; starts > 0) {
            --starts;
        } else {
            ++unowedStops;
        }
    }

    [[nodiscard]] bool isBalanced() const {
        return unowedStops == 0 &&
               std::ranges::all_of(open, [](const auto& entry) { return entry.second == 0; });
    }

    std::set<FileUrl> grants;
    std::map<FileUrl, int> open;
    /// Stops that no open start was waiting for.
    int unowedStops = 0;

private:
    EventLog& events_;
};

} // namespace blankwell
