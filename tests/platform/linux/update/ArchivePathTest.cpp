#include "platform/linux/update/ArchivePath.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(ArchivePathTest, PathsBecomePlain) {
    EXPECT_EQ(plainArchivePath("a.app/b"), "a.app/b");
    EXPECT_EQ(plainArchivePath("./a.app//./b/"), "a.app/b");
    EXPECT_EQ(plainArchivePath("a/..b/c.."), "a/..b/c..");
}

TEST(ArchivePathTest, PathsThatLeaveAreNone) {
    for (const auto* path : {"", ".", "./", "/", "/etc/passwd", "..", "../a", "a/../b", "a/.."}) {
        EXPECT_EQ(plainArchivePath(path), std::nullopt) << path;
    }
}

TEST(ArchivePathTest, PathsHaveBounds) {
    std::string deep = "a";
    for (int i = 1; i < 32; ++i) {
        deep += "/a";
    }
    EXPECT_EQ(plainArchivePath(deep), deep);
    EXPECT_EQ(plainArchivePath(deep + "/a"), std::nullopt);
    EXPECT_TRUE(plainArchivePath(std::string(255, 'a')));
    EXPECT_EQ(plainArchivePath(std::string(256, 'a')), std::nullopt);
}

TEST(ArchivePathTest, LinksMayClimbAsFarAsTheBundle) {
    EXPECT_TRUE(leadsInside("b.app/link", "Contents"));
    EXPECT_TRUE(leadsInside("b.app/Contents/link", "../Other/./file"));
    EXPECT_TRUE(leadsInside("b.app/Contents/Linux/link", "../../a"));
    EXPECT_FALSE(leadsInside("b.app/link", ".."));
    EXPECT_FALSE(leadsInside("b.app/link", "../b.app"));
    EXPECT_FALSE(leadsInside("b.app/Contents/link", "../../a"));
}

TEST(ArchivePathTest, LinksThatClimbAfterOtherLinksAreRefused) {
    EXPECT_FALSE(leadsInside("b.app/Contents/link", "a/.."));
    EXPECT_FALSE(leadsInside("b.app/Contents/link", "../a/../b"));
}

TEST(ArchivePathTest, LinksAreRelative) {
    EXPECT_FALSE(leadsInside("b.app/link", "/etc/passwd"));
    EXPECT_FALSE(leadsInside("b.app/link", ""));
}

} // namespace
} // namespace blankwell
