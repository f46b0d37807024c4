#include "app/application/LoginItemWatch.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QTest>

#include <filesystem>
#include <optional>

namespace blankwell {
namespace {

constexpr auto entry = "config/autostart/app.example.desktop";

struct LoginItemWatchTest : testing::Test {
    /// Whether the watch tells of something; forgets that afterwards.
    bool isTold() {
        const bool result = QTest::qWaitFor([this] { return timesTold > 0; }, 2000);
        QTest::qWait(20); // one change can be told of more than once
        timesTold = 0;
        return result;
    }

    void watch() {
        watched.emplace(folder.at("config"), "app.example", [this] { ++timesTold; });
    }

    TemporaryFolder folder;
    FileUrl config = folder.addFolder("config");
    int timesTold = 0;
    std::optional<LoginItemWatch> watched;
};

TEST_F(LoginItemWatchTest, AnEntryIsSeenThatComesWithItsFolder) {
    watch();
    folder.addFolder("config/autostart");
    EXPECT_TRUE(isTold());
    folder.addFile(entry);
    EXPECT_TRUE(isTold());
}

TEST_F(LoginItemWatchTest, AnEntryIsSeenThatIsReplacedWrittenAndRemoved) {
    folder.addFile(entry, "[Desktop Entry]");
    watch();
    std::filesystem::rename(folder.addFile("config/autostart/new", "x").path(),
                            folder.at(entry).path());
    EXPECT_TRUE(isTold());
    folder.addFile(entry, "Hidden=true");
    EXPECT_TRUE(isTold());
    std::filesystem::remove(folder.at(entry).path());
    EXPECT_TRUE(isTold());
}

TEST_F(LoginItemWatchTest, AFolderIsSeenThatGoesAndComesBack) {
    folder.addFile(entry);
    watch();
    std::filesystem::remove_all(folder.at("config/autostart").path());
    EXPECT_TRUE(isTold());
    folder.addFile(entry);
    EXPECT_TRUE(isTold());
    std::filesystem::remove(folder.at(entry).path());
    EXPECT_TRUE(isTold());
}

TEST_F(LoginItemWatchTest, TheSettingsBesideTheFolderAreNotWatched) {
    folder.addFolder("config/autostart");
    watch();
    folder.addFile("config/settings");
    QTest::qWait(50);
    EXPECT_EQ(timesTold, 0);
}

} // namespace
} // namespace blankwell
