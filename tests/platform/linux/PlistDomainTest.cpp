#include "platform/linux/PlistDomain.h"

#include "support/ChildProcess.h"
#include "support/FileContents.h"
#include "support/PrivateMounts.h"
#include "support/TemporaryFolder.h"

#include <fmt/core.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

struct PlistDomainTest : testing::Test {
    [[nodiscard]] std::string path(std::string_view name) const {
        return fmt::format("{}/{}", directory, name);
    }

    void put(std::string_view name, std::string_view contents) const {
        std::ofstream(path(name), std::ios::binary) << contents;
    }

    [[nodiscard]] std::string contents(std::string_view name) const {
        return contentsOf(path(name));
    }

    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(directory)) {
            found.push_back(entry.path().filename());
        }
        return found;
    }

    [[nodiscard]] mode_t mode(const std::string& file) const {
        struct stat status{};
        EXPECT_EQ(::stat(file.c_str(), &status), 0) << file;
        return status.st_mode & 0777U;
    }

    /// What tells whether the file was replaced.
    [[nodiscard]] ino_t inode(std::string_view name) const {
        struct stat status{};
        EXPECT_EQ(::stat(path(name).c_str(), &status), 0);
        return status.st_ino;
    }

    /// Lets the file's time stamp grow old enough to be relied on.
    static void settle() { std::this_thread::sleep_for(std::chrono::milliseconds(40)); }

    static std::string documentWith(std::string_view text) {
        return fmt::format("<plist version=\"1.0\"><dict><key>k</key><string>{}</string></dict>"
                           "</plist>",
                           text);
    }

    TemporaryFolder folder;
    std::string directory = folder.url().path();
    PlistDomain domain{directory, "d"};
};

TEST_F(PlistDomainTest, ReadingAndRemovingNothingTouchesNothing) {
    PlistDomain elsewhere(path("missing/folder"), "d");
    EXPECT_EQ(elsewhere.value("k"), std::nullopt);
    EXPECT_TRUE(elsewhere.keys("").empty());
    EXPECT_TRUE(elsewhere.remove("k"));
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(PlistDomainTest, TheFirstWriteMakesThePrivateFolderAndFile) {
    const auto previous = ::umask(0);
    PlistDomain elsewhere(path("missing/folder"), "d");
    EXPECT_TRUE(elsewhere.set("k", true));
    ::umask(previous);
    EXPECT_EQ(mode(path("missing")), 0700U);
    EXPECT_EQ(mode(path("missing/folder")), 0700U);
    EXPECT_EQ(mode(path("missing/folder/d.plist")), 0600U);
    EXPECT_EQ(mode(path("missing/folder/d.plist.lock")), 0600U);
}

TEST_F(PlistDomainTest, AWriteLeavesTheFileAndItsLockAlone) {
    ASSERT_TRUE(domain.set("k", true));
    EXPECT_THAT(names(), UnorderedElementsAre("d.plist", "d.plist.lock"));
}

TEST_F(PlistDomainTest, SettingWhatIsSetWritesNothing) {
    ASSERT_TRUE(domain.set("k", "v"));
    const auto before = inode("d.plist");
    EXPECT_TRUE(domain.set("k", "v"));
    EXPECT_TRUE(domain.remove("absent"));
    EXPECT_EQ(inode("d.plist"), before);
    EXPECT_TRUE(domain.set("k", "w"));
    EXPECT_NE(inode("d.plist"), before);
}

TEST_F(PlistDomainTest, TwoDomainsOfAFolderAreIndependent) {
    PlistDomain other(directory, "e");
    ASSERT_TRUE(domain.set("k", "d"));
    ASSERT_TRUE(other.set("k", "e"));
    ASSERT_TRUE(other.remove("k"));
    EXPECT_EQ(domain.value("k"), PropertyValue("d"));
}

TEST_F(PlistDomainTest, AnOldFileRewrittenInPlaceIsReadAgain) {
    put("d.plist", documentWith("one"));
    settle();
    ASSERT_EQ(domain.value("k"), PropertyValue("one"));
    put("d.plist", documentWith("two"));
    EXPECT_EQ(domain.value("k"), PropertyValue("two"));
}

TEST_F(PlistDomainTest, ChangesOfTheSameSizeWithinOneTickAreSeen) {
    inChildProcess([this] {
        // Its time stamps go by the tick, as those of most file systems before Linux 6.13.
        enterPrivateMounts();
        ASSERT_EQ(::mount("ramfs", directory.c_str(), "ramfs", 0, nullptr), 0);
        for (int round = 0; round < 300; ++round) {
            const auto text = fmt::format("{:03}", round);
            put("d.plist", documentWith(text));
            ASSERT_EQ(domain.value("k"), PropertyValue(text));
        }
    });
}

TEST_F(PlistDomainTest, AFileOfTheSameSizeAndTimeInItsPlaceIsSeen) {
    for (const auto* text : {"one", "two"}) {
        put(text, documentWith(text));
        const std::array<timespec, 2> times{timespec{1'000'000'000, 0}, timespec{1'000'000'000, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, path(text).c_str(), times.data(), 0), 0);
    }
    std::filesystem::rename(path("one"), path("d.plist"));
    settle();
    ASSERT_EQ(domain.value("k"), PropertyValue("one"));
    std::filesystem::rename(path("two"), path("d.plist"));
    EXPECT_EQ(domain.value("k"), PropertyValue("two"));
}

TEST_F(PlistDomainTest, ADeletedFileIsAnEmptyDomain) {
    ASSERT_TRUE(domain.set("k", "v"));
    settle();
    ASSERT_EQ(domain.value("k"), PropertyValue("v"));
    std::filesystem::remove(path("d.plist"));
    EXPECT_EQ(domain.value("k"), std::nullopt);
    ASSERT_TRUE(domain.set("other", "w"));
    EXPECT_THAT(domain.keys(""), ElementsAre("other"));
}

TEST_F(PlistDomainTest, ASettledFileIsNotOpenedAgain) {
    put("d.plist", documentWith("one"));
    settle();
    ASSERT_EQ(domain.value("k"), PropertyValue("one"));
    inChildProcess([this] {
        rlimit files{};
        ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &files), 0);
        const rlimit noMoreFiles{.rlim_cur = 0, .rlim_max = files.rlim_max};
        ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &noMoreFiles), 0);
        const auto value = domain.value("k");
        // Expectations need descriptors where a sanitizer looks on.
        ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &files), 0);
        EXPECT_EQ(value, PropertyValue("one"));
    });
}

