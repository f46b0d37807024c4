#pragma once

#include "platform/FileManagers.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace blankwell {

/// What every `FileManagers` does. `World` has `managers()`, the port under test, `start()`, which
/// starts a file manager with a window, `isBack()`, whether one with such a window comes up,
/// `staysAway()` and `staysAlone()`, whether no window and no second one does, and `ends(process)`,
/// whether it ends before long.
template <typename World>
struct FileManagersContract : testing::Test {
    std::vector<std::unique_ptr<RunningFileManager>> running() {
        return world.managers().running();
    }

    World world;
};

TYPED_TEST_SUITE_P(FileManagersContract);

TYPED_TEST_P(FileManagersContract, WithoutAFileManagerNoneRunsAndNoneIsStarted) {
    EXPECT_TRUE(this->running().empty());
    this->world.managers().relaunch();
    EXPECT_TRUE(this->world.staysAway());
}

TYPED_TEST_P(FileManagersContract, OneThatIsAskedEndsAndComesBackWithWhatItHadOpen) {
    this->world.start();
    const auto found = this->running();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_FALSE(found[0]->isTerminated());

    EXPECT_TRUE(found[0]->terminate());
    EXPECT_TRUE(this->world.ends(*found[0]));
    this->world.managers().relaunch();

    EXPECT_TRUE(this->world.isBack());
    EXPECT_TRUE(found[0]->isTerminated());
}

TYPED_TEST_P(FileManagersContract, OneThatIsForcedEnds) {
    this->world.start();
    const auto found = this->running();
    ASSERT_EQ(found.size(), 1U);

    found[0]->forceTerminate();

    EXPECT_TRUE(this->world.ends(*found[0]));
    EXPECT_TRUE(this->running().empty());
}

TYPED_TEST_P(FileManagersContract, WhatWasBroughtBackIsNotBroughtBackAgain) {
    this->world.start();
    const auto found = this->running();
    ASSERT_EQ(found.size(), 1U);
    found[0]->forceTerminate();
    ASSERT_TRUE(this->world.ends(*found[0]));
    this->world.managers().relaunch();
    ASSERT_TRUE(this->world.isBack());

    this->world.managers().relaunch();

    EXPECT_TRUE(this->world.staysAlone());
}

REGISTER_TYPED_TEST_SUITE_P(FileManagersContract, WithoutAFileManagerNoneRunsAndNoneIsStarted,
                            OneThatIsAskedEndsAndComesBackWithWhatItHadOpen, OneThatIsForcedEnds,
                            WhatWasBroughtBackIsNotBroughtBackAgain);

} // namespace blankwell
