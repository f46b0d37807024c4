#include "platform/FinderScript.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(FinderScriptTest, AsksFinderInThreeLines) {
    EXPECT_EQ(finderDeletionScript("/Applications/Blankwell+.app"),
              "tell application \"Finder\"\n"
              "    delete POSIX file \"/Applications/Blankwell+.app\"\n"
              "end tell");
}

TEST(FinderScriptTest, BackslashesAndQuotesInThePathAreEscaped) {
    EXPECT_EQ(finderDeletionScript(R"(/a "b"\c\"d.app)"),
              "tell application \"Finder\"\n"
              R"(    delete POSIX file "/a \"b\"\\c\\\"d.app")"
              "\nend tell");
}

} // namespace
} // namespace blankwell
