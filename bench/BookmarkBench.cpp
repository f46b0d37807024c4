#include "platform/linux/LinuxAccessScopes.h"
#include "platform/linux/LinuxBookmarks.h"
#include "platform/linux/ScopedFileSystem.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace blankwell {
namespace {

/// A folder on the disk with a folder in it, deleted at the end of its life.
class BenchFolder {
public:
    BenchFolder() {
        if (::mkdtemp(path_.data()) == nullptr) {
            throw std::runtime_error("no folder to measure in");
        }
        std::filesystem::create_directory(path_ + "/below");
    }

    ~BenchFolder() { std::filesystem::remove_all(path_); }

    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string path_ = "/var/tmp/blankwell-bench-XXXXXX";
};

/// A file system whose writes cost nothing, so that what is measured is the way to them.
class NoFileSystem : public FileSystem {
public:
    std::expected<bool, SystemError> itemExists(const FileUrl& /*url*/) const override {
        return false;
    }

    bool isDirectory(const FileUrl& /*url*/) const override { return false; }

    std::expected<void, SystemError>
    visitNames(const FileUrl& /*folder*/,
               const std::function<void(std::string_view)>& /*visitor*/) const override {
        return {};
    }

    std::expected<void, SystemError> writeNew(const FileUrl& /*url*/,
                                              std::span<const std::byte> /*bytes*/) override {
        return {};
    }

    std::expected<void, SystemError> copyNew(const FileUrl& /*source*/,
                                             const FileUrl& /*url*/) override {
        return {};
    }

    std::string displayName(const FileUrl& /*url*/) const override { return {}; }
};

void oneStatx(benchmark::State& state) {
    const BenchFolder folder;
    struct ::statx status{};
    for (auto each : state) {
        benchmark::DoNotOptimize(::statx(AT_FDCWD, folder.path().c_str(), 0,
                                         STATX_TYPE | STATX_INO | STATX_BTIME, &status));
    }
}

BENCHMARK(oneStatx);

void decodeBlob(benchmark::State& state) {
    const BenchFolder folder;
    LinuxAccessScopes scopes;
    const auto bookmark = LinuxBookmarks(scopes).create(FileUrl(folder.path())).value();
    for (auto each : state) {
        benchmark::DoNotOptimize(decodeBookmark(bookmark));
    }
}

BENCHMARK(decodeBlob);

void resolveUnchangedFolder(benchmark::State& state) {
    const BenchFolder folder;
    LinuxAccessScopes scopes;
    LinuxBookmarks bookmarks(scopes);
    const auto bookmark = bookmarks.create(FileUrl(folder.path())).value();
    for (auto each : state) {
        benchmark::DoNotOptimize(bookmarks.resolve(bookmark));
    }
}

BENCHMARK(resolveUnchangedFolder);

void createBookmark(benchmark::State& state) {
    const BenchFolder folder;
    LinuxAccessScopes scopes;
    LinuxBookmarks bookmarks(scopes);
    for (auto each : state) {
        benchmark::DoNotOptimize(bookmarks.create(FileUrl(folder.path())));
    }
}

BENCHMARK(createBookmark);

void resolveRenamedFolder(benchmark::State& state) {
    const BenchFolder folder;
    LinuxAccessScopes scopes;
    LinuxBookmarks bookmarks(scopes);
    const auto bookmark = bookmarks.create(FileUrl(folder.path() + "/below")).value();
    std::filesystem::rename(folder.path() + "/below", folder.path() + "/renamed");
    for (auto each : state) {
        benchmark::DoNotOptimize(bookmarks.resolve(bookmark));
    }
}

BENCHMARK(resolveRenamedFolder);

void scopedWriteTo(benchmark::State& state, const std::string& below) {
    const BenchFolder folder;
    LinuxAccessScopes scopes;
    scopes.admit(FileUrl(folder.path()));
    const AccessScope scope(scopes, FileUrl(folder.path()));
    NoFileSystem files;
    ScopedFileSystem scoped(files, scopes);
    const FileUrl url(folder.path() + below);
    for (auto each : state) {
        benchmark::DoNotOptimize(scoped.writeNew(url, {}));
    }
}

void scopedWriteInGrantedFolder(benchmark::State& state) {
    scopedWriteTo(state, "/Untitled.txt");
}

BENCHMARK(scopedWriteInGrantedFolder);

void scopedWriteBelowGrantedFolder(benchmark::State& state) {
    scopedWriteTo(state, "/below/Untitled.txt");
}

BENCHMARK(scopedWriteBelowGrantedFolder);

} // namespace
} // namespace blankwell

BENCHMARK_MAIN();
