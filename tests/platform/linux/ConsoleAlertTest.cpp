#include "platform/linux/ConsoleAlert.h"

#include "platform/linux/FileDescriptor.h"

#include <gtest/gtest.h>

#include <sys/mman.h>

namespace blankwell {
namespace {

struct ConsoleAlertTest : testing::Test {
    std::string shown() const {
        std::string text(1000, '\0');
        text.resize(static_cast<std::size_t>(::pread(file.get(), text.data(), text.size(), 0)));
        return text;
    }

    FileDescriptor file{::memfd_create("alert", MFD_CLOEXEC)};
    ConsoleAlert alert{file.get()};
};

TEST_F(ConsoleAlertTest, ShowsBothTextsAsLines) {
    EXPECT_FALSE(alert.wasShown());
    alert.runModal(
        {.messageText = "Could not create file", .informativeText = "The disk is full."});
    EXPECT_EQ(shown(), "Could not create file\nThe disk is full.\n");
    EXPECT_TRUE(alert.wasShown());
}

TEST_F(ConsoleAlertTest, AMissingTextTakesNoLine) {
    alert.runModal({.messageText = "Could not create file"});
    EXPECT_EQ(shown(), "Could not create file\n");
}

TEST_F(ConsoleAlertTest, ControlCharactersOfNamesDoNotReachTheTerminal) {
    alert.runModal({.messageText = "one\ttwo\nthree", .informativeText = "a\x1b]0;b\x07\r"});
    EXPECT_EQ(shown(), "one\ttwo\nthree\na\\x1b]0;b\\x07\\r\n");
}

TEST_F(ConsoleAlertTest, AnAlertThatNobodyCouldReadStillCounts) {
    file.reset();
    alert.runModal({.messageText = "Could not create file"});
    EXPECT_TRUE(alert.wasShown());
}

} // namespace
} // namespace blankwell
