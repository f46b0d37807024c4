#pragma once

#include "base/FileUrl.h"
#include "platform/Trash.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string_view>

namespace blankwell {

/// Names that are hard to hand on: in a URI, in a shell, in a text.
inline constexpr std::array<std::string_view, 8> namesToTrash = {
    "Blankwell+.app", "a b",      "100%41",     "q\"u'o`t$e\\s",
    "new\nline",      "#?&;[1]=", "é \xFF\xFE", "-rf"};

/// What every `Trash` does. `World` has `trash()`, the port under test, `add(name)`, which makes a
/// folder, `stands(url)`, which tells whether it is where it was made, and `settle()`, which lets
/// the desktop answer what it was asked.
template <typename World>
struct TrashContract : testing::Test {
    using Answer = std::expected<TrashLocation, SystemError>;

    /// The answer to `recycle`, which must not come before it is waited for.
    std::optional<Answer> recycled(const FileUrl& url) {
        std::optional<Answer> answer;
        int answers = 0;
        world.trash().recycle(url, [&](Answer given) {
            answer = std::move(given);
            ++answers;
        });
        EXPECT_EQ(answers, 0);
        world.settle();
        EXPECT_EQ(answers, 1);
        return answer;
    }

    World world;
};

TYPED_TEST_SUITE_P(TrashContract);

TYPED_TEST_P(TrashContract, TheFileServicesTakeAnItemWhateverItsName) {
    for (const auto name : namesToTrash) {
        const auto item = this->world.add(name);
        ASSERT_TRUE(this->world.stands(item));
        const auto moved = this->world.trash().trashItem(item);
        EXPECT_TRUE(moved) << moved.error().description;
        EXPECT_FALSE(this->world.stands(item)) << name;
    }
}

TYPED_TEST_P(TrashContract, TheDesktopTakesAnItemWhateverItsName) {
    for (const auto name : namesToTrash) {
        const auto item = this->world.add(name);
        ASSERT_TRUE(this->world.stands(item));
        const auto moved = this->recycled(item);
        ASSERT_TRUE(moved);
        EXPECT_TRUE(*moved) << moved->error().description;
        EXPECT_FALSE(this->world.stands(item)) << name;
    }
}

TYPED_TEST_P(TrashContract, TheFileManagerTakesAnItemWhateverItsName) {
    for (const auto name : namesToTrash) {
        const auto item = this->world.add(name);
        ASSERT_TRUE(this->world.stands(item));
        EXPECT_TRUE(this->world.trash().deleteWithFileManager(item)) << name;
        EXPECT_FALSE(this->world.stands(item)) << name;
    }
}

TYPED_TEST_P(TrashContract, AnItemThatIsNotThereIsAFailureOfEachWay) {
    const auto item = this->world.add("gone");
    ASSERT_TRUE(this->world.trash().trashItem(item));

    const auto trashed = this->world.trash().trashItem(item);
    ASSERT_FALSE(trashed);
    EXPECT_TRUE(trashed.error().is(CocoaCode::fileNoSuchFile)) << trashed.error().description;
    const auto moved = this->recycled(item);
    ASSERT_TRUE(moved);
    ASSERT_FALSE(*moved);
    EXPECT_TRUE(moved->error().is(CocoaCode::fileNoSuchFile)) << moved->error().description;
    EXPECT_FALSE(this->world.trash().deleteWithFileManager(item));
}

TYPED_TEST_P(TrashContract, EachQuestionToTheDesktopHasItsAnswer) {
    const auto first = this->world.add("first");
    const auto second = this->world.add("second");
    int answers = 0;
    for (const auto& item : {first, second}) {
        this->world.trash().recycle(item, [&](const auto& moved) { answers += moved ? 1 : 0; });
    }
    this->world.settle();
    EXPECT_EQ(answers, 2);
    EXPECT_FALSE(this->world.stands(first));
    EXPECT_FALSE(this->world.stands(second));
}

REGISTER_TYPED_TEST_SUITE_P(TrashContract, TheFileServicesTakeAnItemWhateverItsName,
                            TheDesktopTakesAnItemWhateverItsName,
                            TheFileManagerTakesAnItemWhateverItsName,
                            AnItemThatIsNotThereIsAFailureOfEachWay,
                            EachQuestionToTheDesktopHasItsAnswer);

} // namespace blankwell
