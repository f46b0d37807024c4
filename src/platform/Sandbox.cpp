#include "platform/Sandbox.h"

#include "platform/Environment.h"

namespace blankwell {

bool isSandboxed(const Environment& environment) {
    return environment.variable("APP_SANDBOX_CONTAINER_ID").has_value();
}

} // namespace blankwell
