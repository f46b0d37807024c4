#include "access/FolderAccess.h"
#include "access/SecurityScopedBookmarkStore.h"
#include "bench/ScratchFolder.h"
#include "filetypes/FileCreator.h"
#include "filetypes/FileTypeCatalog.h"
#include "filetypes/UniqueFileUrl.h"
#include "platform/Identifiers.h"
#include "platform/linux/BundleDirectory.h"
#include "platform/linux/DirectFileCoordinator.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/IcuTextOrder.h"
#include "platform/linux/LinuxAccessScopes.h"
#include "platform/linux/LinuxBookmarks.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/linux/NoApplication.h"
#include "platform/linux/NoOpenPanel.h"
#include "platform/linux/ProcessEnvironment.h"
#include "platform/linux/ScopedFileSystem.h"
#include "platform/linux/StandardErrorLog.h"
#include "platform/linux/UserDatabaseAccount.h"
#include "platform/linux/XdgPreferenceDomains.h"
#include "platform/linux/XdgWellKnownFolders.h"

#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <string>

namespace blankwell {
namespace {

/// The whole road of creation on the real adapters, in a sandboxed process with one granted folder.
class Road {
public:
    explicit Road(const FileUrl& root) : config_(root.path()) {
        ::setenv("APP_SANDBOX_CONTAINER_ID", "bench", 1);
        if (!store_.saveBookmark(root, root)) {
            std::abort();
        }
    }

    std::expected<FileUrl, CreationError> create(const FileUrl& folder,
                                                 const FileTypeDefinition& type) {
        return access_.createWithFolderAccess(folder, AccessPrompt::forbidden, type);
    }

private:
    ScratchFolder config_;
    ProcessEnvironment environment_;
    UserDatabaseAccount account_{environment_};
    XdgWellKnownFolders folders_{std::nullopt};
    StandardErrorLog log_;
    IcuTextOrder order_ = *IcuTextOrder::forLocale("en");
    XdgPreferenceDomains domains_{config_.path(), bundleIdentifier};
    LinuxAccessScopes scopes_;
    LinuxBookmarks bookmarks_{scopes_};
    SecurityScopedBookmarkStore store_{domains_, bookmarks_, order_, log_};
    LinuxFileSystem disk_;
    ScopedFileSystem files_{disk_, scopes_};
    DirectFileCoordinator coordinator_;
    BundleDirectory bundle_{*BundleDirectory::folderOfRunningProgram()};
    FileCreator creator_{files_, coordinator_, bundle_, scopes_};
    NoOpenPanel openPanel_;
    NoApplication application_;
    FolderAccess access_{{
        .store = store_,
        .creator = creator_,
        .fileSystem = disk_,
        .scopes = scopes_,
        .openPanel = openPanel_,
        .application = application_,
        .account = account_,
        .environment = environment_,
        .folders = folders_,
    }};
};

/// Times `make` alone, which makes the file `path`; taking it away again is not counted.
template <typename Make>
void measureMaking(benchmark::State& state, const std::string& path, Make make) {
    for (auto each : state) {
        const auto start = std::chrono::steady_clock::now();
        const bool isMade = make();
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(elapsed.count());
        if (!isMade || ::unlink(path.c_str()) != 0) {
            state.SkipWithError("the file was not made");
            break;
        }
    }
}

void createThroughTheRoad(benchmark::State& state, const char* disk, const char* typeID) {
    const ScratchFolder folder(disk);
    Road road(folder.url());
    const auto& type = *FileTypeCatalog::definition(typeID);
    measureMaking(state, folder.at("Untitled." + type.fileExtension),
                  [&] { return road.create(folder.url(), type).has_value(); });
}

void exclusiveWrite(benchmark::State& state, const char* disk) {
    const ScratchFolder folder(disk);
    const auto path = folder.at("Untitled.json");
    measureMaking(state, path, [&] {
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        const auto written = ::write(file, "{}\n", 3);
        return ::close(file) == 0 && written == 3;
    });
}

void exclusiveCopy(benchmark::State& state, const char* disk) {
    const ScratchFolder folder(disk);
    const BundleDirectory bundle(*BundleDirectory::folderOfRunningProgram());
    const auto source = bundle.resource("blank", "docx")->path();
    const auto path = folder.at("Untitled.docx");
    std::array<char, 32 * 1024> buffer{};
    measureMaking(state, path, [&] {
        const int from = ::open(source.c_str(), O_RDONLY | O_CLOEXEC);
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        ssize_t count = 0;
        while ((count = ::read(from, buffer.data(), buffer.size())) > 0) {
            if (::write(file, buffer.data(), static_cast<std::size_t>(count)) != count) {
                return false;
            }
        }
        return ::close(from) == 0 && ::close(file) == 0 && count == 0;
    });
}

constexpr auto ext4 = "/var/tmp";
constexpr auto tmpfs = "/dev/shm";

BENCHMARK_CAPTURE(createThroughTheRoad, ext4, ext4, "json")->UseManualTime();
BENCHMARK_CAPTURE(exclusiveWrite, ext4, ext4)->UseManualTime();
BENCHMARK_CAPTURE(createThroughTheRoad, tmpfs, tmpfs, "json")->UseManualTime();
BENCHMARK_CAPTURE(exclusiveWrite, tmpfs, tmpfs)->UseManualTime();
BENCHMARK_CAPTURE(createThroughTheRoad, docx_ext4, ext4, "docx")->UseManualTime();
BENCHMARK_CAPTURE(exclusiveCopy, ext4, ext4)->UseManualTime();
BENCHMARK_CAPTURE(createThroughTheRoad, docx_tmpfs, tmpfs, "docx")->UseManualTime();
BENCHMARK_CAPTURE(exclusiveCopy, tmpfs, tmpfs)->UseManualTime();

/// A folder in which the first `count` names are taken.
class CrowdedFolder {
public:
    explicit CrowdedFolder(int count) : folder_(ext4) {
        for (int number = 1; number <= count; ++number) {
            const auto name =
                number == 1 ? "Untitled.txt" : "Untitled " + std::to_string(number) + ".txt";
            const FileDescriptor file(::open(folder_.at(name).c_str(), O_CREAT | O_WRONLY, 0666));
        }
    }

