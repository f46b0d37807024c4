#include "filetypes/FileCreator.h"

#include "filetypes/FileTypeCatalog.h"
#include "platform/linux/DirectFileCoordinator.h"
#include "platform/linux/LinuxFileSystem.h"
#include "support/EventLog.h"
#include "support/FakeAccessScopes.h"
#include "support/FakeBundle.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <set>

namespace blankwell {
namespace {

constexpr int processes = 8;
constexpr int filesPerProcess = 1000;
constexpr auto page = "{}\n";

/// Makes files in `folder` as fast as it can, and writes the path of each, or the error, as a line
/// of the file `report`.
void createMany(const FileUrl& folder, const std::string& report) {
    EventLog events;
    LinuxFileSystem files;
    DirectFileCoordinator coordinator;
    const FakeBundle bundle;
    FakeAccessScopes scopes(events);
    const FileCreator creator(files, coordinator, bundle, scopes);
    std::ofstream lines(report);
    for (int count = 0; count < filesPerProcess; ++count) {
        const auto created = creator.createFile(*FileTypeCatalog::definition("json"), folder);
        lines << (created ? "made " + created->path() : "failed " + created.error().description())
              << '\n';
    }
}

struct Reports {
    std::multiset<std::string> made;
    std::vector<std::string> failures;

    void read(const std::string& report) {
        std::ifstream lines(report);
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("made ")) {
                made.insert(line.substr(5));
            } else {
                failures.push_back(line);
            }
        }
    }
};

TEST(ConcurrentCreationTest, EveryReportedFileExistsOnceWithItsOwnBytes) {
    const TemporaryFolder scratch;
    const auto folder = scratch.addFolder("shared");
    std::vector<::pid_t> children;
    for (int process = 0; process < processes; ++process) {
        const auto child = ::fork();
        if (child == 0) {
            createMany(folder, scratch.at("report " + std::to_string(process)).path());
            ::_exit(0);
        }
        children.push_back(child);
    }
    for (const auto child : children) {
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0);
    }

    Reports reports;
    for (int process = 0; process < processes; ++process) {
        reports.read(scratch.at("report " + std::to_string(process)).path());
    }
    // Each attempt is accounted for, and no file was reported by two.
    EXPECT_EQ(reports.made.size() + reports.failures.size(),
              static_cast<std::size_t>(processes * filesPerProcess));
    const std::set<std::string> distinct(reports.made.begin(), reports.made.end());
    EXPECT_EQ(distinct.size(), reports.made.size());

    std::set<std::string> onDisk;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        onDisk.insert(entry.path().string());
        EXPECT_EQ(scratch.contents("shared/" + entry.path().filename().string()), page);
    }
    EXPECT_EQ(onDisk, distinct);
    // A failure is a name that somebody else took first, and says so.
    EXPECT_THAT(reports.failures, testing::Each(testing::EndsWith("File exists.")));
}

} // namespace
} // namespace blankwell
