#include "platform/linux/BookmarkOutcome.h"
#include "platform/linux/LinuxAccessScopes.h"
#include "platform/linux/LinuxBookmarks.h"
#include "platform/linux/ScratchFolder.h"
#include "support/ChildProcess.h"
#include "support/PrivateMounts.h"

#include <fmt/core.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <vector>

namespace blankwell {
namespace {

void run(const std::string& command) {
    if (std::system(command.c_str()) != 0) {
        throw std::runtime_error(command);
    }
}

/// Kinds of volumes that can be made here: a disk image needs loop devices, which some containers
/// do not have.
std::vector<std::string> kinds() {
    if (::access("/dev/loop-control", R_OK | W_OK) == 0) {
        return {"tmpfs", "ext4"};
    }
    std::fputs("no loop devices: volumes are tested on tmpfs only\n", stderr);
    return {"tmpfs"};
}

/// A volume comes and goes at `place`; it stays alive at `hidden` in between.
struct VolumesTest : testing::TestWithParam<std::string> {
    void mountVolume(const std::string& at) {
        if (GetParam() == "tmpfs") {
            mountTmpfs(at);
            return;
        }
        const auto image = fmt::format("{}/{}.image", scratch.path(), ++images);
        run("truncate -s 4M " + image + " && mkfs.ext4 -q " + image + " && mount -o loop " + image +
            " " + at);
    }

    void insert() {
        mountVolume(hidden);
        bindMount(hidden, place);
    }

    Bytes bookmarkOf(const std::string& folder) {
        return bookmarks.create(FileUrl(folder)).value();
    }

    Bytes bookmarkOfNew(const std::string& name) {
        return bookmarkOf(scratch.makeFolder("place/" + name));
    }

    std::string resolve(const Bytes& bookmark) { return outcome(bookmarks.resolve(bookmark)); }

    void expectError(const Bytes& bookmark, int code, std::string_view description) {
        const auto resolved = bookmarks.resolve(bookmark);
        ASSERT_FALSE(resolved) << resolved->url.path();
        EXPECT_EQ(resolved.error().code, code);
        EXPECT_EQ(resolved.error().description, description);
    }

