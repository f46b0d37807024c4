#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

/// The tests of this program start and end file managers, so they run on a desktop of their own,
/// however the program is called: it calls itself again inside `with-desktop`.
int main(int argumentCount, char** arguments) {
    std::vector<char*> again(arguments, arguments + argumentCount);
    testing::InitGoogleTest(&argumentCount, arguments);
    if (GTEST_FLAG_GET(list_tests) || std::getenv("BLANKWELL_DESKTOP") != nullptr) {
        return RUN_ALL_TESTS();
    }
    auto self = std::filesystem::read_symlink("/proc/self/exe").string();
    auto withDesktop = std::string(BLANKWELL_WITH_DESKTOP);
    again[0] = self.data();
    again.insert(again.begin(), withDesktop.data());
    again.push_back(nullptr);
    ::execv(withDesktop.c_str(), again.data());
    std::perror(withDesktop.c_str());
    return 125;
}
