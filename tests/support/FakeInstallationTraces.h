#pragma once

#include "platform/InstallationTraces.h"
#include "support/EventLog.h"

#include <functional>
#include <set>
#include <string>

namespace blankwell {

/// Traces that record how they are removed.
class FakeInstallationTraces : public InstallationTraces {
public:
    explicit FakeInstallationTraces(EventLog& events) : events_(events) {}

    void removePersistentDomain(std::string_view name) override {
        events_.push_back("remove domain " + std::string(name));
        std::erase_if(domains, [&](const auto& domain) { return domain == name; });
    }

    void removeGroupContainer(std::string_view group) override {
        events_.push_back("remove container " + std::string(group));
        std::erase_if(containers, [&](const auto& container) { return container == group; });
    }

    void removeRegistrations() override {
        events_.emplace_back("remove registrations");
        isRegistered = false;
    }

    std::set<std::string, std::less<>> domains;
    std::set<std::string, std::less<>> containers;
    bool isRegistered = false;

private:
    EventLog& events_;
};

} // namespace blankwell
