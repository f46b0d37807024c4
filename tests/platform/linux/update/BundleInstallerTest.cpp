#include "platform/linux/update/BundleInstaller.h"

#include "platform/Bundle.h"
#include "platform/linux/update/BundleUse.h"
#include "platform/linux/update/StagingFolder.h"
#include "support/KilledProcess.h"
#include "support/SigningKey.h"
#include "support/TemporaryFolder.h"
#include "support/TestArchive.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

namespace blankwell {
namespace {

using Reason = UpdateFailure::Reason;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

constexpr auto name = "Blankwell+.app";

std::vector<std::string> namesIn(const FileUrl& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path(), error)) {
        names.push_back(entry.path().filename().string());
    }
    return names;
}

struct BundleInstallerTest : testing::Test {
    BundleInstallerTest() { putBundle("1"); }

    void putBundle(std::string_view version) const {
        std::filesystem::remove_all(bundle.path());
        for (const auto& entry : bundleEntries(version, key.publicKey())) {
            if (entry.type == S_IFREG) {
                folder.addFile(entry.path, entry.contents);
            }
        }
    }

    std::string archiveOfVersion(std::string_view version) const {
        return archiveOf(bundleEntries(version, key.publicKey()));
    }

    /// The version of the bundle, if every file of that version is there.
    std::string wholeVersion() const {
        for (const std::string version : {"1", "2"}) {
            const auto entries = bundleEntries(version, key.publicKey());
            if (std::ranges::all_of(entries, [&](const ArchiveEntry& entry) {
                    return entry.type != S_IFREG || folder.contents(entry.path) == entry.contents;
                })) {
                return version;
            }
        }
        return "(none)";
    }

    /// Unpacks `archive` as an update that is signed with `signature`.
    static std::expected<std::unique_ptr<StagedBundle>, UpdateFailure>
    unpack(UpdateStaging& staging, std::string_view archive, const std::string& signature,
           const std::string& publicKey) {
        const auto place = staging.archive("update");
        std::ofstream(place.path(), std::ios::binary) << archive;
        return staging.unpack(place, signature, publicKey, {});
    }

    /// The whole way of an update to version 2.
    void update(const BundleUse& use) const {
        BundleInstaller installer(use);
        const auto staging = installer.begin();
        ASSERT_TRUE(staging) << staging.error().description;
        const auto archive = archiveOfVersion("2");
        const auto staged = unpack(**staging, archive, key.sign(archive), key.publicKey());
        ASSERT_TRUE(staged) << staged.error().description;
        const auto installed = (*staged)->install();
        ASSERT_TRUE(installed) << installed.error().description;
    }

    Reason reasonOfUnpack(std::string_view archive, const std::string& signature,
                          const std::string& publicKey) const {
        const BundleUse use(bundle);
        const auto staging = BundleInstaller(use).begin();
        const auto staged = unpack(**staging, archive, signature, publicKey);
        EXPECT_FALSE(staged);
        EXPECT_THAT(namesIn(place), IsEmpty());
        return staged ? Reason::cancelled : staged.error().reason;
    }

    SigningKey key;
    TemporaryFolder folder;
    FileUrl bundle = folder.at(name);
    FileUrl place = folder.at(".Blankwell+.app.update");
};

TEST_F(BundleInstallerTest, APreparedUpdateCanBeLookedAtBeforeItIsInstalled) {
    const BundleUse use(bundle);
    const auto staging = BundleInstaller(use).begin();
    const auto archive = archiveOfVersion("2");
    {
        const auto staged = unpack(**staging, archive, key.sign(archive), key.publicKey());
        ASSERT_TRUE(staged);
        EXPECT_EQ((*staged)->bundle().infoString("CFBundleVersion"), "2");
        EXPECT_EQ((*staged)->bundle().infoString("SUPublicEDKey"), key.publicKey());
        EXPECT_EQ(wholeVersion(), "1");
    }
    EXPECT_THAT(namesIn(place), IsEmpty());
}

TEST_F(BundleInstallerTest, TheUpdateTakesThePlaceOfTheBundle) {
    update(BundleUse(bundle));
    EXPECT_EQ(wholeVersion(), "2");
    StagingFolder::sweep(bundle);
    EXPECT_THAT(namesIn(folder.url()), ElementsAre(name));
}

