#pragma once

#include "platform/AccessScopes.h"

#include <gtest/gtest.h>

namespace blankwell {

/// What every `AccessScopes` does. `World` has `scopes()`, the port under test, `grant(url)`, which
/// makes the URL one that can be started, and `isOpen(url)`.
template <typename World>
struct AccessScopesContract : testing::Test {
    World world;
    FileUrl folder{"/home/u/Projects"};
};

TYPED_TEST_SUITE_P(AccessScopesContract);

TYPED_TEST_P(AccessScopesContract, AFolderThatWasNotGrantedDoesNotOpen) {
    EXPECT_FALSE(this->world.scopes().start(this->folder));
    EXPECT_FALSE(this->world.isOpen(this->folder));
}

TYPED_TEST_P(AccessScopesContract, AGrantedFolderIsOpenFromStartToStop) {
    this->world.grant(this->folder);
    EXPECT_FALSE(this->world.isOpen(this->folder));
    EXPECT_TRUE(this->world.scopes().start(this->folder));
    EXPECT_TRUE(this->world.isOpen(this->folder));
    this->world.scopes().stop(this->folder);
    EXPECT_FALSE(this->world.isOpen(this->folder));
}

TYPED_TEST_P(AccessScopesContract, AGrantIsForOneFolder) {
    this->world.grant(this->folder);
    EXPECT_FALSE(this->world.scopes().start(FileUrl("/home/u")));
    EXPECT_FALSE(this->world.scopes().start(FileUrl("/home/u/Projects/a")));
    EXPECT_FALSE(this->world.scopes().start(FileUrl("/home/u/Projects 2")));
}

TYPED_TEST_P(AccessScopesContract, EveryStartIsOwedItsOwnStop) {
    this->world.grant(this->folder);
    ASSERT_TRUE(this->world.scopes().start(this->folder));
    ASSERT_TRUE(this->world.scopes().start(this->folder));
    this->world.scopes().stop(this->folder);
    EXPECT_TRUE(this->world.isOpen(this->folder));
    this->world.scopes().stop(this->folder);
    EXPECT_FALSE(this->world.isOpen(this->folder));
}

TYPED_TEST_P(AccessScopesContract, AStopThatIsNotOwedTakesNothingFromALaterStart) {
    this->world.grant(this->folder);
    this->world.scopes().stop(this->folder);
    ASSERT_TRUE(this->world.scopes().start(this->folder));
    EXPECT_TRUE(this->world.isOpen(this->folder));
}

TYPED_TEST_P(AccessScopesContract, SpellingsOfOnePathAreOneFolder) {
    this->world.grant(FileUrl("/home/u/x/../Projects"));
    EXPECT_TRUE(this->world.scopes().start(FileUrl("/home//u/Projects/")));
    this->world.scopes().stop(FileUrl("/home/u/./Projects"));
    EXPECT_FALSE(this->world.isOpen(this->folder));
}

TYPED_TEST_P(AccessScopesContract, AScopeValueClosesWhatItOpened) {
    this->world.grant(this->folder);
    {
        const AccessScope scope(this->world.scopes(), this->folder);
        EXPECT_TRUE(this->world.isOpen(this->folder));
    }
    EXPECT_FALSE(this->world.isOpen(this->folder));
}

REGISTER_TYPED_TEST_SUITE_P(AccessScopesContract, AFolderThatWasNotGrantedDoesNotOpen,
                            AGrantedFolderIsOpenFromStartToStop, AGrantIsForOneFolder,
                            EveryStartIsOwedItsOwnStop,
                            AStopThatIsNotOwedTakesNothingFromALaterStart,
                            SpellingsOfOnePathAreOneFolder, AScopeValueClosesWhatItOpened);

} // namespace blankwell
