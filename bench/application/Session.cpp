#include "bench/application/Session.h"

#include "desktop/Desktop.h"
#include "platform/Identifiers.h"
#include "platform/linux/MacKeyCodes.h"
#include "platform/linux/StandardErrorLog.h"
#include "platform/linux/XdgPreferenceDomains.h"
#include "settings/AppSettings.h"

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <thread>

namespace blankwell {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds patience{20};
constexpr int patienceForFile = 5'000;

std::uint16_t x11Modifiers(std::uint32_t carbonModifiers) {
    std::uint16_t modifiers = 0;
    modifiers |= (carbonModifiers & carbon::shiftKey) != 0 ? XCB_MOD_MASK_SHIFT : 0;
    modifiers |= (carbonModifiers & carbon::controlKey) != 0 ? XCB_MOD_MASK_CONTROL : 0;
    modifiers |= (carbonModifiers & carbon::optionKey) != 0 ? XCB_MOD_MASK_1 : 0;
    modifiers |= (carbonModifiers & carbon::cmdKey) != 0 ? XCB_MOD_MASK_4 : 0;
    return modifiers;
}

} // namespace

HotKeyProbe::HotKeyProbe()
    : connection_(xcb_connect(nullptr, nullptr)),
      root_(xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root) {}

bool HotKeyProbe::isTaken(const QuickCreateShortcut& shortcut) {
    auto* const connection = connection_.get();
    const auto key = static_cast<xcb_keycode_t>(x11KeyCode(shortcut.keyCode).value());
    const auto modifiers = x11Modifiers(shortcut.carbonModifiers);
    // While this has the server for itself, nobody can miss the key that it takes.
    xcb_grab_server(connection);
    const auto grab = xcb_grab_key_checked(connection, 0, root_, modifiers, key,
                                           XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_ungrab_key(connection, key, root_, modifiers);
    xcb_ungrab_server(connection);
    return X11Memory<xcb_generic_error_t>(xcb_request_check(connection, grab)) != nullptr;
}

Clock::time_point HotKeyProbe::awaitTaken(const QuickCreateShortcut& shortcut) {
    const auto end = Clock::now() + patience;
    while (!isTaken(shortcut)) {
        if (Clock::now() > end) {
            throw std::runtime_error("the application registers no hot key");
        }
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    return Clock::now();
}

void storeBenchSettings(AppPresence presence) {
    StandardErrorLog log;
    XdgPreferenceDomains domains(desktopHome().appending(".config").path(), bundleIdentifier);
    AppSettings settings(sharedDefaults(domains), log);
    settings.appPresence.set(presence);
    settings.hasCompletedOnboarding.set(true);
    settings.setShortcut(textFileShortcut, "txt");
    settings.directShortcutDestination.set(CreationDestinationMode::desktop);
}

RunningApplication::RunningApplication(AppPresence presence)
    : program_((storeBenchSettings(presence), Arguments{BLANKWELL_APPLICATION, "--background"})) {
    HotKeyProbe().awaitTaken(textFileShortcut);
    // What it puts off until after its start is done then.
    std::this_thread::sleep_for(std::chrono::seconds(1));
}

RunningApplication::~RunningApplication() {
    program_.terminate();
}

StatusBarPanel::StatusBarPanel()
    : program_((::setenv("XFCE_PANEL_MIGRATE_DEFAULT", "1", 1),
                Arguments{"xfce4-panel", "--disable-wm-check"})) {
    if (!eventually([] { return isOnBus("org.kde.StatusNotifierWatcher"); })) {
        throw std::runtime_error("no bar for status items");
    }
    std::this_thread::sleep_for(std::chrono::seconds(2));
}

FolderWatch::FolderWatch(const FileUrl& folder) : queue_(::inotify_init1(IN_CLOEXEC)) {
    if (::inotify_add_watch(queue_.get(), folder.path().c_str(), IN_CLOSE_WRITE) < 0) {
        throw std::runtime_error("cannot watch " + folder.path());
    }
}

Clock::time_point FolderWatch::awaitFile() {
    ::pollfd queue{.fd = queue_.get(), .events = POLLIN, .revents = 0};
    if (::poll(&queue, 1, patienceForFile) <= 0) {
        throw std::runtime_error("no file was created");
    }
    const auto now = Clock::now();
    alignas(inotify_event) std::array<char, 4096> event{};
    if (::read(queue_.get(), event.data(), event.size()) <= 0) {
        throw std::runtime_error("no file was created");
    }
    return now;
}

} // namespace blankwell
