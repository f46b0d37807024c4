#include "platform/linux/DetachedProgram.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include <unistd.h>

namespace blankwell {
namespace {

struct DetachedProgramTest : testing::Test {
    /// What the started `script` has written to the file "told", which it moves there when it has.
    std::string toldBy(const std::string& script) const {
        EXPECT_TRUE(
            startDetached({"sh", "-c", "(" + script + ") > part; mv part told"}, folder.url()));
        for (int turn = 0; turn < 1000 && folder.contents("told") == "(none)"; ++turn) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return folder.contents("told");
    }

    TemporaryFolder folder;
};

TEST_F(DetachedProgramTest, BeginsInTheFolder) {
    EXPECT_EQ(toldBy("pwd -P"), folder.url().path() + '\n');
}

TEST_F(DetachedProgramTest, LeadsASessionOfItsOwn) {
    EXPECT_EQ(toldBy("test $(cut -d ' ' -f 6 /proc/$$/stat) = $$ && echo yes"), "yes\n");
}

TEST_F(DetachedProgramTest, IsNobodysChild) {
    EXPECT_EQ(toldBy("test $(cut -d ' ' -f 4 /proc/$$/stat) != " + std::to_string(::getpid()) +
                     " && echo yes"),
              "yes\n");
}

TEST_F(DetachedProgramTest, WithoutAProgramOrAFolderNothingStarts) {
    EXPECT_FALSE(startDetached({"blankwell-no-such-program"}));
    EXPECT_FALSE(startDetached({"true"}, folder.at("missing")));
    EXPECT_TRUE(startDetached({"true"}));
}

} // namespace
} // namespace blankwell
