#pragma once

#include "platform/WellKnownFolders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace blankwell {

/// What every `WellKnownFolders` does for a user who has changed nothing. `Subject` has
/// `const WellKnownFolders& folders()`.
template <typename Subject>
struct WellKnownFoldersContract : testing::Test {
    Subject subject;
};

TYPED_TEST_SUITE_P(WellKnownFoldersContract);

TYPED_TEST_P(WellKnownFoldersContract, TheDesktopIsInTheGivenHome) {
    EXPECT_EQ(this->subject.folders().desktop(FileUrl("/no such home//./u")).path(),
              "/no such home/u/Desktop");
}

TYPED_TEST_P(WellKnownFoldersContract, VolumesAreLookedForInTheFixedFolderToo) {
    EXPECT_THAT(this->subject.folders().volumes(), testing::Contains(FileUrl("/Volumes")));
}

REGISTER_TYPED_TEST_SUITE_P(WellKnownFoldersContract, TheDesktopIsInTheGivenHome,
                            VolumesAreLookedForInTheFixedFolderToo);

} // namespace blankwell
