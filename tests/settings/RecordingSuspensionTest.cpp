#include "settings/RecordingSuspension.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

constexpr std::uint32_t keyN = 45;
constexpr std::uint32_t keyM = 46;

struct RecordingSuspensionTest : testing::Test {
    int suspensions = 0;
    int began = 0;
    RecordingSuspension recording{[this] {
        ++suspensions;
        ++began;
        return Subscription([this] { --suspensions; });
    }};
};

TEST_F(RecordingSuspensionTest, LastsAsLongAsTheRecording) {
    EXPECT_EQ(suspensions, 0);
    recording.recordingBegan();
    EXPECT_EQ(suspensions, 1);
    recording.recordingEnded();
    EXPECT_EQ(suspensions, 0);
}

TEST_F(RecordingSuspensionTest, BeginningTwiceIsOneRecording) {
    recording.recordingBegan();
    recording.recordingBegan();
    EXPECT_EQ(began, 1);
    recording.recordingEnded();
    EXPECT_EQ(suspensions, 0);
}

TEST_F(RecordingSuspensionTest, EndsWhenTheLastKeyThatWasPressedIsUp) {
    recording.recordingBegan();
    recording.keyPressed(keyN);
    recording.keyPressed(keyM);
    recording.recordingEnded();
    EXPECT_EQ(suspensions, 1);
    recording.keyReleased(keyN);
    EXPECT_EQ(suspensions, 1);
    recording.keyReleased(keyM);
    EXPECT_EQ(suspensions, 0);
}

TEST_F(RecordingSuspensionTest, AKeyThatIsReleasedWhileRecordingDoesNotEndIt) {
    recording.recordingBegan();
    recording.keyPressed(keyN);
    recording.keyReleased(keyN);
    EXPECT_EQ(suspensions, 1);
}

TEST_F(RecordingSuspensionTest, EndsAtOnceWhenTheKeysGoElsewhere) {
    recording.recordingBegan();
    recording.keyPressed(keyN);
    recording.focusLost();
    EXPECT_EQ(suspensions, 0);
    recording.recordingBegan();
    recording.recordingEnded();
    EXPECT_EQ(suspensions, 0) << "a key is held that nobody tells of";
}

TEST_F(RecordingSuspensionTest, ANewRecordingWhileAKeyIsStillHeldGoesOn) {
    recording.recordingBegan();
    recording.keyPressed(keyN);
    recording.recordingEnded();
    recording.recordingBegan();
    recording.keyReleased(keyN);
    EXPECT_EQ(suspensions, 1);
    recording.recordingEnded();
    EXPECT_EQ(suspensions, 0);
}

TEST_F(RecordingSuspensionTest, ARecorderThatGoesAwayGivesTheHotKeysBack) {
    int other = 0;
    {
        RecordingSuspension gone([&other] {
            ++other;
            return Subscription([&other] { --other; });
        });
        gone.recordingBegan();
        gone.keyPressed(keyN);
        EXPECT_EQ(other, 1);
    }
    EXPECT_EQ(other, 0);
}

} // namespace
} // namespace blankwell
