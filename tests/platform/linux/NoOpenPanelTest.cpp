#include "platform/linux/NoOpenPanel.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(NoOpenPanelTest, IsUnavailableAndChoosesNothing) {
    const auto result = NoOpenPanel().runModal({.directory = FileUrl("/")});
    EXPECT_EQ(result.response, OpenPanelResult::Response::unavailable);
    EXPECT_TRUE(result.urls.empty());
}

} // namespace
} // namespace blankwell
