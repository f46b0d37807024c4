#pragma once

#include "platform/ApplicationPresence.h"
#include "support/EventLog.h"

#include <optional>

namespace blankwell {

/// A session that records what the application asks of it.
class FakeApplicationPresence : public ApplicationPresence {
public:
    explicit FakeApplicationPresence(EventLog& events) : events_(events) {}

    void setActivationPolicy(ActivationPolicy newPolicy) override {
        events_.emplace_back(newPolicy == ActivationPolicy::accessory ? "accessory" : "regular");
        policy = newPolicy;
    }

    void terminate() override { events_.emplace_back("terminate"); }

    /// Nothing until one is set.
    std::optional<ActivationPolicy> policy;

private:
    EventLog& events_;
};

} // namespace blankwell
