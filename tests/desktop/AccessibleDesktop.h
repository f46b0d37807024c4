#pragma once

#include "desktop/Desktop.h"
#include "desktop/Program.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

namespace blankwell {

/// The desktop with an accessibility bus, which file managers describe their windows on.
struct AccessibleDesktop {
    AccessibleDesktop() {
        ::unsetenv("NO_AT_BRIDGE");
        ::unsetenv("GTK_A11Y");
        ::setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1", 1);
        outputOf({"gsettings", "set", "org.nemo.preferences", "treat-root-as-normal", "true"});
        launcher.emplace(Arguments{"/usr/libexec/at-spi-bus-launcher", "--launch-immediately"});
        EXPECT_TRUE(eventually([] { return isOnBus("org.a11y.Bus"); }));
    }

    std::optional<Program> launcher;
};

} // namespace blankwell
