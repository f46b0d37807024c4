#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

/// Becomes the same program with `arguments`, on a desktop of its own. Returns only on a failure.
void runOnOwnDesktop(const std::vector<char*>& arguments) {
    std::string withDesktop = BLANKWELL_WITH_DESKTOP;
    auto self = std::filesystem::read_symlink("/proc/self/exe").string();
    std::vector<char*> command{withDesktop.data(), self.data()};
    for (auto* const argument : arguments) {
        command.push_back(argument);
    }
    command.push_back(nullptr);
    ::execv(withDesktop.c_str(), command.data());
    std::perror(withDesktop.c_str());
}

} // namespace

/// The tests of these programs start and end file managers and change settings, so however they are
/// called, they run on a desktop of their own. One test for each call, as ctest does it: what a
/// test sets is not set back.
int main(int argumentCount, char** arguments) {
    const std::vector<char*> given(arguments + 1, arguments + argumentCount);
    testing::InitGoogleTest(&argumentCount, arguments);
    if (!GTEST_FLAG_GET(list_tests) && std::getenv("BLANKWELL_DESKTOP") == nullptr) {
        runOnOwnDesktop(given);
        return 125;
    }
    return RUN_ALL_TESTS();
}
