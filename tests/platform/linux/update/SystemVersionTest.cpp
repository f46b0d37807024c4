#include "platform/linux/update/SystemVersion.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(SystemVersionTest, TheSystemHasAVersion) {
    EXPECT_FALSE(runningSystemVersion().empty());
}

} // namespace
} // namespace blankwell
