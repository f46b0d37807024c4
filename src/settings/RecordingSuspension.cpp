#include "settings/RecordingSuspension.h"

namespace blankwell {

void RecordingSuspension::recordingBegan() {
    if (!isRecording_) {
        isRecording_ = true;
        suspension_ = suspend_();
    }
}

void RecordingSuspension::recordingEnded() {
    isRecording_ = false;
    endIfIdle();
}

void RecordingSuspension::keyPressed(std::uint32_t keyCode) {
    heldKeys_.insert(keyCode);
}

void RecordingSuspension::keyReleased(std::uint32_t keyCode) {
    heldKeys_.erase(keyCode);
    endIfIdle();
}

void RecordingSuspension::focusLost() {
    heldKeys_.clear();
    recordingEnded();
}

void RecordingSuspension::endIfIdle() {
    if (!isRecording_ && heldKeys_.empty()) {
        suspension_.end();
    }
}

} // namespace blankwell
