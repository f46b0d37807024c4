#pragma once

#include "platform/InstallationTraces.h"

#include <gtest/gtest.h>

namespace blankwell {

/// What every `InstallationTraces` does. `World` has `traces()`, the port under test,
/// `addDomain(name)`, `addContainer(group)` and `registerApplication()`, which leave a trace, and
/// `hasDomain(name)`, `hasContainer(group)` and `isRegistered()`, which tell whether it is there.
template <typename World>
struct InstallationTracesContract : testing::Test {
    InstallationTracesContract() {
        for (const auto* name : {"app", "app.other"}) {
            world.addDomain(name);
            world.addContainer(name);
        }
        world.registerApplication();
    }

    World world;
};

TYPED_TEST_SUITE_P(InstallationTracesContract);

TYPED_TEST_P(InstallationTracesContract, ADomainGoesAndNothingElse) {
    this->world.traces().removePersistentDomain("app");
    EXPECT_FALSE(this->world.hasDomain("app"));
    EXPECT_TRUE(this->world.hasDomain("app.other"));
    EXPECT_TRUE(this->world.hasContainer("app"));
    EXPECT_TRUE(this->world.isRegistered());
}

TYPED_TEST_P(InstallationTracesContract, AContainerGoesAndNothingElse) {
    this->world.traces().removeGroupContainer("app");
    EXPECT_FALSE(this->world.hasContainer("app"));
    EXPECT_TRUE(this->world.hasContainer("app.other"));
    EXPECT_TRUE(this->world.hasDomain("app"));
    EXPECT_TRUE(this->world.isRegistered());
}

TYPED_TEST_P(InstallationTracesContract, RegistrationsGoAndNothingElse) {
    this->world.traces().removeRegistrations();
    EXPECT_FALSE(this->world.isRegistered());
    EXPECT_TRUE(this->world.hasDomain("app"));
    EXPECT_TRUE(this->world.hasContainer("app"));
}

TYPED_TEST_P(InstallationTracesContract, WhatIsNotThereMayBeRemovedAgain) {
    for (int time = 0; time < 2; ++time) {
        this->world.traces().removePersistentDomain("app");
        this->world.traces().removeGroupContainer("app");
        this->world.traces().removeRegistrations();
        this->world.traces().removePersistentDomain("never");
    }
    EXPECT_TRUE(this->world.hasDomain("app.other"));
    EXPECT_TRUE(this->world.hasContainer("app.other"));
}

REGISTER_TYPED_TEST_SUITE_P(InstallationTracesContract, ADomainGoesAndNothingElse,
                            AContainerGoesAndNothingElse, RegistrationsGoAndNothingElse,
                            WhatIsNotThereMayBeRemovedAgain);

} // namespace blankwell
