#pragma once

#include "platform/HotKeyService.h"
#include "settings/HotKeyAction.h"

#include <map>
#include <optional>
#include <string>

namespace blankwell {

/// Which shortcuts do not work though they should, and the status that says why. Duplicates are no
/// failures: the settings know them as conflicts.
struct HotKeyFailures {
    std::optional<HotKeyStatus> quickCreate;
    /// By the ids of the file types.
    std::map<std::string, HotKeyStatus, std::less<>> fileTypes;

    /// Notes that the hot key for `action` does not work.
    void add(const HotKeyAction& action, HotKeyStatus status);

    /// Notes that the hot key for `action` works.
    void remove(const HotKeyAction& action);

    friend bool operator==(const HotKeyFailures&, const HotKeyFailures&) = default;
};

} // namespace blankwell
