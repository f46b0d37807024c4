#include "app/FinderRequest.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(FinderRequestTest, NamesTheTypeAndTheDirectory) {
    EXPECT_EQ(parseFinderRequest("blankwellplus://create?type=md&directory=/Users/u/Projects"),
              (FinderRequest{"md", "/Users/u/Projects"}));
    EXPECT_EQ(parseFinderRequest("blankwellplus://create/?x=1&directory=%2Fa%20b&type=exe#end"),
              (FinderRequest{"exe", "/a b"}));
}

TEST(FinderRequestTest, TheDirectoryIsPercentDecoded) {
    EXPECT_EQ(parseFinderRequest("blankwellplus://create?type=md&directory="
                                 "/a%20%22b%27%25%23%3F%26%3D%0A%C3%A9+c"),
              (FinderRequest{"md", "/a \"b'%#?&=\né+c"}));
}

TEST(FinderRequestTest, TheFirstItemOfANameCounts) {
    EXPECT_EQ(
        parseFinderRequest("blankwellplus://create?type=md&type=txt&directory=/a&directory=/b"),
        (FinderRequest{"md", "/a"}));
    EXPECT_FALSE(parseFinderRequest("blankwellplus://create?type&type=txt&directory=/a"));
}

TEST(FinderRequestTest, SchemeAndHostAreExact) {
    for (const auto* url : {
             "Blankwellplus://create?type=md&directory=/a",
             "blankwellplus://Create?type=md&directory=/a",
             "blankwellplus://open?type=md&directory=/a",
             "blankwellplus://?type=md&directory=/a",
             "blankwellplus:create?type=md&directory=/a",
             "blankwellplus:/create?type=md&directory=/a",
             "http://create?type=md&directory=/a",
             "blankwellplus",
             "",
         }) {
        EXPECT_FALSE(parseFinderRequest(url)) << url;
    }
}

TEST(FinderRequestTest, BothItemsAreNeededWithAValue) {
    for (const auto* query : {"", "type=md", "directory=/a", "type&directory=/a",
                              "type=md&directory", "type=&directory=/a", "type=md&directory=",
                              "Type=md&directory=/a", "type=md&directory=%FF"}) {
        EXPECT_FALSE(parseFinderRequest("blankwellplus://create?" + std::string(query))) << query;
    }
    EXPECT_FALSE(parseFinderRequest("blankwellplus://create"));
}

TEST(FinderRequestTest, TheDirectoryIsAnAbsolutePathThatCanBeOne) {
    for (const auto* directory : {"a", "./a", "~/a", "%00/a", "/a%00b", "file:///a"}) {
        EXPECT_FALSE(parseFinderRequest("blankwellplus://create?type=md&directory=" +
                                        std::string(directory)))
            << directory;
    }
}

} // namespace
} // namespace blankwell