    ScratchFolder scratch{ScratchFolder::inMemory};
    std::string place = scratch.makeFolder("place");
    std::string hidden = scratch.makeFolder("hidden");
    int images = 0;
    LinuxAccessScopes scopes;
    LinuxBookmarks bookmarks{scopes};
};

INSTANTIATE_TEST_SUITE_P(, VolumesTest, testing::ValuesIn(kinds()),
                         [](const auto& each) { return each.param; });

TEST_P(VolumesTest, AFolderComesBackWithItsVolume) {
    withPrivateMounts([&] {
        insert();
        const auto bookmark = bookmarkOfNew("Projects");
        unmount(place);
        expectError(bookmark, 256, "The volume that holds the folder \"Projects\" is not mounted.");
        bindMount(hidden, place);
        EXPECT_EQ(resolve(bookmark), place + "/Projects");
    });
}

TEST_P(VolumesTest, AFolderInTheEmptyMountPointIsNotTheVolumesFolder) {
    scratch.makeFolder("place/Projects");
    withPrivateMounts([&] {
        insert();
        const auto bookmark = bookmarkOfNew("Projects");
        unmount(place);
        EXPECT_EQ(resolve(bookmark), "error 256");
    });
}

TEST_P(VolumesTest, AMountPointThatIsGoneIsAnUnmountedVolume) {
    withPrivateMounts([&] {
        insert();
        const auto bookmark = bookmarkOfNew("Projects");
        unmount(place);
        scratch.remove("place");
        EXPECT_EQ(resolve(bookmark), "error 256");
    });
}

TEST_P(VolumesTest, AnotherVolumeAtThePlaceIsNotTheFoldersVolume) {
    withPrivateMounts([&] {
        insert();
        const auto bookmark = bookmarkOfNew("Projects");
        unmount(place);
        mountVolume(place);
        scratch.makeFolder("place/Projects");
        EXPECT_EQ(resolve(bookmark), "error 256");
    });
}

TEST_P(VolumesTest, AFolderRenamedOnItsVolumeIsFound) {
    withPrivateMounts([&] {
        insert();
        const auto bookmark = bookmarkOfNew("a/Projects");
        scratch.rename("place/a", "place/b");
        EXPECT_EQ(resolve(bookmark), stale(place + "/b/Projects"));
        becomeUnprivileged();
        EXPECT_EQ(resolve(bookmark), stale(place + "/b/Projects"));
    });
}

TEST_P(VolumesTest, AFolderDeletedOnItsVolumeIsGone) {
    withPrivateMounts([&] {
        insert();
        const auto bookmark = bookmarkOfNew("Projects");
        scratch.remove("place/Projects");
        EXPECT_EQ(resolve(bookmark), "error 4");
    });
}

TEST_P(VolumesTest, AFolderOnAReadOnlyVolumeIsRefused) {
    withPrivateMounts([&] {
        insert();
        const auto bookmark = bookmarkOfNew("Projects");
        constexpr auto readOnly = MS_REMOUNT | MS_BIND | MS_RDONLY;
        ASSERT_EQ(::mount(nullptr, place.c_str(), nullptr, readOnly, nullptr), 0);
        expectError(bookmark, 642, "The volume that holds the folder \"Projects\" is read-only.");
    });
}

TEST_P(VolumesTest, AVolumesOwnRootCanBeBookmarked) {
    withPrivateMounts([&] {
        insert();
        const auto bookmark = bookmarkOf(place);
        EXPECT_EQ(resolve(bookmark), place);
        unmount(place);
        EXPECT_EQ(resolve(bookmark), "error 256");
    });
}

TEST_P(VolumesTest, AnotherVolumesRootIsNotTheBookmarkedOne) {
    withPrivateMounts([&] {
        insert();
        const auto bookmark = bookmarkOf(place);
        unmount(place);
        mountVolume(place);
        EXPECT_EQ(resolve(bookmark), "error 256");
    });
}

TEST_P(VolumesTest, TheSearchStaysOnTheVolume) {
    scratch.makeFolder("place");
    withPrivateMounts([&] {
        insert();
        const auto bookmark = bookmarkOfNew("a/Projects");
        scratch.makeFolder("place/under");
        scratch.rename("place/a/Projects", "place/under/Work");
        bindMount(hidden + "/a", place + "/under");
        becomeUnprivileged();
        EXPECT_EQ(resolve(bookmark), "error 4");
    });
}

TEST_P(VolumesTest, AFolderMovedOutOfTheMountedPartOfAVolumeIsGone) {
    withPrivateMounts([&] {
        mountVolume(hidden);
        scratch.makeFolder("hidden/part/Projects");
        bindMount(hidden + "/part", place);
        const auto bookmark = bookmarkOf(place + "/Projects");
        scratch.rename("hidden/part/Projects", "hidden/Projects");
        expectError(bookmark, 4, "The folder \"Projects\" is not there any more.");
    });
}

/// ramfs keeps no birth times and gives no handles, as do the file systems whose inode numbers mean
/// nothing: the path decides.
struct WeakVolumeTest : VolumesTest {
    void insertWeak() { mountNew("ramfs", place); }
};

INSTANTIATE_TEST_SUITE_P(, WeakVolumeTest, testing::Values("ramfs"));

TEST_P(WeakVolumeTest, TheFolderAtThePathIsTheFolder) {
    withPrivateMounts([&] {
        insertWeak();
        const auto bookmark = bookmarkOfNew("Projects");
        EXPECT_EQ(resolve(bookmark), place + "/Projects");
        scratch.remove("place/Projects");
        scratch.makeFolder("place/Projects");
        EXPECT_EQ(resolve(bookmark), place + "/Projects");
    });
}

TEST_P(WeakVolumeTest, ARenamedFolderOrAFileInItsPlaceIsGone) {
    withPrivateMounts([&] {
        insertWeak();
        const auto bookmark = bookmarkOfNew("Projects");
        scratch.rename("place/Projects", "place/Work");
        EXPECT_EQ(resolve(bookmark), "error 4");
        scratch.makeFile("place/Projects");
        EXPECT_EQ(resolve(bookmark), "error 4");
    });
}

TEST_P(WeakVolumeTest, WithoutTheVolumeOrWithOneOfAnotherKindThereIsNoFolder) {
    scratch.makeFolder("place/Projects");
    withPrivateMounts([&] {
        insertWeak();
        const auto bookmark = bookmarkOfNew("Projects");
        unmount(place);
        EXPECT_EQ(resolve(bookmark), "error 256");
        mountTmpfs(place);
        scratch.makeFolder("place/Projects");
        EXPECT_EQ(resolve(bookmark), "error 256");
    });
}

TEST(OverlayTest, WithoutHandlesInodeAndBirthTimeTellFoldersApart) {
    const ScratchFolder scratch(ScratchFolder::inMemory);
    for (const auto* folder : {"lower", "upper", "work", "place"}) {
        scratch.makeFolder(folder);
    }
    const auto options =
        fmt::format("lowerdir={0}/lower,upperdir={0}/upper,workdir={0}/work", scratch.path());
    withPrivateMounts([&] {
        mountNew("overlay", scratch.at("place"), options.c_str());
        LinuxAccessScopes scopes;
        LinuxBookmarks bookmarks(scopes);
        const auto bookmark =
            bookmarks.create(FileUrl(scratch.makeFolder("place/a/Projects"))).value();
        EXPECT_EQ(outcome(bookmarks.resolve(bookmark)), scratch.at("place/a/Projects"));
        scratch.rename("place/a/Projects", "place/a/Work");
        scratch.makeFolder("place/a/Projects");
        EXPECT_EQ(outcome(bookmarks.resolve(bookmark)), stale(scratch.at("place/a/Work")));
        scratch.remove("place/a/Work");
        EXPECT_EQ(outcome(bookmarks.resolve(bookmark)), "error 4");
    });
}

} // namespace
} // namespace blankwell
