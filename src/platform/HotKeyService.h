#pragma once

#include <cstdint>
#include <expected>
#include <functional>
#include <string>

namespace blankwell {

/// What an operation of the hot key service came to: `noErr`, or a number of the service's own that
/// is only good for the log.
using HotKeyStatus = int;

inline constexpr HotKeyStatus noErr = 0;
/// Carbon's number for a combination that is taken, by this program or another.
inline constexpr HotKeyStatus eventHotKeyExistsErr = -9878;
/// Carbon's number for what is no key combination, or no hot key that is registered.
inline constexpr HotKeyStatus eventHotKeyInvalidErr = -9879;

/// Tells hot keys apart: whose it is, and which one.
struct EventHotKeyID {
    std::uint32_t signature = 0;
    std::uint32_t id = 0;

    friend bool operator==(const EventHotKeyID&, const EventHotKeyID&) = default;
};

/// A hot key that was pressed. Borrowed by the handler for the time of its call.
class HotKeyEvent {
public:
    virtual ~HotKeyEvent() = default;

    /// The id that the hot key was registered with. Errors: a status where the event has none.
    [[nodiscard]] virtual std::expected<EventHotKeyID, HotKeyStatus> hotKeyID() const = 0;
};

/// Keys that reach the application whichever program the user works in.
///
/// Where the desktop gives no such keys away, or gives this one to somebody else, registering fails
/// with a status: a hot key that is registered works. Belongs to the main thread.
class HotKeyService {
public:
    /// Called on the main thread for each press, once however long the key is held. Answers `noErr`
    /// for an event that is dealt with.
    using Handler = std::function<HotKeyStatus(const HotKeyEvent&)>;

    /// Told which hot key is lost, and the status that says why.
    using LossHandler = std::function<void(EventHotKeyID, HotKeyStatus)>;

    /// Told which hot key works, and the key in the desktop's words; empty where it does not say.
    using GiftHandler = std::function<void(EventHotKeyID, const std::string& key)>;

    enum class HandlerReference : std::uint64_t {};
    enum class HotKeyReference : std::uint64_t {};

    virtual ~HotKeyService() = default;

    /// Has `handler` called for every press from now on. On an error nothing is installed.
    [[nodiscard]] virtual std::expected<HandlerReference, HotKeyStatus>
    installHandler(Handler handler) = 0;

    /// Ends what `installHandler` began; the handler is not called again.
    virtual void removeHandler(HandlerReference handler) = 0;

    /// Takes the key `keyCode` (a virtual key code of the Macintosh keyboard) with exactly the
    /// modifiers of the mask `carbonModifiers`. On an error nothing is registered.
    [[nodiscard]] virtual std::expected<HotKeyReference, HotKeyStatus>
    registerHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers, EventHotKeyID id) = 0;

    /// Gives the key back. A press that arrives after this call reaches no handler.
    virtual HotKeyStatus unregisterHotKey(HotKeyReference hotKey) = 0;

    /// Sets what is told of each hot key that does not work though nobody gave it back. It is still
    /// to be given back. Replaces the previous one. A service that keeps what it has registered
    /// never calls it.
    virtual void onLoss(const LossHandler& /*handler*/) {}

    /// Sets what is told of each hot key that the desktop gives later than it was registered, also
    /// after a loss. Replaces the previous one. Only a service that has to ask calls it.
    virtual void onGift(const GiftHandler& /*handler*/) {}
};

} // namespace blankwell
