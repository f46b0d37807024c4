#pragma once

#include "platform/Log.h"
#include "support/FakeLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace blankwell {

/// What every `Log` does. `Subject` has `Log& log()` and `std::vector<FakeLog::Line> arrived()`,
/// what has come out at the other end since the last call.
template <typename Subject>
struct LogContract : testing::Test {
    Subject subject;
};

TYPED_TEST_SUITE_P(LogContract);

TYPED_TEST_P(LogContract, EachMessageArrivesOnceAndInOrder) {
    const Logger uninstall(this->subject.log(), "Uninstall");
    const Logger hotKey(this->subject.log(), "GlobalHotKey");
    uninstall.notice("Moved {} to the Trash", "/a b/c");
    hotKey.error("Failed to install hot key handler: {}", -9868);
    uninstall.notice("");

    EXPECT_THAT(this->subject.arrived(),
                testing::ElementsAre(
                    FakeLog::Line{LogLevel::notice, "Uninstall", "Moved /a b/c to the Trash"},
                    FakeLog::Line{LogLevel::error, "GlobalHotKey",
                                  "Failed to install hot key handler: -9868"},
                    FakeLog::Line{LogLevel::notice, "Uninstall", ""}));
    EXPECT_THAT(this->subject.arrived(), testing::IsEmpty());
}

TYPED_TEST_P(LogContract, TextsOfAnyLengthAndScriptArriveWhole) {
    const std::vector<std::string> texts{"Registered ⌃ + ⌥ + N hot key", "100 % = {} \"\\",
                                         std::string(20'000, 'x')};
    for (const auto& text : texts) {
        this->subject.log().write(LogLevel::notice, "DesktopCreation", text);
    }

    std::vector<std::string> messages;
    for (const auto& line : this->subject.arrived()) {
        messages.push_back(line.message);
    }
    EXPECT_EQ(messages, texts);
}

REGISTER_TYPED_TEST_SUITE_P(LogContract, EachMessageArrivesOnceAndInOrder,
                            TextsOfAnyLengthAndScriptArriveWhole);

} // namespace blankwell
