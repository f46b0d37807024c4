#include "platform/linux/NoApplication.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(NoApplicationTest, IsNeverInFront) {
    NoApplication application;
    application.activate();
    application.closeWindows("Blankwell+");
    EXPECT_FALSE(application.isActive());
}

} // namespace
} // namespace blankwell
