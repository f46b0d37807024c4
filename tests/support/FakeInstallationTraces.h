#pragma once

#include "platform/InstallationTraces.h"
#include "support/EventLog.h"

#include <string>

namespace blankwell {

/// Traces that record how they are removed.
class FakeInstallationTraces : public InstallationTraces {
public:
    explicit FakeInstallationTraces(EventLog& events) : events_(events) {}

    void removePersistentDomain(std::string_view name) override {
        events_.push_back("remove domain " + std::string(name));
    }

    void removeGroupContainer(std::string_view group) override {
        events_.push_back("remove container " + std::string(group));
    }

    void removeRegistrations() override { events_.emplace_back("remove registrations"); }

private:
    EventLog& events_;
};

} // namespace blankwell
