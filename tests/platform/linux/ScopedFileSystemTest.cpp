#include "platform/linux/ScopedFileSystem.h"

#include "platform/linux/LinuxAccessScopes.h"
#include "platform/linux/LinuxBookmarks.h"
#include "platform/linux/ScratchFolder.h"
#include "support/FakeFileSystem.h"

#include <fmt/core.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace blankwell {
namespace {

/// Makes real files; what is only looked at is in memory.
class WritingFileSystem : public FakeFileSystem {
public:
    using FakeFileSystem::FakeFileSystem;

    std::expected<void, SystemError> writeNew(const FileUrl& url,
                                              std::span<const std::byte> bytes) override {
        std::ofstream file(url.path());
        file << textOf(bytes);
        return {};
    }

    std::expected<void, SystemError> copyNew(const FileUrl& source, const FileUrl& url) override {
        std::filesystem::copy_file(source.path(), url.path());
        return {};
    }
};

struct ScopedFileSystemTest : testing::Test {
    void open(const std::string& folder) {
        scopes.admit(FileUrl(folder));
        ASSERT_TRUE(scopes.start(FileUrl(folder)));
    }

    std::string write(const std::string& path) {
        return outcome(scoped.writeNew(FileUrl(path), bytesOf("new")));
    }

    std::string copy(const std::string& source, const std::string& path) {
        return outcome(scoped.copyNew(FileUrl(source), FileUrl(path)));
    }

    static std::string outcome(const std::expected<void, SystemError>& result) {
        return result ? "written"
                      : fmt::format("{} {}", result.error().code, result.error().description);
    }

    static bool exists(const std::string& path) {
        return std::filesystem::exists(std::filesystem::symlink_status(path));
    }

