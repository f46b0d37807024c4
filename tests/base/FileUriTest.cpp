#include "base/FileUri.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

struct Spelling {
    std::string path;
    std::string uri;
};

struct FileUriTest : testing::TestWithParam<Spelling> {};

TEST_P(FileUriTest, IsSpelledAsQtSpellsIt) {
    EXPECT_EQ(fileUri(FileUrl(GetParam().path)), GetParam().uri);
}

TEST_P(FileUriTest, ReadingAUriGivesThePlaceItWasMadeOf) {
    EXPECT_EQ(fileOfUri(GetParam().uri), FileUrl(GetParam().path));
}

INSTANTIATE_TEST_SUITE_P(
    Spellings, FileUriTest,
    testing::Values(Spelling{"/", "file:///"}, //
                    Spelling{"/a/b.txt", "file:///a/b.txt"}, Spelling{"/AZaz09", "file:///AZaz09"},
                    Spelling{"/-._~!$&'()*+,:;=@[]", "file:///-._~!$&'()*+,:;=@[]"},
                    Spelling{"/ \"#%<>?", "file:///%20%22%23%25%3C%3E%3F"},
                    Spelling{R"(/\^`{|})", "file:///%5C%5E%60%7B%7C%7D"},
                    Spelling{"/\x01\n\x7F", "file:///%01%0A%7F"},
                    Spelling{"/é€😀", "file:///%C3%A9%E2%82%AC%F0%9F%98%80"},
                    Spelling{"/not\xFFutf8", "file:///not%FFutf8"},
                    Spelling{"/100%41.md", "file:///100%2541.md"}));

struct NoFileUriTest : testing::TestWithParam<std::string> {};

TEST_P(NoFileUriTest, NamesNoPlace) {
    EXPECT_EQ(fileOfUri(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Uris, NoFileUriTest,
                         testing::Values("", "/a", "trash:///", "recent:///",
                                         "x-nautilus-search://1/", "sftp://host/a",
                                         "file:", "file://", "file://host/a", "file:///a?b",
                                         "file:///a#b", "file:///a%", "file:///a%0", "file:///a%zz",
                                         "file:///a%00b"));

TEST(FileOfUriTest, ATrailingSlashAndSmallHexadecimalDigitsAreTheSamePlace) {
    EXPECT_EQ(fileOfUri("file:///a/%c3%a9/"), FileUrl("/a/é"));
}

} // namespace
} // namespace blankwell
