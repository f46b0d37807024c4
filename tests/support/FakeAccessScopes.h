#pragma once

#include "platform/AccessScopes.h"
#include "support/EventLog.h"

#include <algorithm>
#include <map>
#include <set>

namespace blankwell {

/// Scopes that open for the URLs in `grants`.
class FakeAccessScopes : public AccessScopes {
public:
    explicit FakeAccessScopes(EventLog& events) : events_(events) {}

    bool start(const FileUrl& url) override {
        const bool opens = grants.contains(url);
        events_.push_back((opens ? "start " : "cannot start ") + url.path());
        if (opens) {
            ++open[url];
        }
        return opens;
    }

    void stop(const FileUrl& url) override {
        events_.push_back("stop " + url.path());
        --open[url];
    }

    [[nodiscard]] bool isBalanced() const {
        return std::ranges::all_of(open, [](const auto& entry) { return entry.second == 0; });
    }

    std::set<FileUrl> grants;
    std::map<FileUrl, int> open;

private:
    EventLog& events_;
};

} // namespace blankwell
