#include "platform/linux/TerminalAlert.h"

#include "platform/linux/FileDescriptor.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <string_view>

namespace blankwell {
namespace {

const AlertContent question{
    .messageText = "Go?", .informativeText = "It goes.", .buttons = {"Go On", "Perhaps", "Cancel"}};

struct TerminalAlertTest : testing::Test {
    static std::string contentsOf(const FileDescriptor& file) {
        std::string text(1000, '\0');
        text.resize(static_cast<std::size_t>(::pread(file.get(), text.data(), text.size(), 0)));
        return text;
    }

    /// What the user has typed by the time the question comes.
    void type(std::string_view text) {
        ASSERT_EQ(::write(input.get(), text.data(), text.size()), std::ssize(text));
        ::lseek(input.get(), 0, SEEK_SET);
    }

    std::size_t answerTo(std::string_view text) {
        input = FileDescriptor(::memfd_create("input", MFD_CLOEXEC));
        type(text);
        return TerminalAlert(TerminalAlert::Questions::asked, input.get(), output.get())
            .runModal(question);
    }

    FileDescriptor input{::memfd_create("input", MFD_CLOEXEC)};
    FileDescriptor output{::memfd_create("output", MFD_CLOEXEC)};
};

TEST_F(TerminalAlertTest, AsksForTheFirstButton) {
    answerTo("y\n");
    EXPECT_EQ(contentsOf(output), "Go?\nIt goes.\n\nGo On? [y/N] ");
}

TEST_F(TerminalAlertTest, OnlyAClearYesPressesIt) {
    for (const auto* yes : {"y\n", "Y\n", "yes\n", "Yes\n", "YES\n", "y"}) {
        EXPECT_EQ(answerTo(yes), 0U) << yes;
    }
    for (const auto* no : {"", "\n", "n\n", "yep\n", " y\n", "no\ny\n", "Go On\n"}) {
        EXPECT_EQ(answerTo(no), 2U) << no;
    }
}

TEST_F(TerminalAlertTest, ReadsNoMoreThanTheAnswer) {
    answerTo("n\nnext");
    char next = 0;
    ASSERT_EQ(::read(input.get(), &next, 1), 1);
    EXPECT_EQ(next, 'n');
    EXPECT_EQ(::lseek(input.get(), 0, SEEK_CUR), 3);
}

TEST_F(TerminalAlertTest, AQuestionThatIsAnsweredIsNotShown) {
    TerminalAlert alert(TerminalAlert::Questions::answered, -1, output.get());
    EXPECT_EQ(alert.runModal(question), 0U);
    EXPECT_EQ(contentsOf(output), "");
    EXPECT_FALSE(alert.hasTold());
}

TEST_F(TerminalAlertTest, WhatIsOnlyToldAsksNothing) {
    for (const auto questions :
         {TerminalAlert::Questions::asked, TerminalAlert::Questions::answered}) {
        TerminalAlert alert(questions, -1, output.get());
        EXPECT_EQ(alert.runModal({.messageText = "Full."}), 0U);
        EXPECT_TRUE(alert.hasTold());
    }
    EXPECT_EQ(contentsOf(output), "Full.\nFull.\n");
}

TEST_F(TerminalAlertTest, OnlyAtATerminalIsThereSomebodyToAsk) {
    EXPECT_FALSE(TerminalAlert::canAsk(input.get(), output.get()));
    const FileDescriptor terminal(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    ASSERT_TRUE(terminal);
    EXPECT_TRUE(TerminalAlert::canAsk(terminal.get(), terminal.get()));
    EXPECT_FALSE(TerminalAlert::canAsk(terminal.get(), output.get()));
    EXPECT_FALSE(TerminalAlert::canAsk(input.get(), terminal.get()));
}

} // namespace
} // namespace blankwell
