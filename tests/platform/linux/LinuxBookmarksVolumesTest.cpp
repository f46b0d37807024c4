#include "platform/linux/BookmarkOutcome.h"
#include "platform/linux/ChildProcess.h"
#include "platform/linux/LinuxAccessScopes.h"
#include "platform/linux/LinuxBookmarks.h"
#include "platform/linux/ScratchFolder.h"

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

void bindMount(const std::string& from, const std::string& to) {
    if (::mount(from.c_str(), to.c_str(), nullptr, MS_BIND, nullptr) != 0) {
        throw std::runtime_error("bind");
    }
}

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
            mountNew("tmpfs", at);
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
    const auto outcomes = withOwnMounts([&] {
        insert();
        const auto bookmark = bookmarkOfNew("Projects");
        unmount(place);
        const auto without = bookmarks.resolve(bookmark);
        bindMount(hidden, place);
        return outcome(without) + ", " + without.error().description + " " + resolve(bookmark);
    });
    EXPECT_EQ(outcomes,
              "error 256, The volume that holds the folder \"Projects\" is not mounted. " + place +
                  "/Projects");
}

TEST_P(VolumesTest, AFolderInTheEmptyMountPointIsNotTheVolumesFolder) {
    scratch.makeFolder("place/Projects");
    EXPECT_EQ(withOwnMounts([&] {
                  insert();
                  const auto bookmark = bookmarkOfNew("Projects");
                  unmount(place);
                  return resolve(bookmark);
              }),
              "error 256");
}

TEST_P(VolumesTest, AMountPointThatIsGoneIsAnUnmountedVolume) {
    EXPECT_EQ(withOwnMounts([&] {
                  insert();
                  const auto bookmark = bookmarkOfNew("Projects");
                  unmount(place);
                  scratch.remove("place");
                  return resolve(bookmark);
              }),
              "error 256");
}

TEST_P(VolumesTest, AnotherVolumeAtThePlaceIsNotTheFoldersVolume) {
    EXPECT_EQ(withOwnMounts([&] {
                  insert();
                  const auto bookmark = bookmarkOfNew("Projects");
                  unmount(place);
                  mountVolume(place);
                  scratch.makeFolder("place/Projects");
                  return resolve(bookmark);
              }),
              "error 256");
}

TEST_P(VolumesTest, AFolderRenamedOnItsVolumeIsFound) {
    const auto found = withOwnMounts([&] {
        insert();
        const auto bookmark = bookmarkOfNew("a/Projects");
        scratch.rename("place/a", "place/b");
        const auto privileged = resolve(bookmark);
        dropPrivileges();
        return privileged + " " + resolve(bookmark);
    });
    EXPECT_EQ(found, fmt::format("{0}/b/Projects (stale) {0}/b/Projects (stale)", place));
}

TEST_P(VolumesTest, AFolderDeletedOnItsVolumeIsGone) {
    EXPECT_EQ(withOwnMounts([&] {
                  insert();
                  const auto bookmark = bookmarkOfNew("Projects");
                  scratch.remove("place/Projects");
                  return resolve(bookmark);
              }),
              "error 4");
}

TEST_P(VolumesTest, AFolderOnAReadOnlyVolumeIsRefused) {
    const auto outcomes = withOwnMounts([&] {
        insert();
        const auto bookmark = bookmarkOfNew("Projects");
        if (::mount(nullptr, place.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) !=
            0) {
            return std::string("no read-only mount");
        }
        const auto resolved = bookmarks.resolve(bookmark);
        return outcome(resolved) + ", " + resolved.error().description;
    });
    EXPECT_EQ(outcomes, "error 642, The volume that holds the folder \"Projects\" is read-only.");
}

TEST_P(VolumesTest, AVolumesOwnRootCanBeBookmarked) {
    const auto outcomes = withOwnMounts([&] {
        insert();
        const auto bookmark = bookmarkOf(place);
        const auto mounted = resolve(bookmark);
        unmount(place);
        return mounted + " " + resolve(bookmark);
    });
    EXPECT_EQ(outcomes, place + " error 256");
}

TEST_P(VolumesTest, AnotherVolumesRootIsNotTheBookmarkedOne) {
    EXPECT_EQ(withOwnMounts([&] {
                  insert();
                  const auto bookmark = bookmarkOf(place);
                  unmount(place);
                  mountVolume(place);
                  return resolve(bookmark);
              }),
              "error 256");
}

