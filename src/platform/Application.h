#pragma once

#include <string_view>

namespace blankwell {

/// The application among the others of the desktop, and its windows.
class Application {
public:
    virtual ~Application() = default;

    /// Whether it is the one that the user works in now.
    [[nodiscard]] virtual bool isActive() const = 0;

    /// Brings it to the front, whatever is there.
    virtual void activate() = 0;

    /// Closes each window that is not a panel and has exactly this title.
    virtual void closeWindows(std::string_view title) = 0;
};

} // namespace blankwell
