#include "platform/linux/update/BundleUnpacker.h"

#include "base/Bytes.h"
#include "support/TemporaryFolder.h"
#include "support/TestArchive.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using Reason = UpdateFailure::Reason;
using testing::HasSubstr;

struct BundleUnpackerTest : testing::Test {
    std::expected<FileUrl, UpdateFailure> unpack(std::string_view archive,
                                                 BundleUnpacker::Limits limits = {}) {
        return BundleUnpacker(limits).unpack(bytesOf(archive), room, {});
    }

    /// Why a bundle with `entry` in it is refused.
    std::string problemWith(ArchiveEntry entry) {
        std::filesystem::remove_all(room.path());
        folder.addFolder("room");
        auto entries = bundleEntries("2", "key");
        entries.push_back(std::move(entry));
        return problem(unpack(archiveOf(entries)));
    }

    static std::string problem(const std::expected<FileUrl, UpdateFailure>& result) {
        if (result) {
            return "(none)";
        }
        EXPECT_EQ(result.error().reason, Reason::unsafeArchive);
        return result.error().description;
    }

    /// What stands in the folder beside the room.
    std::size_t strayCount() const {
        using Entries = std::filesystem::directory_iterator;
        return static_cast<std::size_t>(std::distance(Entries(folder.url().path()), Entries())) - 1;
    }

    TemporaryFolder folder;
    FileUrl room = folder.addFolder("room");
};

mode_t modeOf(const FileUrl& url) {
    struct stat status{};
    EXPECT_EQ(::lstat(url.path().c_str(), &status), 0);
    return status.st_mode & 07777;
}

TEST_F(BundleUnpackerTest, UnpacksABundle) {
    auto entries = bundleEntries("2", "key");
    entries.push_back(ArchiveEntry::link("Blankwell+.app/Contents/Linux/other", "blankwell-plus"));
    const auto bundle = unpack(archiveOf(entries));
    ASSERT_TRUE(bundle) << bundle.error().description;
    EXPECT_EQ(bundle->path(), room.appending("Blankwell+.app").path());
    EXPECT_EQ(folder.contents("room/Blankwell+.app/Contents/Info.plist"), infoPlist("2", "key"));
    EXPECT_EQ(folder.contents("room/Blankwell+.app/Contents/Linux/other"), "#!/bin/sh\necho 2\n");
}

TEST_F(BundleUnpackerTest, OnlyWhetherAFileCanBeRunIsTakenOver) {
    const auto mask = ::umask(022);
    auto entries = bundleEntries("2", "key");
    entries.push_back({.path = "Blankwell+.app/open", .mode = 0666});
    entries.push_back({.path = "Blankwell+.app/Locked", .type = S_IFDIR, .mode = 0});
    ASSERT_TRUE(unpack(archiveOf(entries)));
    ::umask(mask);
    const auto bundle = room.appending("Blankwell+.app");
    EXPECT_EQ(modeOf(bundle.appending("Contents/Linux/blankwell-plus")), 0755U);
    EXPECT_EQ(modeOf(bundle.appending("Contents/Info.plist")), 0644U);
    EXPECT_EQ(modeOf(bundle.appending("open")), 0644U);
    EXPECT_EQ(modeOf(bundle.appending("Locked")), 0755U);
}

TEST_F(BundleUnpackerTest, PathsThatLeaveAreRefused) {
    for (const auto* path : {"/blankwell-escaped", "../escaped", "Blankwell+.app/../escaped",
                             "Blankwell+.app/Contents/../../../escaped"}) {
        EXPECT_THAT(problemWith({.path = path}), HasSubstr("leads out")) << path;
        EXPECT_EQ(strayCount(), 0U) << path;
    }
    EXPECT_FALSE(std::filesystem::exists("/blankwell-escaped"));
}

TEST_F(BundleUnpackerTest, LinksThatLeaveAreRefused) {
    for (const auto* target : {"/etc", "../..", "../../escaped", "Contents/../.."}) {
        EXPECT_THAT(problemWith(ArchiveEntry::link("Blankwell+.app/Contents/link", target)),
                    HasSubstr("leads out"))
            << target;
    }
}

TEST_F(BundleUnpackerTest, NothingIsWrittenThroughALink) {
    const auto problem = [this] {
        auto entries = bundleEntries("2", "key");
        entries.push_back(ArchiveEntry::link("Blankwell+.app/link", "Contents"));
        entries.push_back({.path = "Blankwell+.app/link/Info.plist", .contents = "other"});
        return this->problem(unpack(archiveOf(entries)));
    }();
    EXPECT_THAT(problem, HasSubstr("twice"));
    EXPECT_EQ(folder.contents("room/Blankwell+.app/Contents/Info.plist"), infoPlist("2", "key"));
}

