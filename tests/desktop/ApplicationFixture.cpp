#include "desktop/ApplicationFixture.h"

#include "desktop/AccountHome.h"
#include "desktop/Desktop.h"
#include "support/PrivateMounts.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace blankwell {
namespace {

std::string logFile() {
    return desktopHome().appending("log").path();
}

/// Leaves the application to write its log where the test finds it.
void hideJournal() {
    if (const std::string journal = "/run/systemd/journal"; std::filesystem::exists(journal)) {
        mountEmptyFolder(journal);
    }
}

bool isRunning() {
    return isOnBus(std::string(bundleIdentifier));
}

} // namespace

ApplicationFixture::ApplicationFixture() {
    const auto preferences = desktopHome().appending(".config").path();
    std::filesystem::remove_all(preferences);
    ::setenv("XFCE_PANEL_MIGRATE_DEFAULT", "1", 1);
    moveAccountHome();
    hideJournal();
    domains = std::make_unique<XdgPreferenceDomains>(preferences, bundleIdentifier);
    settings = std::make_unique<AppSettings>(sharedDefaults(*domains), log);
}

ApplicationFixture::~ApplicationFixture() {
    application.reset();
    EXPECT_TRUE(eventually([] { return !isRunning(); }));
}

void ApplicationFixture::start(const Arguments& arguments) {
    Arguments command{"sh", "-c", R"(exec "$0" "$@" 2>>)" + logFile(), BLANKWELL_APPLICATION};
    command.insert(command.end(), arguments.begin(), arguments.end());
    application.emplace(command);
    ASSERT_TRUE(eventually(isRunning));
}

std::string ApplicationFixture::statusOf(const std::string& arguments) {
    return outputOf(
        {"sh", "-c",
         std::string(BLANKWELL_APPLICATION) + " " + arguments + " >/dev/null; printf $?"});
}

std::ptrdiff_t ApplicationFixture::logged(std::string_view text) {
    std::ifstream file(logFile());
    std::ptrdiff_t count = 0;
    for (std::string line; std::getline(file, line);) {
        count += line.find(text) == std::string::npos ? 0 : 1;
    }
    return count;
}

std::string requestUrl(const FileUrl& folder, const std::string& type) {
    return "blankwellplus://create?type=" + type + "&directory=" + folder.path();
}

bool windowIsGone(const std::string& title) {
    return eventually([&] {
        const auto titles = windowTitles();
        return std::ranges::find(titles, title) == titles.end();
    });
}

std::string statesOf(const std::string& title) {
    return outputOf({"xprop", "-name", title, "_NET_WM_STATE", "_NET_WM_DESKTOP"});
}

bool fileAppears(const FileUrl& file) {
    return eventually([&] { return std::filesystem::exists(file.path()); });
}

} // namespace blankwell