TEST_F(BundleInstallerTest, ThereIsABundleAtEveryMoment) {
    std::atomic<bool> isOver = false;
    std::atomic<int> looks = 0;
    std::atomic<int> gaps = 0;
    std::jthread watcher([&] {
        const auto info = bundle.appending("Contents/Info.plist").path();
        while (!isOver) {
            struct stat status{};
            gaps += ::stat(info.c_str(), &status) == 0 ? 0 : 1;
            ++looks;
        }
    });
    for (int i = 0; i < 5; ++i) {
        update(BundleUse(bundle));
    }
    isOver = true;
    watcher.join();
    EXPECT_GT(looks, 100);
    EXPECT_EQ(gaps, 0);
}

TEST_F(BundleInstallerTest, TheOldBundleStaysUntilTheLastProcessThatRunsFromItEnds) {
    {
        const BundleUse use(bundle);
        update(use);
        StagingFolder::sweep(bundle);
        ASSERT_THAT(namesIn(place), SizeIs(1));
        const auto old = place.appending(namesIn(place).front()).appending(name);
        EXPECT_TRUE(BundleUse::isUsed(old));
        EXPECT_TRUE(std::filesystem::exists(old.appending("Contents/Linux").path()));
        EXPECT_FALSE(BundleUse::isUsed(bundle));
    }
    StagingFolder::sweep(bundle);
    EXPECT_FALSE(std::filesystem::exists(place.path()));
    EXPECT_EQ(wholeVersion(), "2");
}

TEST_F(BundleInstallerTest, WithTheApplicationAllThatUpdatesLeftGoesButWhatIsInUse) {
    {
        const BundleUse use(bundle);
        update(use);
        folder.addFile(".Blankwell+.app.update/new.part");
        folder.addFolder(".Blankwell+.app.update/room-1");
        StagingFolder::remove(bundle);
        ASSERT_THAT(namesIn(place), SizeIs(1));
        EXPECT_TRUE(BundleUse::isUsed(place.appending(namesIn(place).front()).appending(name)));
    }
    StagingFolder::remove(bundle);
    EXPECT_THAT(namesIn(folder.url()), ElementsAre(name));
    StagingFolder::remove(bundle);
}

TEST_F(BundleInstallerTest, OnlyTheBytesThatTheMakersSignedAreUnpacked) {
    const auto archive = archiveOfVersion("2");
    const auto signature = key.sign(archive);
    const auto publicKey = key.publicKey();
    const auto cut = archive.substr(0, archive.size() - 1);
    EXPECT_EQ(reasonOfUnpack(archiveOfVersion("3"), signature, publicKey), Reason::wrongSignature);
    EXPECT_EQ(reasonOfUnpack(cut, signature, publicKey), Reason::wrongSignature);
    EXPECT_EQ(reasonOfUnpack(archive + " ", signature, publicKey), Reason::wrongSignature);
    EXPECT_EQ(reasonOfUnpack(archive, SigningKey().sign(archive), publicKey),
              Reason::wrongSignature);
    EXPECT_EQ(reasonOfUnpack(archive, signature, SigningKey().publicKey()), Reason::wrongSignature);
    EXPECT_EQ(reasonOfUnpack(archive, "", publicKey), Reason::wrongSignature);
    EXPECT_EQ(wholeVersion(), "1");
}

TEST_F(BundleInstallerTest, AnArchiveThatIsNotSignedIsNotEvenLookedAt) {
    EXPECT_EQ(reasonOfUnpack("no archive at all", "", key.publicKey()), Reason::wrongSignature);
}

TEST_F(BundleInstallerTest, ASignedArchiveMustBeSafeToo) {
    auto entries = bundleEntries("2", key.publicKey());
    entries.push_back({.path = "../escaped"});
    const auto archive = archiveOf(entries);
    EXPECT_EQ(reasonOfUnpack(archive, key.sign(archive), key.publicKey()), Reason::unsafeArchive);
    EXPECT_THAT(namesIn(folder.url()), UnorderedElementsAre(name, ".Blankwell+.app.update"));
}

TEST_F(BundleInstallerTest, AStoppedUpdateKeepsTheArchive) {
    const BundleUse use(bundle);
    const auto staging = BundleInstaller(use).begin();
    const auto archive = archiveOfVersion("2");
    const auto file = (*staging)->archive("update");
    std::ofstream(file.path(), std::ios::binary) << archive;
    std::stop_source stop;
    stop.request_stop();
    const auto staged =
        (*staging)->unpack(file, key.sign(archive), key.publicKey(), stop.get_token());
    EXPECT_EQ(staged.error().reason, Reason::cancelled);
    EXPECT_THAT(namesIn(place), ElementsAre("update.part"));
}

