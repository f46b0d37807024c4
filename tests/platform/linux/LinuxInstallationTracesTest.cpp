#include "platform/linux/LinuxInstallationTraces.h"

#include "contract/InstallationTracesContract.h"
#include "platform/linux/PlistDomain.h"
#include "support/ChildProcess.h"
#include "support/PrivateMounts.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class LinuxInstallationTracesWorld {
public:
    InstallationTraces& traces() { return traces_; }

    void addDomain(const std::string& name) {
        EXPECT_TRUE(PlistDomain(config_.path(), name).set("key", true));
    }

    void addContainer(const std::string& group) const {
        folder_.addFile("data/" + group + "/folder/file");
    }

    void registerApplication() { isRegistered_ = true; }

    bool hasDomain(const std::string& name) const {
        return PlistDomain(config_.path(), name).value("key").has_value();
    }

    bool hasContainer(const std::string& group) const {
        return std::filesystem::exists(folder_.at("data/" + group).path());
    }

    bool isRegistered() const { return isRegistered_; }

private:
    bool isRegistered_ = false;
    TemporaryFolder folder_;
    FileUrl config_ = folder_.addFolder("config");
    LinuxInstallationTraces traces_{
        config_, folder_.addFolder("data"), {[this] { isRegistered_ = false; }}};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, InstallationTracesContract, LinuxInstallationTracesWorld);

struct LinuxInstallationTracesTest : testing::Test {
    /// What stands in the folder `name`, at any depth.
    std::vector<std::string> itemsIn(const std::string& name) const {
        std::vector<std::string> items;
        const auto root = folder.at(name).path();
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
            items.push_back(std::filesystem::relative(entry.path().parent_path(), root) /
                            entry.path().filename());
        }
        std::ranges::sort(items);
        return items;
    }

    void link(const std::string& from, const FileUrl& to) const {
        std::filesystem::create_symlink(to.path(), folder.at(from).path());
    }

    TemporaryFolder folder;
    FileUrl preferences = folder.addFolder("config");
    FileUrl dataHome = folder.addFolder("data");
    LinuxInstallationTraces traces{preferences, dataHome, {}};
};

TEST_F(LinuxInstallationTracesTest, ADomainGoesAsItWasStored) {
    PlistDomain domain(preferences.path(), "app.d");
    ASSERT_TRUE(domain.set("k", true));
    folder.addFile("config/app.d.plist", "damaged");
    ASSERT_TRUE(domain.set("k", true));
    folder.addFile("config/app.d.plist", "damaged again");
    ASSERT_TRUE(domain.set("k", true));
    folder.addFile("config/app.d.plist.tmp", "cut off");
    ASSERT_EQ(itemsIn("config").size(), 5U);

    traces.removePersistentDomain("app.d");

    EXPECT_THAT(itemsIn("config"), IsEmpty());
}

TEST_F(LinuxInstallationTracesTest, OtherFilesBesideADomainStay) {
    const std::vector<std::string> others{"./app.d.plist.damaged-",
                                          "./app.d.plist.damaged-1x",
                                          "./app.d.plist.old",
                                          "./app.d2.plist",
                                          "./app.plist",
                                          "./notapp.d.plist"};
    for (const auto& other : others) {
        folder.addFile("config/" + other);
    }
    folder.addFile("config/app.d.plist");

    traces.removePersistentDomain("app.d");

    EXPECT_THAT(itemsIn("config"), testing::UnorderedElementsAreArray(others));
}

TEST_F(LinuxInstallationTracesTest, ADomainThatIsALinkLeavesWhatItLeadsTo) {
    link("config/app.d.plist", folder.addFile("elsewhere/kept.plist", "kept"));

    traces.removePersistentDomain("app.d");

    EXPECT_THAT(itemsIn("config"), IsEmpty());
    EXPECT_EQ(folder.contents("elsewhere/kept.plist"), "kept");
}

TEST_F(LinuxInstallationTracesTest, AFolderInADomainsPlaceDoesNotKeepTheRest) {
    folder.addFile("config/app.d.plist/inside");
    folder.addFile("config/app.d.plist.lock");

    traces.removePersistentDomain("app.d");

    EXPECT_THAT(itemsIn("config"), ElementsAre("./app.d.plist", "app.d.plist/inside"));
}