TEST_F(PlistDomainTest, ADamagedFileReadsAsEmptyAndIsKeptByTheFirstWrite) {
    put("d.plist", "damaged once");
    EXPECT_EQ(domain.value("k"), std::nullopt);
    EXPECT_TRUE(domain.keys("").empty());
    EXPECT_TRUE(domain.remove("k"));
    EXPECT_EQ(contents("d.plist"), "damaged once");

    ASSERT_TRUE(domain.set("k", true));
    ASSERT_TRUE(domain.set("l", true));
    EXPECT_THAT(domain.keys(""), ElementsAre("k", "l"));
    EXPECT_EQ(contents("d.plist.damaged-1"), "damaged once");
    EXPECT_THAT(names(), UnorderedElementsAre("d.plist", "d.plist.lock", "d.plist.damaged-1"));
}

TEST_F(PlistDomainTest, DamagedFilesNeverReplaceEachOther) {
    for (const auto* text : {"first", "second", "third"}) {
        put("d.plist", text);
        ASSERT_TRUE(domain.set("k", true));
        std::filesystem::remove(path("d.plist"));
    }
    EXPECT_EQ(contents("d.plist.damaged-1"), "first");
    EXPECT_EQ(contents("d.plist.damaged-2"), "second");
    EXPECT_EQ(contents("d.plist.damaged-3"), "third");
}

TEST_F(PlistDomainTest, AnEmptyFileIsDamagedAndKept) {
    put("d.plist", "");
    ASSERT_TRUE(domain.set("k", true));
    EXPECT_TRUE(std::filesystem::is_empty(path("d.plist.damaged-1")));
}

TEST_F(PlistDomainTest, AnEndlessFileIsDamaged) {
    put("d.plist", "");
    std::filesystem::resize_file(path("d.plist"), std::uintmax_t{1} << 40U);
    EXPECT_EQ(domain.value("k"), std::nullopt);
}

TEST_F(PlistDomainTest, AFolderOrPipeInPlaceOfTheFileFailsTheWrite) {
    std::filesystem::create_directory(path("d.plist"));
    EXPECT_EQ(domain.value("k"), std::nullopt);
    EXPECT_FALSE(domain.set("k", true));
    EXPECT_TRUE(std::filesystem::is_directory(path("d.plist")));

    ASSERT_EQ(::mkfifo(path("e.plist").c_str(), 0600), 0);
    PlistDomain pipe(directory, "e");
    EXPECT_EQ(pipe.value("k"), std::nullopt);
    EXPECT_FALSE(pipe.set("k", true));
    EXPECT_TRUE(std::filesystem::is_fifo(path("e.plist")));
}

TEST_F(PlistDomainTest, ALinkedFileStaysALink) {
    std::filesystem::create_directory(path("dotfiles"));
    put("dotfiles/mine", documentWith("one"));
    std::filesystem::create_symlink("dotfiles/mine", path("second link"));
    std::filesystem::create_symlink(path("second link"), path("d.plist"));
    ASSERT_TRUE(domain.set("l", "two"));
    EXPECT_EQ(std::filesystem::read_symlink(path("d.plist")), path("second link"));
    EXPECT_EQ(domain.value("k"), PropertyValue("one"));
    EXPECT_EQ(domain.value("l"), PropertyValue("two"));
    EXPECT_THAT(contents("dotfiles/mine"), testing::HasSubstr("two"));
    EXPECT_THAT(names(), UnorderedElementsAre("d.plist", "second link", "dotfiles"));
}

TEST_F(PlistDomainTest, ALinkToNothingYetIsWrittenThrough) {
    std::filesystem::create_directory(path("dotfiles"));
    std::filesystem::create_symlink("dotfiles/mine", path("d.plist"));
    ASSERT_TRUE(domain.set("k", "v"));
    EXPECT_TRUE(std::filesystem::is_symlink(path("d.plist")));
    EXPECT_TRUE(std::filesystem::is_regular_file(path("dotfiles/mine")));
}

TEST_F(PlistDomainTest, ALinkToItselfFailsTheWrite) {
    std::filesystem::create_symlink("d.plist", path("d.plist"));
    EXPECT_EQ(domain.value("k"), std::nullopt);
    const auto saved = domain.set("k", true);
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().code, ELOOP);
}

TEST_F(PlistDomainTest, AStaleTemporaryIsGoneAfterTheNextWrite) {
    put("d.plist.tmp", "half a fi");
    ASSERT_TRUE(domain.set("k", true));
    EXPECT_THAT(names(), UnorderedElementsAre("d.plist", "d.plist.lock"));
    EXPECT_EQ(domain.value("k"), PropertyValue(true));
}

} // namespace
} // namespace blankwell
