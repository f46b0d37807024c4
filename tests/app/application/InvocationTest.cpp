#include "app/application/Invocation.h"

#include <gtest/gtest.h>

namespace blankwell::application {
namespace {

std::expected<Invocation, std::string> parsed(std::initializer_list<std::string_view> arguments) {
    return parseArguments({arguments.begin(), arguments.end()});
}

TEST(InvocationTest, WithoutArgumentsItRunsWithItsWindow) {
    EXPECT_EQ(parsed({}), Invocation{});
}

TEST(InvocationTest, UrlsAreKeptAsTheyAreInTheirOrder) {
    EXPECT_EQ(parsed({"blankwellplus://create?type=md", "a b"}),
              (Invocation{.urls = {"blankwellplus://create?type=md", "a b"}}));
}

TEST(InvocationTest, OptionsSayHowItRuns) {
    EXPECT_EQ(parsed({"--background"}), Invocation{.inBackground = true});
    EXPECT_EQ(parsed({"--action=create-md"}), Invocation{.action = "create-md"});
    EXPECT_EQ(parsed({"--help"}), Invocation{.purpose = Invocation::Purpose::showHelp});
    EXPECT_EQ(parsed({"--version"}), Invocation{.purpose = Invocation::Purpose::showVersion});
}

TEST(InvocationTest, AnUnknownOptionIsAnError) {
    EXPECT_EQ(parsed({"--backgrounds"}), std::unexpected("unknown option '--backgrounds'"));
}

} // namespace
} // namespace blankwell::application
