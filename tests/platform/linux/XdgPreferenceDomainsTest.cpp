#include "platform/linux/XdgPreferenceDomains.h"

#include "platform/Identifiers.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>

namespace blankwell {
namespace {

TEST(PreferencesDirectory, IsTheConfigurationHomeOrStandsInTheHome) {
    EXPECT_EQ(preferencesDirectory("/etc/user", "/home/u"), "/etc/user");
    EXPECT_EQ(preferencesDirectory(std::nullopt, "/home/u"), "/home/u/.config");
}

TEST(PreferencesDirectory, AConfigurationHomeThatIsNoAbsolutePathIsIgnored) {
    for (const auto* value : {"", "config", "./config", "~/config"}) {
        EXPECT_EQ(preferencesDirectory(value, "/home/u"), "/home/u/.config") << value;
    }
}

struct XdgPreferenceDomainsTest : testing::Test {
    TemporaryFolder folder;
    std::string directory = folder.url().path() + "/config";
    XdgPreferenceDomains domains{directory, bundleIdentifier};
};

TEST_F(XdgPreferenceDomainsTest, ADomainIsAFileOfItsName) {
    auto* const suite = domains.suite(appGroupIdentifier);
    ASSERT_NE(suite, nullptr);
    ASSERT_TRUE(suite->set("k", "group"));
    ASSERT_TRUE(domains.standard().set("k", "own"));
    EXPECT_EQ(PlistDomain(directory, appGroupIdentifier).value("k"), PropertyValue("group"));
    EXPECT_EQ(PlistDomain(directory, bundleIdentifier).value("k"), PropertyValue("own"));
    EXPECT_TRUE(std::filesystem::exists(directory + "/app.blankwell.BlankwellPlus.plist"));
}

TEST_F(XdgPreferenceDomainsTest, OpeningTouchesNothing) {
    EXPECT_NE(domains.suite("a"), nullptr);
    EXPECT_EQ(domains.standard().value("k"), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(directory));
}

TEST_F(XdgPreferenceDomainsTest, ADomainIsOpenedOnceAndStays) {
    auto* const suite = domains.suite("a");
    for (const auto* name : {"b", "c", "d", "e", "f", "g"}) {
        EXPECT_NE(domains.suite(name), suite);
    }
    EXPECT_EQ(domains.suite("a"), suite);
}

TEST_F(XdgPreferenceDomainsTest, NamesThatCanNameNoFileAreRefused) {
    using namespace std::string_literals;
    for (const auto& name : {""s, "."s, ".."s, "a/b"s, "/"s, "a\0b"s, std::string(NAME_MAX, 'a')}) {
        EXPECT_EQ(domains.suite(name), nullptr) << name;
    }
}

TEST_F(XdgPreferenceDomainsTest, TheApplicationsOwnDomainIsNoSuite) {
    EXPECT_EQ(domains.suite(bundleIdentifier), nullptr);
    EXPECT_EQ(&sharedDefaults(domains), domains.suite(appGroupIdentifier));
}

TEST_F(XdgPreferenceDomainsTest, TheLongestNameCanBeWrittenAndKeptAside) {
    std::string name(NAME_MAX, 'a');
    while (domains.suite(name) == nullptr) {
        name.pop_back();
    }
    EXPECT_GT(name.size(), 200U);
    const auto file = folder.addFile("config/" + name + ".plist", "damaged");
    ASSERT_TRUE(domains.suite(name)->set("k", true));
    EXPECT_TRUE(std::filesystem::exists(file.path() + ".damaged-1"));
}

} // namespace
} // namespace blankwell
