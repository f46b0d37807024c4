#pragma once

#include "base/FileUrl.h"
#include "platform/Workspace.h"

#include <gtest/gtest.h>

namespace blankwell {

/// What every `Workspace` does. `World` has `workspace()`, the port under test, and
/// `isNextShown(url)`: whether the next of the items that the file manager was asked to show, in
/// order, is `url`.
template <typename World>
struct WorkspaceContract : testing::Test {
    World world;
};

TYPED_TEST_SUITE_P(WorkspaceContract);

TYPED_TEST_P(WorkspaceContract, EachItemIsShownInTurn) {
    this->world.workspace().reveal(FileUrl("/a/first"));
    this->world.workspace().reveal(FileUrl("/a/second"));
    EXPECT_TRUE(this->world.isNextShown(FileUrl("/a/first")));
    EXPECT_TRUE(this->world.isNextShown(FileUrl("/a/second")));
}

TYPED_TEST_P(WorkspaceContract, EveryNameIsShownAsItIs) {
    for (const auto* path : {"/a b/[1] #%41?&'\"\n", "/é😀", "/not\xFFutf8", "/"}) {
        this->world.workspace().reveal(FileUrl(path));
        EXPECT_TRUE(this->world.isNextShown(FileUrl(path))) << path;
    }
}

TYPED_TEST_P(WorkspaceContract, AUrlThatNoProgramTakesIsNotOpened) {
    EXPECT_FALSE(this->world.workspace().open("x-blankwell-unknown:nothing"));
    EXPECT_FALSE(this->world.workspace().open("no url"));
    EXPECT_FALSE(this->world.workspace().open(""));
}

REGISTER_TYPED_TEST_SUITE_P(WorkspaceContract, EachItemIsShownInTurn, EveryNameIsShownAsItIs,
                            AUrlThatNoProgramTakesIsNotOpened);

} // namespace blankwell
