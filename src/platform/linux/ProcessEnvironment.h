#pragma once

#include "platform/Environment.h"

namespace blankwell {

/// The environment of this process as it is now.
class ProcessEnvironment : public Environment {
public:
    [[nodiscard]] std::optional<std::string> variable(const char* name) const override;
};

} // namespace blankwell