TEST_F(BundleInstallerTest, ArchivesOfOtherUpdatesAreRemovedAndTheSameOneIsKept) {
    const BundleUse use(bundle);
    const auto staging = BundleInstaller(use).begin();
    for (const auto* archive : {"old", "new"}) {
        std::ofstream((*staging)->archive(archive).path()) << archive;
    }
    EXPECT_THAT(namesIn(place), ElementsAre("new.part"));
    static_cast<void>((*staging)->archive("new"));
    EXPECT_THAT(namesIn(place), ElementsAre("new.part"));
}

TEST_F(BundleInstallerTest, OneProcessUpdatesAtATime) {
    const BundleUse use(bundle);
    BundleInstaller installer(use);
    {
        const auto first = installer.begin();
        ASSERT_TRUE(first);
        EXPECT_FALSE(installer.begin());
        folder.addFolder(".Blankwell+.app.update/room-1");
        StagingFolder::sweep(bundle);
        EXPECT_THAT(namesIn(place), ElementsAre("room-1"));
    }
    EXPECT_TRUE(installer.begin());
}

TEST_F(BundleInstallerTest, ThePlaceOfUpdatesIsForThisUserAlone) {
    const BundleUse use(bundle);
    {
        ASSERT_TRUE(BundleInstaller(use).begin());
    }
    struct stat status{};
    ASSERT_EQ(::lstat(place.path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
    std::filesystem::permissions(place.path(), std::filesystem::perms(0755));
    EXPECT_FALSE(BundleInstaller(use).begin());
    std::filesystem::remove(place.path());
    std::filesystem::create_directory_symlink(folder.addFolder("elsewhere").path(), place.path());
    EXPECT_FALSE(BundleInstaller(use).begin());
}

TEST_F(BundleInstallerTest, ABundleThatWasMovedOrReplacedIsLeftAlone) {
    const BundleUse use(bundle);
    const auto staging = BundleInstaller(use).begin();
    const auto archive = archiveOfVersion("2");
    const auto staged = unpack(**staging, archive, key.sign(archive), key.publicKey());
    std::filesystem::rename(bundle.path(), folder.at("moved").path());
    EXPECT_EQ((*staged)->install().error().reason, Reason::disk);
    putBundle("1");
    EXPECT_EQ((*staged)->install().error().reason, Reason::disk);
    EXPECT_EQ(wholeVersion(), "1");
}

TEST_F(BundleInstallerTest, AKilledUpdateLeavesOneWholeBundleAndTheNextStartMendsTheRest) {
    int old = 0;
    int updated = 0;
    for (int call = 0;; ++call) {
        const bool wasKilled = isKilledAtSystemCall([&] { update(BundleUse(bundle)); }, call);
        const auto version = wholeVersion();
        ASSERT_NE(version, "(none)") << "killed at system call " << call;
        ++(version == "1" ? old : updated);
        StagingFolder::sweep(bundle);
        ASSERT_EQ(wholeVersion(), version) << "killed at system call " << call;
        if (!wasKilled) {
            break;
        }
        update(BundleUse(bundle));
        ASSERT_EQ(wholeVersion(), "2") << "killed at system call " << call;
        StagingFolder::sweep(bundle);
        ASSERT_THAT(namesIn(folder.url()), ElementsAre(name)) << "killed at system call " << call;
        putBundle("1");
    }
    EXPECT_GT(old, 20);
    EXPECT_GT(updated, 1);
}

TEST_F(BundleInstallerTest, AKilledSweepIsFinishedByTheNext) {
    for (int call = 0;; ++call) {
        update(BundleUse(bundle));
        const bool wasKilled = isKilledAtSystemCall([&] { StagingFolder::sweep(bundle); }, call);
        StagingFolder::sweep(bundle);
        ASSERT_THAT(namesIn(folder.url()), ElementsAre(name)) << "killed at system call " << call;
        ASSERT_EQ(wholeVersion(), "2");
        putBundle("1");
        if (!wasKilled) {
            return;
        }
    }
}

TEST_F(BundleInstallerTest, ASweepWithoutLeftoversMakesNothing) {
    StagingFolder::sweep(bundle);
    EXPECT_THAT(namesIn(folder.url()), ElementsAre(name));
}

TEST_F(BundleInstallerTest, AnArchiveThatCanBeContinuedOutlivesASweep) {
    folder.addFile(".Blankwell+.app.update/update.part", "half");
    std::filesystem::permissions(place.path(), std::filesystem::perms(0700));
    StagingFolder::sweep(bundle);
    EXPECT_EQ(folder.contents(".Blankwell+.app.update/update.part"), "half");
}

} // namespace
} // namespace blankwell
