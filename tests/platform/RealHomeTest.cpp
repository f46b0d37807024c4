#include "platform/RealHome.h"

#include "support/FakeSurroundings.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(RealHomeTest, IsTheHomeOfTheAccountRecordStandardized) {
    FakeAccount account;
    account.userRecord = AccountRecord{FileUrl("/Users//x/../u/")};
    const auto home = realHomeFolder(account);
    ASSERT_TRUE(home);
    EXPECT_EQ(home->path(), "/Users/u");
}

TEST(RealHomeTest, IsUnknownWithoutARecord) {
    FakeAccount account;
    account.userRecord.reset();
    EXPECT_EQ(realHomeFolder(account), std::nullopt);
}

TEST(RealHomeDeathTest, ARecordWithoutAHomeEndsTheProcess) {
    FakeAccount account;
    account.userRecord = AccountRecord{};
    EXPECT_DEATH((void)realHomeFolder(account), "names no home folder");
}

} // namespace
} // namespace blankwell
