#include "base/Quoting.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(QuotingTest, AWordOfADesktopEntryIsEscapedTwice) {
    const auto value = [](std::string_view word) {
        return desktopEntryValue(desktopEntryWord(word));
    };
    EXPECT_EQ(value("/a b"), R"("/a b")");
    EXPECT_EQ(value(R"(/"`$\)"), R"("/\\"\\`\\$\\\\")");
    EXPECT_EQ(value("/a\nb\tc\r"), R"("/a\nb\tc\r")");
    EXPECT_EQ(value("/it's é"), R"("/it's é")");
}

TEST(QuotingTest, ABlankInFrontOfAValueCounts) {
    EXPECT_EQ(desktopEntryValue(" a "), R"(\sa )");
}

TEST(QuotingTest, APercentSignIsNoFieldCode) {
    EXPECT_EQ(withoutFieldCodes("/100% %f"), "/100%% %%f");
}

TEST(QuotingTest, AShellTakesAnyWordAsItIs) {
    EXPECT_EQ(shellWord("/a b\n$x"), "'/a b\n$x'");
    EXPECT_EQ(shellWord("it's"), R"('it'\''s')");
    EXPECT_EQ(shellWord(""), "''");
}

TEST(QuotingTest, PythonTakesAnyBytes) {
    EXPECT_EQ(pythonBytes("/a b'"), R"(b"/a b'")");
    EXPECT_EQ(pythonBytes("\"\\\n\xff"), R"(b"\x22\x5c\x0a\xff")");
}

} // namespace
} // namespace blankwell