    ScratchFolder scratch{ScratchFolder::onDisk};
    EventLog events;
    WritingFileSystem files{events};
    LinuxAccessScopes scopes;
    ScopedFileSystem scoped{files, scopes};
};

const std::string refused = "513 Blankwell+ has no access to the folder ";

TEST_F(ScopedFileSystemTest, WritesInAnOpenFolderAndBelowIt) {
    open(scratch.makeFolder("a"));
    scratch.makeFolder("a/b/c");
    EXPECT_EQ(write(scratch.at("a/file")), "written");
    EXPECT_EQ(write(scratch.at("a/b/c/file")), "written");
    EXPECT_EQ(copy(scratch.at("a/file"), scratch.at("a/b/copy")), "written");
    EXPECT_TRUE(exists(scratch.at("a/file")));
    EXPECT_TRUE(exists(scratch.at("a/b/c/file")));
    EXPECT_TRUE(exists(scratch.at("a/b/copy")));
}

TEST_F(ScopedFileSystemTest, WritesNowhereElse) {
    open(scratch.makeFolder("a"));
    scratch.makeFolder("ab");
    scratch.makeFile("source");
    EXPECT_EQ(write(scratch.at("ab/file")), refused + "\"ab\".");
    EXPECT_EQ(copy(scratch.at("source"), scratch.at("ab/copy")), refused + "\"ab\".");
    EXPECT_EQ(write(scratch.at("file")).substr(0, 3), "513");
    EXPECT_FALSE(exists(scratch.at("ab/file")));
    EXPECT_FALSE(exists(scratch.at("ab/copy")));
    EXPECT_FALSE(exists(scratch.at("file")));
}

TEST_F(ScopedFileSystemTest, AnOpenFolderIsNotAccessToWhatHoldsIt) {
    open(scratch.at("a"));
    EXPECT_EQ(write(scratch.at("a")).substr(0, 3), "513");
    EXPECT_FALSE(exists(scratch.at("a")));
}

TEST_F(ScopedFileSystemTest, WritesOnlyWhileTheScopeIsOpen) {
    open(scratch.makeFolder("a"));
    scopes.stop(FileUrl(scratch.at("a")));
    EXPECT_EQ(write(scratch.at("a/file")), refused + "\"a\".");
    EXPECT_FALSE(exists(scratch.at("a/file")));
}

TEST_F(ScopedFileSystemTest, ALinkThatLeadsOutIsRefused) {
    open(scratch.makeFolder("a"));
    scratch.link("a/out", scratch.makeFolder("other"));
    scratch.makeFolder("other/deep");
    EXPECT_EQ(write(scratch.at("a/out/file")), refused + "\"out\".");
    EXPECT_EQ(write(scratch.at("a/out/deep/file")), refused + "\"deep\".");
    EXPECT_EQ(copy(scratch.makeFile("source"), scratch.at("a/out/file")), refused + "\"out\".");
    EXPECT_FALSE(exists(scratch.at("other/file")));
    EXPECT_FALSE(exists(scratch.at("other/deep/file")));
}

TEST_F(ScopedFileSystemTest, ALinkThatStaysInsideIsFollowed) {
    open(scratch.makeFolder("a"));
    scratch.link("a/in", scratch.makeFolder("a/b/c"));
    EXPECT_EQ(write(scratch.at("a/in/file")), "written");
    EXPECT_TRUE(exists(scratch.at("a/b/c/file")));
}

TEST_F(ScopedFileSystemTest, AGrantedFolderMayBeReachedThroughALink) {
    scratch.makeFolder("real/sub");
    scratch.link("link", scratch.at("real"));
    open(scratch.at("link"));
    EXPECT_EQ(write(scratch.at("link/file")), "written");
    EXPECT_EQ(write(scratch.at("link/sub/file")), "written");
    EXPECT_TRUE(exists(scratch.at("real/sub/file")));
    scratch.link("real/out", scratch.makeFolder("other"));
    EXPECT_EQ(write(scratch.at("link/out/file")), refused + "\"out\".");
}

TEST_F(ScopedFileSystemTest, ALinkFromOneGrantedFolderIntoAnotherIsNoWayAround) {
    open(scratch.makeFolder("a"));
    open(scratch.makeFolder("b"));
    scratch.link("a/to-b", scratch.at("b"));
    EXPECT_EQ(write(scratch.at("a/to-b/file")), refused + "\"to-b\".");
}

TEST_F(ScopedFileSystemTest, DotsAreTakenOutBeforeWriting) {
    open(scratch.makeFolder("a"));
    scratch.makeFolder("other/inner");
    scratch.link("a/out", scratch.at("other/inner"));
    EXPECT_EQ(write(scratch.at("a/out/../file")), "written");
    EXPECT_TRUE(exists(scratch.at("a/file")));
    EXPECT_FALSE(exists(scratch.at("other/file")));
    EXPECT_EQ(write(scratch.at("a/../file")).substr(0, 3), "513");
}

TEST_F(ScopedFileSystemTest, AMissingFolderBehindALinkIsSaidToBeMissing) {
    open(scratch.makeFolder("a"));
    scratch.link("a/dangling", scratch.at("none"));
    EXPECT_EQ(write(scratch.at("a/dangling/file")), "4 The folder \"dangling\" does not exist.");
}

TEST_F(ScopedFileSystemTest, LookingIsNotRestricted) {
    files.addFolder("/x");
    files.addFile("/x/file");
    files.displayNames[FileUrl("/x")] = "Shown";
    EXPECT_EQ(scoped.itemExists(FileUrl("/x/file")), true);
    EXPECT_TRUE(scoped.isDirectory(FileUrl("/x")));
    EXPECT_FALSE(scoped.isDirectory(FileUrl("/x/file")));
    EXPECT_EQ(scoped.displayName(FileUrl("/x")), "Shown");
    std::string names;
    EXPECT_TRUE(scoped.visitNames(FileUrl("/x"), [&](auto name) { names += name; }));
    EXPECT_EQ(names, "file");
}

TEST_F(ScopedFileSystemTest, ARenamedFoldersImpostorIsNotWrittenTo) {
    LinuxBookmarks bookmarks(scopes);
    const FileUrl granted(scratch.makeFolder("Projects"));
    const auto bookmark = bookmarks.create(granted).value();
    scratch.rename("Projects", "Work");
    scratch.makeFolder("Projects");
    const AccessScope scope(scopes, bookmarks.resolve(bookmark)->url);
    EXPECT_EQ(write(scratch.at("Projects/file")), refused + "\"Projects\".");
    EXPECT_FALSE(exists(scratch.at("Projects/file")));
    EXPECT_EQ(write(scratch.at("Work/file")), "written");
}

} // namespace
} // namespace blankwell
