#include "bench/Paired.h"
#include "bench/ScratchFolder.h"
#include "platform/linux/LinuxAccessScopes.h"
#include "platform/linux/LinuxBookmarks.h"
#include "platform/linux/ScopedFileSystem.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

namespace blankwell {
namespace {

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

void decodeBlob(benchmark::State& state) {
    const ScratchFolder folder;
    LinuxAccessScopes scopes;
    const auto bookmark = LinuxBookmarks(scopes).create(FileUrl(folder.path())).value();
    for (auto each : state) {
        benchmark::DoNotOptimize(decodeBookmark(bookmark));
    }
}

BENCHMARK(decodeBlob);

void resolveUnchangedFolder(benchmark::State& state) {
    const ScratchFolder folder;
    LinuxAccessScopes scopes;
    LinuxBookmarks bookmarks(scopes);
    const auto bookmark = bookmarks.create(FileUrl(folder.path())).value();
    struct ::statx status{};
    measurePaired(
        state, [&] { benchmark::DoNotOptimize(bookmarks.resolve(bookmark)); },
        [&] {
            benchmark::DoNotOptimize(::statx(AT_FDCWD, folder.path().c_str(), 0,
                                             STATX_TYPE | STATX_INO | STATX_BTIME, &status));
        });
}

BENCHMARK(resolveUnchangedFolder)->Iterations(50'000);

void createBookmark(benchmark::State& state) {
    const ScratchFolder folder;
    LinuxAccessScopes scopes;
    LinuxBookmarks bookmarks(scopes);
    for (auto each : state) {
        benchmark::DoNotOptimize(bookmarks.create(FileUrl(folder.path())));
    }
}

BENCHMARK(createBookmark);

void resolveRenamedFolder(benchmark::State& state) {
    const ScratchFolder folder;
    LinuxAccessScopes scopes;
    LinuxBookmarks bookmarks(scopes);
    std::filesystem::create_directory(folder.at("before"));
    const auto bookmark = bookmarks.create(FileUrl(folder.at("before"))).value();
    std::filesystem::rename(folder.at("before"), folder.at("after"));
    for (auto each : state) {
        benchmark::DoNotOptimize(bookmarks.resolve(bookmark));
    }
}

BENCHMARK(resolveRenamedFolder);

void scopedWriteTo(benchmark::State& state, const std::string& below) {
    const ScratchFolder folder;
    std::filesystem::create_directory(folder.at("below"));
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