TEST_P(VolumesTest, TheSearchStaysOnTheVolume) {
    scratch.makeFolder("place");
    const auto outcomes = withOwnMounts([&] {
        insert();
        const auto bookmark = bookmarkOfNew("a/Projects");
        scratch.makeFolder("place/under");
        scratch.rename("place/a/Projects", "place/under/Work");
        bindMount(hidden + "/a", place + "/under");
        dropPrivileges();
        return resolve(bookmark);
    });
    EXPECT_EQ(outcomes, "error 4");
}

TEST_P(VolumesTest, AFolderMovedOutOfTheMountedPartOfAVolumeIsGone) {
    const auto outcomes = withOwnMounts([&] {
        mountVolume(hidden);
        scratch.makeFolder("hidden/part/Projects");
        bindMount(hidden + "/part", place);
        const auto bookmark = bookmarkOf(place + "/Projects");
        scratch.rename("hidden/part/Projects", "hidden/Projects");
        const auto resolved = bookmarks.resolve(bookmark);
        return outcome(resolved) + ", " + resolved.error().description;
    });
    EXPECT_EQ(outcomes, "error 4, The folder \"Projects\" is not there any more.");
}

/// ramfs keeps no birth times and gives no handles, as do the file systems whose inode numbers mean
/// nothing: the path decides.
struct WeakVolumeTest : VolumesTest {
    void insertWeak() { mountNew("ramfs", place); }
};

INSTANTIATE_TEST_SUITE_P(, WeakVolumeTest, testing::Values("ramfs"));

TEST_P(WeakVolumeTest, TheFolderAtThePathIsTheFolder) {
    const auto outcomes = withOwnMounts([&] {
        insertWeak();
        const auto bookmark = bookmarkOfNew("Projects");
        const auto unchanged = resolve(bookmark);
        scratch.remove("place/Projects");
        scratch.makeFolder("place/Projects");
        return unchanged + " " + resolve(bookmark);
    });
    EXPECT_EQ(outcomes, fmt::format("{0}/Projects {0}/Projects", place));
}

TEST_P(WeakVolumeTest, ARenamedFolderOrAFileInItsPlaceIsGone) {
    const auto outcomes = withOwnMounts([&] {
        insertWeak();
        const auto bookmark = bookmarkOfNew("Projects");
        scratch.rename("place/Projects", "place/Work");
        const auto renamed = resolve(bookmark);
        scratch.makeFile("place/Projects");
        return renamed + " " + resolve(bookmark);
    });
    EXPECT_EQ(outcomes, "error 4 error 4");
}

TEST_P(WeakVolumeTest, WithoutTheVolumeOrWithOneOfAnotherKindThereIsNoFolder) {
    scratch.makeFolder("place/Projects");
    const auto outcomes = withOwnMounts([&] {
        insertWeak();
        const auto bookmark = bookmarkOfNew("Projects");
        unmount(place);
        const auto unmounted = resolve(bookmark);
        mountNew("tmpfs", place);
        scratch.makeFolder("place/Projects");
        return unmounted + " " + resolve(bookmark);
    });
    EXPECT_EQ(outcomes, "error 256 error 256");
}

TEST(OverlayTest, WithoutHandlesInodeAndBirthTimeTellFoldersApart) {
    const ScratchFolder scratch(ScratchFolder::inMemory);
    for (const auto* folder : {"lower", "upper", "work", "place"}) {
        scratch.makeFolder(folder);
    }
    const auto options =
        fmt::format("lowerdir={0}/lower,upperdir={0}/upper,workdir={0}/work", scratch.path());
    const auto outcomes = withOwnMounts([&] {
        if (::mount("overlay", scratch.at("place").c_str(), "overlay", 0, options.c_str()) != 0) {
            throw std::runtime_error("no overlay");
        }
        LinuxAccessScopes scopes;
        LinuxBookmarks bookmarks(scopes);
        const auto bookmark =
            bookmarks.create(FileUrl(scratch.makeFolder("place/a/Projects"))).value();
        const auto unchanged = outcome(bookmarks.resolve(bookmark));
        scratch.rename("place/a/Projects", "place/a/Work");
        scratch.makeFolder("place/a/Projects");
        const auto renamed = outcome(bookmarks.resolve(bookmark));
        scratch.remove("place/a/Work");
        return unchanged + " " + renamed + " " + outcome(bookmarks.resolve(bookmark));
    });
    EXPECT_EQ(outcomes,
              fmt::format("{0}/a/Projects {0}/a/Work (stale) error 4", scratch.at("place")));
}

} // namespace
} // namespace blankwell
