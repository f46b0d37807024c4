#include "platform/linux/LinuxBundleStore.h"

#include "contract/BundleStoreContract.h"
#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace blankwell {
namespace {

namespace fs = std::filesystem;

constexpr auto info = R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict>
<key>CFBundleIdentifier</key><string>app.blankwell.BlankwellPlus</string>
</dict></plist>
)";

class LinuxBundleStoreWorld {
public:
    BundleStore& store() { return store_; }

    FileUrl at(const std::string& name) const { return folder_.at(name); }

    static void addBundle(const FileUrl& url) {
        addFile(url.appending("Contents/Info.plist"), info);
        addFile(url.appending("Contents/Linux/blankwell"), "program");
    }

    static void addStranger(const FileUrl& url) { addFile(url.appending("mine"), "mine"); }

    static void move(const FileUrl& from, const FileUrl& to) {
        fs::create_directories(to.deletingLastPathComponent().path());
        fs::rename(from.path(), to.path());
    }

private:
    static void addFile(const FileUrl& url, std::string_view contents) {
        fs::create_directories(url.deletingLastPathComponent().path());
        std::ofstream(url.path()) << contents;
    }

    TemporaryFolder folder_;
    LinuxBundleStore store_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, BundleStoreContract, LinuxBundleStoreWorld);

struct LinuxBundleStoreTest : testing::Test {
    FileUrl addBundle(const std::string& name, std::string_view program) const {
        folder.addFile(name + "/Contents/Info.plist", info);
        const auto file = folder.addFile(name + "/Contents/Linux/blankwell", program);
        fs::permissions(file.path(), fs::perms(0755));
        return folder.at(name);
    }

    TemporaryFolder folder;
    LinuxBundleStore store;
    FileUrl bundle = addBundle("from/B.app", "new");
};

TEST_F(LinuxBundleStoreTest, KnowsABundleOfThisApplication) {
    EXPECT_TRUE(store.stands(bundle));
    EXPECT_FALSE(store.stands(folder.at("from")));
    folder.addFile("other.app/Contents/Info.plist", "<plist><dict/></plist>");
    EXPECT_FALSE(store.stands(folder.at("other.app")));
}

TEST_F(LinuxBundleStoreTest, CopiesIntoAFolderThatItMakes) {
    const auto copy = store.copyInto(folder.at("to/a\n'b"), bundle);
    ASSERT_TRUE(copy);
    EXPECT_EQ(*copy, folder.at("to/a\n'b/B.app"));
    EXPECT_EQ(folder.contents("to/a\n'b/B.app/Contents/Linux/blankwell"), "new");
    EXPECT_EQ(fs::status(copy->path() + "/Contents/Linux/blankwell").permissions(),
              fs::perms(0755));
    EXPECT_TRUE(store.stands(bundle));
}

TEST_F(LinuxBundleStoreTest, AnOlderBundleIsExchangedAndNothingElseIsLeft) {
    addBundle("to/B.app", "old");
    folder.addFile("to/B.app/Contents/Linux/only-old");
    ASSERT_TRUE(store.copyInto(folder.at("to"), bundle));
    EXPECT_EQ(folder.contents("to/B.app/Contents/Linux/blankwell"), "new");
    EXPECT_FALSE(fs::exists(folder.at("to/B.app/Contents/Linux/only-old").path()));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.at("to").path()), {}), 1);
}

TEST_F(LinuxBundleStoreTest, ABundleThatStandsThereIsLeftAlone) {
    EXPECT_EQ(store.copyInto(folder.at("from"), bundle), bundle);
    EXPECT_EQ(folder.contents("from/B.app/Contents/Linux/blankwell"), "new");
}

TEST_F(LinuxBundleStoreTest, WhatIsNoBundleOfOursIsNotReplaced) {
    folder.addFile("to/B.app/mine", "mine");
    EXPECT_FALSE(store.copyInto(folder.at("to"), bundle));
    EXPECT_EQ(folder.contents("to/B.app/mine"), "mine");
}

TEST_F(LinuxBundleStoreTest, ABundleIsNotCopiedIntoItself) {
    EXPECT_FALSE(store.copyInto(bundle.appending("Contents"), bundle));
    EXPECT_FALSE(fs::exists(bundle.appending("Contents/B.app").path()));
}

TEST_F(LinuxBundleStoreTest, AFailureLeavesTheOlderBundle) {
    addBundle("to/B.app", "old");
    for (const auto* name : {"", "from", "to"}) {
        fs::permissions(folder.at(name).path(), fs::perms(0755));
    }
    withoutPrivilege([&] {
        const auto copy = store.copyInto(folder.at("to"), bundle);
        ASSERT_FALSE(copy);
        EXPECT_THAT(copy.error().description, testing::EndsWith("Permission denied."));
    });
    EXPECT_EQ(folder.contents("to/B.app/Contents/Linux/blankwell"), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.at("to").path()), {}), 1);
}

} // namespace
} // namespace blankwell
