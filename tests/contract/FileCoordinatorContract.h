#pragma once

#include "platform/FileCoordinator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace blankwell {

/// What every `FileCoordinator` does when nothing stands in the way.
template <typename Coordinator>
struct FileCoordinatorContract : testing::Test {
    Coordinator coordinator;
};

TYPED_TEST_SUITE_P(FileCoordinatorContract);

TYPED_TEST_P(FileCoordinatorContract, TheAccessorIsCalledOnceWithTheUrlBeforeTheCallReturns) {
    const FileUrl url("/home/u/Untitled.txt");
    std::vector<FileUrl> written;
    const auto error = this->coordinator.coordinateReplacing(
        url, [&](const FileUrl& target) { written.push_back(target); });

    EXPECT_EQ(error, std::nullopt);
    EXPECT_THAT(written, testing::ElementsAre(url));
}

REGISTER_TYPED_TEST_SUITE_P(FileCoordinatorContract,
                            TheAccessorIsCalledOnceWithTheUrlBeforeTheCallReturns);

} // namespace blankwell
