#include "desktop/OwnDesktop.h"

#include <gtest/gtest.h>

#include <vector>

/// The tests of these programs start and end file managers and change settings, so however they are
/// called, they run on a desktop of their own. One test for each call, as ctest does it: what a
/// test sets is not set back.
int main(int argumentCount, char** arguments) {
    const std::vector<char*> given(arguments + 1, arguments + argumentCount);
    testing::InitGoogleTest(&argumentCount, arguments);
    if (!GTEST_FLAG_GET(list_tests) && !blankwell::isOnOwnDesktop()) {
        blankwell::runOnOwnDesktop(given);
        return 125;
    }
    return RUN_ALL_TESTS();
}
