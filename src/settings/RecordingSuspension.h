#pragma once

#include "base/Subscription.h"

#include <cstdint>
#include <functional>
#include <set>

namespace blankwell {

/// Keeps the hot keys given back while a shortcut is recorded, so that their keys reach the
/// recorder, and after that until the keys that were pressed meanwhile are up: a hot key whose key
/// is still held would fire at its next repetition.
///
/// Told by the recorder's view what happens to it. Repetitions of a held key do not count as
/// presses or releases. Belongs to the main thread.
class RecordingSuspension {
public:
    /// Gives the hot keys back as long as the returned value lasts.
    using Suspend = std::function<Subscription()>;

    explicit RecordingSuspension(Suspend suspend) : suspend_(std::move(suspend)) {}

    void recordingBegan();
    void recordingEnded();

    void keyPressed(std::uint32_t keyCode);
    void keyReleased(std::uint32_t keyCode);

    /// The keys go to another window from now on: no release of a held one will be told.
    void focusLost();

private:
    void endIfIdle();

    Suspend suspend_;
    Subscription suspension_;
    bool isRecording_ = false;
    std::set<std::uint32_t> heldKeys_;
};

} // namespace blankwell
