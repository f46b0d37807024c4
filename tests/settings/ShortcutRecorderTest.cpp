#include "settings/ShortcutRecorder.h"

#include <gmock/gmock.h>

#include <vector>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using enum ColorRole;

constexpr std::uint32_t keyA = 0;
constexpr std::uint32_t keyDelete = 51;
constexpr std::uint32_t keyEscape = 53;
constexpr std::uint64_t capsLock = 0x10000;

constexpr QuickCreateShortcut commandDelete{.keyCode = 51, .carbonModifiers = 0x100};

ShortcutRecorderAppearance idle(std::string text, ColorRole textColor) {
    return {std::move(text), textColor, controlBackground, 1, separator, 1};
}

ShortcutRecorderAppearance recording(std::string text, ColorRole textColor) {
    return {std::move(text), textColor, accent, 0.14, accent, 2};
}

struct ShortcutRecorderTest : testing::Test {
    std::vector<QuickCreateShortcut> recorded;
    std::vector<bool> recordings;
    int beeps = 0;
    int redraws = 0;
    ShortcutRecorder recorder{{
        .onChange = [this](const auto& shortcut) { recorded.push_back(shortcut); },
        .beep = [this] { ++beeps; },
        .needsDisplay = [this] { ++redraws; },
        .recordingChanged = [this](bool isRecording) { recordings.push_back(isRecording); },
    }};
};

TEST_F(ShortcutRecorderTest, ShowsTheDefaultShortcutAtFirst) {
    EXPECT_EQ(recorder.appearance(), idle("⌃ + ⌥ + N", label));
    EXPECT_FALSE(recorder.isRecording());
}

TEST_F(ShortcutRecorderTest, WithoutAShortcutThePlaceholderIsShownInTheSecondaryColour) {
    recorder.setShortcut(std::nullopt);
    EXPECT_EQ(recorder.appearance(), idle("Set Shortcut", secondaryLabel));
    recorder.setPlaceholder("None");
    EXPECT_EQ(recorder.appearance(), idle("None", secondaryLabel));
}

TEST_F(ShortcutRecorderTest, AMousePressWaitsForAKeyCombination) {
    recorder.mouseDown();
    EXPECT_EQ(recorder.appearance(), recording("Press shortcut", label));
    recorder.setShortcut(std::nullopt);
    EXPECT_EQ(recorder.appearance(), recording("Press shortcut", secondaryLabel));
}

TEST_F(ShortcutRecorderTest, AKeyCombinationIsTakenAndEndsRecording) {
    recorder.mouseDown();
    recorder.keyDown(keyDelete, modifierflags::command);

    EXPECT_THAT(recorded, ElementsAre(commandDelete));
    EXPECT_EQ(recorder.shortcut(), commandDelete);
    EXPECT_EQ(recorder.appearance(), idle("⌘ + ⌫", label));
    EXPECT_EQ(beeps, 0);
}

TEST_F(ShortcutRecorderTest, ShiftAloneIsEnough) {
    recorder.mouseDown();
    recorder.keyDown(keyA, modifierflags::shift);
    EXPECT_THAT(recorded, ElementsAre(QuickCreateShortcut{.keyCode = 0, .carbonModifiers = 0x200}));
}

TEST_F(ShortcutRecorderTest, EscapeLeavesTheShortcutAndReportsNothing) {
    recorder.setShortcut(commandDelete);
    recorder.mouseDown();
    recorder.keyDown(keyEscape, modifierflags::command);

    EXPECT_EQ(recorder.appearance(), idle("⌘ + ⌫", label));
    EXPECT_THAT(recorded, IsEmpty());
    EXPECT_EQ(beeps, 0);
}

TEST_F(ShortcutRecorderTest, AKeyWithoutAModifierBeepsAndKeepsRecording) {
    recorder.mouseDown();
    recorder.keyDown(keyDelete, capsLock);

    EXPECT_EQ(beeps, 1);
    EXPECT_EQ(recorder.appearance(), recording("Add ⌘, ⌃, ⌥, or ⇧", secondaryLabel));
    EXPECT_THAT(recorded, IsEmpty());

    recorder.keyDown(keyDelete, modifierflags::command);
    EXPECT_THAT(recorded, ElementsAre(commandDelete));
    EXPECT_EQ(recorder.appearance(), idle("⌘ + ⌫", label));
}

