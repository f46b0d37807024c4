#include "platform/linux/FileManagerProcesses.h"

#include "platform/linux/SessionAddress.h"

#include <fmt/core.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>

namespace blankwell {
namespace {

struct ProgramName {
    std::string_view name;
    FileManager fileManager;
};

constexpr std::array programNames = {
    ProgramName{"nautilus", FileManager::nautilus},
    ProgramName{"dolphin", FileManager::dolphin},
    ProgramName{"thunar", FileManager::thunar},
    ProgramName{"Thunar", FileManager::thunar},
    ProgramName{"nemo", FileManager::nemo},
    ProgramName{"caja", FileManager::caja},
    ProgramName{"pcmanfm-qt", FileManager::pcmanfmQt},
};

std::optional<pid_t> processId(const std::string& folderName) {
    pid_t id = 0;
    const auto* const end = folderName.data() + folderName.size();
    const auto [rest, error] = std::from_chars(folderName.data(), end, id);
    return error == std::errc() && rest == end ? std::optional(id) : std::nullopt;
}

bool isOwn(const std::string& processFolder) {
    struct stat status{};
    return ::stat(processFolder.c_str(), &status) == 0 && status.st_uid == ::getuid();
}

SessionAddress sessionOf(const std::string& processFolder) {
    std::ifstream file(processFolder + "/environ", std::ios::binary);
    return SessionAddress::parse(std::string(std::istreambuf_iterator<char>(file), {}));
}

std::optional<FileManagerProcess> fileManagerIn(pid_t id, const SessionAddress& session) {
    const auto folder = fmt::format("/proc/{}", id);
    std::error_code error;
    const auto program = std::filesystem::read_symlink(folder + "/exe", error);
    const auto fileManager = fileManagerOfProgram(program.native());
    // Held before the rest is looked at, so that all of it is about the process that is held.
    auto handle = fileManager ? ProcessHandle::open(id) : std::nullopt;
    if (!handle || std::filesystem::read_symlink(folder + "/exe", error) != program ||
        !isOwn(folder) || !session.isSameSession(sessionOf(folder)) || handle->hasEnded()) {
        return std::nullopt;
    }
    return FileManagerProcess{*fileManager, static_cast<std::uint32_t>(id), *std::move(handle)};
}

} // namespace

std::optional<FileManager> fileManagerOfProgram(std::string_view path) {
    // What the kernel adds once the file is replaced, by an update for example.
    constexpr std::string_view deleted = " (deleted)";
    if (path.ends_with(deleted)) {
        path.remove_suffix(deleted.size());
    }
    const auto name = path.substr(path.find_last_of('/') + 1);
    const auto* const found = std::ranges::find(programNames, name, &ProgramName::name);
    return found == programNames.end() ? std::nullopt : std::optional(found->fileManager);
}

std::vector<FileManagerProcess> runningFileManagers() {
    const auto session = SessionAddress::own();
    std::vector<FileManagerProcess> processes;
    std::error_code error;
    for (std::filesystem::directory_iterator entry("/proc", error), end; !error && entry != end;
         entry.increment(error)) {
        const auto id = processId(entry->path().filename().native());
        if (auto process = id ? fileManagerIn(*id, session) : std::nullopt) {
            processes.push_back(*std::move(process));
        }
    }
    return processes;
}

} // namespace blankwell