    [[nodiscard]] const ScratchFolder& folder() const { return folder_; }

private:
    ScratchFolder folder_;
};

void nameAmongTaken(benchmark::State& state) {
    const CrowdedFolder crowded(static_cast<int>(state.range(0)));
    const LinuxFileSystem files;
    for (auto each : state) {
        benchmark::DoNotOptimize(uniqueFileUrl(files, crowded.folder().url(), "Untitled", "txt"));
    }
}

void oneDirectoryPass(benchmark::State& state) {
    const CrowdedFolder crowded(static_cast<int>(state.range(0)));
    std::array<char, 64 * 1024> buffer{};
    for (auto each : state) {
        const FileDescriptor folder(
            ::open(crowded.folder().path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        while (::getdents64(folder.get(), buffer.data(), buffer.size()) > 0) {
            benchmark::DoNotOptimize(buffer);
        }
    }
}

void lookUpEachName(benchmark::State& state) {
    const CrowdedFolder crowded(static_cast<int>(state.range(0)));
    std::vector<std::string> paths{crowded.folder().at("Untitled.txt")};
    for (int number = 2; number <= state.range(0) + 1; ++number) {
        paths.push_back(crowded.folder().at("Untitled " + std::to_string(number) + ".txt"));
    }
    struct stat status{};
    for (auto each : state) {
        for (const auto& path : paths) {
            benchmark::DoNotOptimize(::lstat(path.c_str(), &status));
        }
    }
}

BENCHMARK(nameAmongTaken)->Arg(3);
BENCHMARK(lookUpEachName)->Arg(3);
BENCHMARK(nameAmongTaken)->Arg(10'000);
BENCHMARK(oneDirectoryPass)->Arg(10'000);

} // namespace
} // namespace blankwell

BENCHMARK_MAIN();