TEST_F(ShortcutRecorderTest, EscapeAndFocusLossEndTheHint) {
    recorder.mouseDown();
    recorder.keyDown(keyDelete, 0);
    recorder.keyDown(keyEscape, 0);
    EXPECT_EQ(recorder.appearance(), idle("⌃ + ⌥ + N", label));

    recorder.mouseDown();
    recorder.keyDown(keyDelete, 0);
    recorder.resignFirstResponder();
    EXPECT_EQ(recorder.appearance(), idle("⌃ + ⌥ + N", label));
    EXPECT_THAT(recorded, IsEmpty());
}

TEST_F(ShortcutRecorderTest, AMousePressTakesTheHintBack) {
    recorder.mouseDown();
    recorder.keyDown(keyDelete, 0);
    recorder.mouseDown();
    EXPECT_EQ(recorder.appearance(), recording("Press shortcut", label));
}

TEST_F(ShortcutRecorderTest, LosingFocusEndsRecordingWithoutAChange) {
    recorder.mouseDown();
    recorder.resignFirstResponder();
    EXPECT_EQ(recorder.appearance(), idle("⌃ + ⌥ + N", label));
    EXPECT_THAT(recorded, IsEmpty());
}

TEST_F(ShortcutRecorderTest, AKeyWhileIdleIsHandledTheSameWay) {
    recorder.keyDown(keyDelete, modifierflags::command);
    EXPECT_THAT(recorded, ElementsAre(commandDelete));
    EXPECT_FALSE(recorder.isRecording());

    recorder.keyDown(keyDelete, 0);
    EXPECT_EQ(beeps, 1);
    EXPECT_EQ(recorder.appearance(), recording("Add ⌘, ⌃, ⌥, or ⇧", secondaryLabel));

    recorder.keyDown(keyEscape, 0);
    recorder.keyDown(keyEscape, 0);
    EXPECT_EQ(recorder.appearance(), idle("⌘ + ⌫", label));
}

TEST_F(ShortcutRecorderTest, TheBeginAndTheEndOfRecordingAreToldOnce) {
    recorder.mouseDown();
    recorder.mouseDown();
    recorder.keyDown(keyDelete, 0);
    recorder.keyDown(keyDelete, modifierflags::command);
    recorder.resignFirstResponder();
    EXPECT_THAT(recordings, ElementsAre(true, false));
}

TEST_F(ShortcutRecorderTest, EveryChangeAsksForADrawing) {
    const auto redrawsAfter = [this](auto event) {
        redraws = 0;
        event();
        return redraws;
    };
    EXPECT_GT(redrawsAfter([this] { recorder.setShortcut(std::nullopt); }), 0);
    EXPECT_GT(redrawsAfter([this] { recorder.setPlaceholder("None"); }), 0);
    EXPECT_GT(redrawsAfter([this] { recorder.mouseDown(); }), 0);
    EXPECT_GT(redrawsAfter([this] { recorder.keyDown(keyDelete, 0); }), 0);
    EXPECT_GT(redrawsAfter([this] { recorder.resignFirstResponder(); }), 0);
}

TEST_F(ShortcutRecorderTest, TheOwnerMaySetAnotherShortcutWhileItTakesOne) {
    ShortcutRecorder* self = nullptr;
    ShortcutRecorder corrected(
        {.onChange = [&](const auto&) { self->setShortcut(defaultQuickCreateShortcut); }});
    self = &corrected;
    corrected.keyDown(keyDelete, modifierflags::command);
    EXPECT_EQ(corrected.shortcut(), defaultQuickCreateShortcut);
    EXPECT_FALSE(corrected.isRecording());
}

TEST(ShortcutRecorderLayoutTest, TheTextIsCentredBetweenTenPoints) {
    const Rect bounds{.size = ShortcutRecorder::intrinsicContentSize};
    EXPECT_EQ(bounds.size, (Size{220, 32}));
    EXPECT_EQ(ShortcutRecorder::outline(bounds), (Rect{{0.5, 0.5}, {219, 31}}));
    EXPECT_EQ(ShortcutRecorder::textRect(bounds, 15), (Rect{{10.5, 8.5}, {199, 15}}));
}

} // namespace
} // namespace blankwell
