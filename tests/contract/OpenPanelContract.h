#pragma once

#include "platform/OpenPanel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace blankwell {

/// What every `OpenPanel` does that has somebody to ask. `World` has a `panel()` before a user who
/// does next what was asked for last: `willChoose(folders)` some of `folders()`, which stand beside
/// each other, or `willCancel()`.
template <typename World>
struct OpenPanelContract : testing::Test {
    using Response = OpenPanelResult::Response;

    OpenPanelResult ask() {
        return world.panel().runModal({
            .title = "Allow Folder",
            .message = "Choose a folder.",
            .prompt = "Allow",
            .allowsMultipleSelection = true,
            .directory = world.folders().front().deletingLastPathComponent(),
        });
    }

    World world;
};

TYPED_TEST_SUITE_P(OpenPanelContract);

TYPED_TEST_P(OpenPanelContract, TheFolderThatTheUserConfirmsIsChosen) {
    const auto folder = this->world.folders().at(1);
    this->world.willChoose({folder});
    const auto result = this->ask();
    EXPECT_EQ(result.response, OpenPanelResult::Response::confirmed);
    EXPECT_THAT(result.urls, testing::ElementsAre(folder));
}

TYPED_TEST_P(OpenPanelContract, SeveralFoldersAreChosenTogether) {
    const auto folders = this->world.folders();
    this->world.willChoose({folders.at(0), folders.at(2)});
    const auto result = this->ask();
    EXPECT_EQ(result.response, OpenPanelResult::Response::confirmed);
    EXPECT_THAT(result.urls, testing::UnorderedElementsAre(folders.at(0), folders.at(2)));
}

TYPED_TEST_P(OpenPanelContract, CancellingChoosesNothing) {
    this->world.willCancel();
    const auto result = this->ask();
    EXPECT_EQ(result.response, OpenPanelResult::Response::cancelled);
    EXPECT_THAT(result.urls, testing::IsEmpty());
}

TYPED_TEST_P(OpenPanelContract, NothingOfACancelledPanelIsLeftForTheNext) {
    this->world.willCancel();
    EXPECT_THAT(this->ask().urls, testing::IsEmpty());
    const auto folder = this->world.folders().at(2);
    this->world.willChoose({folder});
    EXPECT_THAT(this->ask().urls, testing::ElementsAre(folder));
}

REGISTER_TYPED_TEST_SUITE_P(OpenPanelContract, TheFolderThatTheUserConfirmsIsChosen,
                            SeveralFoldersAreChosenTogether, CancellingChoosesNothing,
                            NothingOfACancelledPanelIsLeftForTheNext);

} // namespace blankwell
