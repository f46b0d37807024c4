#include "access/FolderAccess.h"
#include "access/SecurityScopedBookmarkStore.h"
#include "bench/Paired.h"
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
#include <cstdint>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

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
        // A domain that was only just written is read anew each time, since the time stamp of its
        // file may not change with the next write yet. No user meets that.
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
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
    IcuTextOrder order_{"en"};
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

constexpr auto ext4 = "/var/tmp";
constexpr auto tmpfs = "/dev/shm";

void writeExclusively(const std::string& path) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    benchmark::DoNotOptimize(::write(file, "{}\n", 3));
    ::close(file);
}

void copyExclusively(const std::string& source, const std::string& path) {
    static std::array<char, 32 * 1024> buffer;
    const int from = ::open(source.c_str(), O_RDONLY | O_CLOEXEC);
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    ssize_t count = 0;
    while ((count = ::read(from, buffer.data(), buffer.size())) > 0) {
        benchmark::DoNotOptimize(::write(file, buffer.data(), static_cast<std::size_t>(count)));
    }
    ::close(from);
    ::close(file);
}

template <typename Floor>
void measureRoad(benchmark::State& state, const char* disk, const char* typeID, Floor floor) {
    const ScratchFolder folder(disk);
    Road road(folder.url());
    const auto& type = *FileTypeCatalog::definition(typeID);
    const auto path = folder.at("Untitled." + type.fileExtension);
    measurePaired(
        state, [&] { benchmark::DoNotOptimize(road.create(folder.url(), type)); },
        [&] { floor(path); }, [&] { return ::unlink(path.c_str()) == 0; });
}

void createText(benchmark::State& state, const char* disk) {
    measureRoad(state, disk, "json", writeExclusively);
}

void createDocument(benchmark::State& state, const char* disk) {
    const BundleDirectory bundle(*BundleDirectory::folderOfRunningProgram());
    const auto source = bundle.resource("blank", "docx")->path();
    measureRoad(state, disk, "docx",
                [&](const std::string& path) { copyExclusively(source, path); });
}

std::string numberedName(std::int64_t number) {
    return number == 1 ? "Untitled.txt" : "Untitled " + std::to_string(number) + ".txt";
}

/// A folder in which the first `count` names are taken.
void fill(const ScratchFolder& folder, std::int64_t count) {
    for (std::int64_t number = 1; number <= count; ++number) {
        const FileDescriptor file(
            ::open(folder.at(numberedName(number)).c_str(), O_CREAT | O_WRONLY, 0666));
    }
}

void nameAmong3(benchmark::State& state) {
    const ScratchFolder folder(ext4);
    fill(folder, 3);
    std::vector<std::string> paths;
    for (std::int64_t number = 1; number <= 4; ++number) {
        paths.push_back(folder.at(numberedName(number)));
    }
    const LinuxFileSystem files;
    struct stat status{};
    measurePaired(
        state,
        [&] { benchmark::DoNotOptimize(uniqueFileUrl(files, folder.url(), "Untitled", "txt")); },
        [&] {
            for (const auto& path : paths) {
                benchmark::DoNotOptimize(::lstat(path.c_str(), &status));
            }
        });
}

void nameAmong10000(benchmark::State& state) {
    const ScratchFolder folder(ext4);
    fill(folder, 10'000);
    const LinuxFileSystem files;
    std::array<char, 64 * 1024> buffer{};
    measurePaired(
        state,
        [&] { benchmark::DoNotOptimize(uniqueFileUrl(files, folder.url(), "Untitled", "txt")); },
        [&] {
            const FileDescriptor directory(
                ::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
            while (::getdents64(directory.get(), buffer.data(), buffer.size()) > 0) {
                benchmark::DoNotOptimize(buffer);
            }
        });
}

BENCHMARK_CAPTURE(createText, ext4, ext4)->Iterations(20'000);
BENCHMARK_CAPTURE(createText, tmpfs, tmpfs)->Iterations(20'000);
BENCHMARK_CAPTURE(createDocument, ext4, ext4)->Iterations(20'000);
BENCHMARK_CAPTURE(createDocument, tmpfs, tmpfs)->Iterations(20'000);
BENCHMARK(nameAmong3)->Iterations(50'000);
BENCHMARK(nameAmong10000)->Iterations(300);

} // namespace
} // namespace blankwell

BENCHMARK_MAIN();
