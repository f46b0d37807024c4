#pragma once

#include <optional>
#include <string>

namespace blankwell {

/// Asks the file manager which folder the user looks at.
class FrontFolder {
public:
    virtual ~FrontFolder() = default;

    /// The path of the folder in the frontmost file manager window: blank where there is no window,
    /// nothing where the file manager cannot tell. Waits for the answer, for a bounded time.
    [[nodiscard]] virtual std::optional<std::string> path() = 0;
};

} // namespace blankwell
