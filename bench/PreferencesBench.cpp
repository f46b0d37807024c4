#include "bench/Paired.h"
#include "bench/ScratchFolder.h"
#include "platform/linux/PlistDomain.h"

#include <benchmark/benchmark.h>
#include <fmt/core.h>

#include <array>
#include <chrono>
#include <string>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace blankwell {
namespace {

/// A folder with the preference domain of a normal user: the settings and a dozen granted folders.
class NormalUser {
public:
    NormalUser() {
        fill();
        // Until then the time stamp is too young to be relied on, and reads would read the file.
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }

    [[nodiscard]] PlistDomain domain() const { return PlistDomain(folder_.path(), "domain"); }

    [[nodiscard]] std::string file() const { return folder_.at("domain.plist"); }

private:
    void fill() const {
        auto filled = domain();
        const std::vector<std::string> types{"txt",   "md",   "rtf",  "csv", "json", "yaml",
                                             "xml",   "html", "css",  "js",  "sh",   "py",
                                             "swift", "docx", "xlsx", "pptx"};
        bool saved = filled.set("enabledFileTypeIDs", types) && filled.set("fileTypeOrder", types);
        for (const auto* key : {"appPresence", "directShortcutDestination"}) {
            saved = filled.set(key, "desktop") && saved;
        }
        for (const auto* key : {"quickCreateShortcut", "fileTypeShortcuts"}) {
            saved = filled.set(key, Bytes(40)) && saved;
        }
        saved = filled.set("hasCompletedOnboarding", true) && saved;
        for (int number = 0; number < 13; ++number) {
            saved =
                filled.set(fmt::format("securityScopedFolderBookmark./home/u/Folder {}", number),
                           Bytes(344)) &&
                saved;
        }
        if (!saved) {
            std::abort();
        }
    }

    ScratchFolder folder_;
};

void loadDomain(benchmark::State& state) {
    const NormalUser user;
    const auto file = user.file();
    std::array<char, 65536> buffer{};
    measurePaired(
        state, [&] { benchmark::DoNotOptimize(user.domain().value("appPresence")); },
        [&] {
            const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
            benchmark::DoNotOptimize(::read(descriptor, buffer.data(), buffer.size()));
            ::close(descriptor);
        });
}

void readUnchanged(benchmark::State& state) {
    const NormalUser user;
    const auto domain = user.domain();
    const auto file = user.file();
    struct stat status{};
    measurePaired(
        state, [&] { benchmark::DoNotOptimize(domain.value("hasCompletedOnboarding")); },
        [&] { benchmark::DoNotOptimize(::stat(file.c_str(), &status)); });
}

void listTheFoldersWarm(benchmark::State& state) {
    const NormalUser user;
    const auto domain = user.domain();
    for (auto _ : state) {
        benchmark::DoNotOptimize(domain.keys("securityScopedFolderBookmark."));
    }
}

void saveAKey(benchmark::State& state) {
    const NormalUser user;
    auto domain = user.domain();
    bool value = false;
    for (auto _ : state) {
        value = !value;
        if (!domain.set("hasCompletedOnboarding", value)) {
            state.SkipWithError("the domain could not be saved");
        }
    }
}

BENCHMARK(loadDomain)->Iterations(5'000);
BENCHMARK(readUnchanged)->Iterations(50'000);
BENCHMARK(listTheFoldersWarm);
BENCHMARK(saveAKey);

} // namespace
} // namespace blankwell

BENCHMARK_MAIN();