TEST_F(LinuxInstallationTracesTest, AContainerGoesWithEverythingInIt) {
    folder.addFile("data/group/a/b/c/file");
    folder.addFile("data/group/a/new\nline \xFF");
    folder.addFolder("data/group/empty");
    folder.addFile("data/other/file");

    traces.removeGroupContainer("group");

    EXPECT_THAT(itemsIn("data"), ElementsAre("./other", "other/file"));
}

TEST_F(LinuxInstallationTracesTest, LinksInAContainerAreNotFollowed) {
    folder.addFile("elsewhere/kept");
    folder.addFolder("data/group/a");
    link("data/group/folder", folder.at("elsewhere"));
    link("data/group/a/file", folder.at("elsewhere/kept"));
    link("data/group/a/nowhere", folder.at("missing"));

    traces.removeGroupContainer("group");

    EXPECT_THAT(itemsIn("data"), IsEmpty());
    EXPECT_THAT(itemsIn("elsewhere"), ElementsAre("./kept"));
}

TEST_F(LinuxInstallationTracesTest, AContainerThatIsALinkLeavesWhatItLeadsTo) {
    folder.addFile("elsewhere/kept");
    link("data/group", folder.at("elsewhere"));

    traces.removeGroupContainer("group");

    EXPECT_THAT(itemsIn("data"), IsEmpty());
    EXPECT_THAT(itemsIn("elsewhere"), ElementsAre("./kept"));
}

TEST_F(LinuxInstallationTracesTest, WhatIsMountedInAContainerStays) {
    folder.addFile("elsewhere/kept");
    const auto mounted = folder.addFolder("data/group/mounted");
    folder.addFile("data/group/file");

    withPrivateMounts([&] {
        bindMount(folder.at("elsewhere").path(), mounted.path());
        traces.removeGroupContainer("group");
    });

    EXPECT_THAT(itemsIn("elsewhere"), ElementsAre("./kept"));
    EXPECT_THAT(itemsIn("data"), UnorderedElementsAre("./group", "group/mounted"));
}

TEST_F(LinuxInstallationTracesTest, ANameThatLeadsElsewhereNamesNothing) {
    folder.addFile("data/inside/file");
    folder.addFile("outside/file");
    folder.addFile("outside.plist");
    using namespace std::string_literals;
    for (const std::string& name : {""s, "."s, ".."s, "../outside"s, "inside/file"s, "inside\0"s}) {
        traces.removeGroupContainer(name);
        traces.removePersistentDomain(name);
    }
    EXPECT_THAT(itemsIn("."),
                UnorderedElementsAre("./config", "./data", "data/inside", "data/inside/file",
                                     "./outside", "outside/file", "./outside.plist"));
}

TEST_F(LinuxInstallationTracesTest, WithoutTheFoldersNothingHappens) {
    LinuxInstallationTraces nowhere(folder.at("no"), folder.at("no"), {});
    nowhere.removePersistentDomain("app.d");
    nowhere.removeGroupContainer("group");
    EXPECT_THAT(itemsIn("."), UnorderedElementsAre("./config", "./data"));
}

TEST_F(LinuxInstallationTracesTest, WhatCannotBeRemovedDoesNotKeepTheRest) {
    using std::filesystem::perms;
    folder.addFile("data/group/a locked/kept");
    folder.addFile("data/group/free/file");
    folder.addFile("data/group/z/file");
    for (const auto* open : {"", "data", "data/group", "data/group/free", "data/group/z"}) {
        std::filesystem::permissions(folder.at(open).path(), perms::all);
    }

    withoutPrivilege([this] { traces.removeGroupContainer("group"); });

    EXPECT_THAT(itemsIn("data"),
                UnorderedElementsAre("./group", "group/a locked", "group/a locked/kept"));
}

TEST_F(LinuxInstallationTracesTest, RegistrationsAreUndoneInTheirOrder) {
    std::vector<int> undone;
    LinuxInstallationTraces registered(
        preferences, dataHome, {[&] { undone.push_back(1); }, [&] { undone.push_back(2); }});
    registered.removeRegistrations();
    EXPECT_THAT(undone, ElementsAre(1, 2));
}

} // namespace
} // namespace blankwell
