#include "bench/application/ProcessFigures.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace blankwell {
namespace {

std::string folderOf(pid_t process) {
    return "/proc/" + std::to_string(process);
}

/// The number that follows `name` in a file of lines "NAME: NUMBER".
double figure(const std::string& path, const std::string& name) {
    std::ifstream file(path);
    for (std::string word; file >> word;) {
        double number = 0;
        if (word == name + ':' && file >> number) {
            return number;
        }
    }
    throw std::runtime_error("no " + name + " in " + path);
}

constexpr double kilobyte = 1024;

} // namespace

double waits(pid_t process) {
    double sum = 0;
    for (const auto& thread : std::filesystem::directory_iterator(folderOf(process) + "/task")) {
        sum += figure(thread.path().string() + "/status", "voluntary_ctxt_switches");
    }
    return sum;
}

double proportionalSize(pid_t process) {
    return figure(folderOf(process) + "/smaps_rollup", "Pss") * kilobyte;
}

double ownData(pid_t process) {
    return figure(folderOf(process) + "/smaps_rollup", "Anonymous") * kilobyte;
}

} // namespace blankwell
