#pragma once

#include "base/FileUrl.h"
#include "platform/FrontFolder.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace blankwell {

/// What every `FrontFolder` does. `World` has `front()`, the port under test, `folder(name)`, which
/// makes a folder, and `showNothing()`, `show(folder)` and `showTrash()`, which each bring the file
/// manager there before they return.
template <typename World>
struct FrontFolderContract : testing::Test {
    std::optional<std::string> path() { return world.front().path(); }

    World world;
};

TYPED_TEST_SUITE_P(FrontFolderContract);

TYPED_TEST_P(FrontFolderContract, WithoutAWindowThePathIsBlank) {
    this->world.showNothing();
    EXPECT_EQ(this->path(), "");
}

TYPED_TEST_P(FrontFolderContract, ThePathIsThatOfTheFolderInFront) {
    const auto folder = this->world.folder("front [1] #é");
    this->world.show(folder);
    EXPECT_EQ(this->path(), folder.path());
    EXPECT_EQ(this->path(), folder.path());
}

TYPED_TEST_P(FrontFolderContract, APlaceThatIsNoFolderHasNoPath) {
    this->world.showTrash();
    EXPECT_EQ(this->path(), std::nullopt);
}

TYPED_TEST_P(FrontFolderContract, EachAnswerIsOfItsTime) {
    const auto first = this->world.folder("first");
    const auto second = this->world.folder("second");
    this->world.show(first);
    EXPECT_EQ(this->path(), first.path());
    this->world.show(second);
    EXPECT_EQ(this->path(), second.path());
    this->world.showNothing();
    EXPECT_EQ(this->path(), "");
}

REGISTER_TYPED_TEST_SUITE_P(FrontFolderContract, WithoutAWindowThePathIsBlank,
                            ThePathIsThatOfTheFolderInFront, APlaceThatIsNoFolderHasNoPath,
                            EachAnswerIsOfItsTime);

} // namespace blankwell
