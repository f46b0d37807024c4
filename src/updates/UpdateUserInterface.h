#pragma once

#include "updates/UpdateState.h"

#include <functional>

namespace blankwell {

/// The side of an update that talks to the user.
class UpdateUserInterface {
public:
    /// What it tells of the user's wishes.
    struct Listener {
        std::function<void(UpdateAnswer)> answered;
        /// Whether to look for updates every day.
        std::function<void(bool)> setChecksAutomatically;
    };

    virtual ~UpdateUserInterface() = default;

    /// Tells `listener` from now on, never inside another call of this object.
    virtual void setListener(Listener listener) = 0;

    /// Shows `state` in place of what was shown before. `checksAutomatically` is whether updates
    /// are looked for every day now.
    virtual void show(const UpdateState& state, bool checksAutomatically) = 0;

    /// Brings what is shown to the front.
    virtual void raise() = 0;

    virtual void close() = 0;
};

} // namespace blankwell