TEST_F(BundleUnpackerTest, NamesThatComeTwiceAreRefused) {
    EXPECT_THAT(problemWith({.path = "Blankwell+.app/Contents/Info.plist"}), HasSubstr("twice"));
    EXPECT_THAT(problemWith({.path = "Blankwell+.app/Contents"}), HasSubstr("twice"));
    EXPECT_THAT(problemWith({.path = "Blankwell+.app/Contents/Info.plist/file"}),
                HasSubstr("twice"));
    EXPECT_THAT(problemWith(ArchiveEntry::link("Blankwell+.app/Contents/Linux", "Resources")),
                HasSubstr("twice"));
}

TEST_F(BundleUnpackerTest, DevicesPipesAndHardLinksAreRefused) {
    for (const unsigned type : {0U + S_IFIFO, 0U + S_IFCHR, 0U + S_IFBLK}) {
        EXPECT_THAT(problemWith({.path = "Blankwell+.app/device", .type = type}),
                    HasSubstr("neither a file nor a folder"));
    }
    EXPECT_THAT(problemWith({.path = "Blankwell+.app/other", .hardLink = "/etc/passwd"}),
                HasSubstr("neither a file nor a folder"));
    EXPECT_THAT(problemWith({.path = "Blankwell+.app/other",
                             .hardLink = "Blankwell+.app/Contents/Info.plist"}),
                HasSubstr("neither a file nor a folder"));
}

TEST_F(BundleUnpackerTest, SetIdBitsAreRefused) {
    for (const mode_t mode : {04755U, 02755U, 06755U}) {
        EXPECT_THAT(problemWith({.path = "Blankwell+.app/program", .mode = mode}),
                    HasSubstr("rights of others"));
    }
    EXPECT_THAT(problemWith({.path = "Blankwell+.app/Folder", .type = S_IFDIR, .mode = 02755}),
                HasSubstr("rights of others"));
}

TEST_F(BundleUnpackerTest, ThereIsOneBundleAndNothingBesideIt) {
    EXPECT_THAT(problemWith({.path = "Other.app/Contents/Info.plist"}), HasSubstr("beside"));
    EXPECT_THAT(problemWith({.path = "README"}), HasSubstr("beside"));
    EXPECT_THAT(problem(unpack(archiveOf({}))), HasSubstr("no bundle"));
    EXPECT_THAT(problem(unpack(archiveOf({{.path = "folder/file"}}))), HasSubstr("no bundle"));
    EXPECT_THAT(problem(unpack(archiveOf({{.path = "File.app"}}))), HasSubstr("no bundle"));
    EXPECT_THAT(problem(unpack(archiveOf({ArchiveEntry::link("Link.app", "a")}))),
                HasSubstr("no bundle"));
}

TEST_F(BundleUnpackerTest, ABombIsStoppedAtTheLimit) {
    constexpr std::uint64_t limit = 1'000'000;
    auto entries = bundleEntries("2", "key");
    entries.push_back({.path = "Blankwell+.app/half", .contents = std::string(limit / 2, '\0')});
    ASSERT_TRUE(unpack(archiveOf(entries), {.size = limit}));
    entries.push_back({.path = "Blankwell+.app/rest", .contents = std::string(limit / 2, '\0')});
    const auto bomb = archiveOf(entries);
    EXPECT_LT(bomb.size(), 10'000U);
    std::filesystem::remove_all(room.path());
    folder.addFolder("room");
    EXPECT_THAT(problem(unpack(bomb, {.size = limit})), HasSubstr("too large"));
    EXPECT_FALSE(std::filesystem::exists(room.appending("Blankwell+.app/rest").path()));
}

TEST_F(BundleUnpackerTest, ABombOfManyFilesIsStoppedAtTheLimit) {
    const auto entries = bundleEntries("2", "key");
    ASSERT_TRUE(unpack(archiveOf(entries), {.entries = entries.size()}));
    std::filesystem::remove_all(room.path());
    folder.addFolder("room");
    EXPECT_THAT(problem(unpack(archiveOf(entries), {.entries = entries.size() - 1})),
                HasSubstr("too many"));
}

TEST_F(BundleUnpackerTest, WhatIsNoArchiveOrBrokenIsRefused) {
    EXPECT_THAT(problem(unpack("")), HasSubstr("damaged"));
    EXPECT_THAT(problem(unpack("plain text, and quite a lot of it")), HasSubstr("damaged"));
    const auto archive = archiveOf(bundleEntries("2", "key"));
    EXPECT_THAT(problem(unpack(std::string_view(archive).substr(0, archive.size() / 2))),
                HasSubstr("damaged"));
}

TEST_F(BundleUnpackerTest, AStopEndsItInTheMiddle) {
    std::stop_source source;
    source.request_stop();
    const auto archive = archiveOf(bundleEntries("2", "key"));
    const auto result = BundleUnpacker().unpack(bytesOf(archive), room, source.get_token());
    EXPECT_EQ(result.error().reason, Reason::cancelled);
}

} // namespace
} // namespace blankwell
