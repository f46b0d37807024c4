#pragma once

#include <string_view>

namespace blankwell {

/// The application's own windows, by their titles.
class AppWindows {
public:
    virtual ~AppWindows() = default;

    /// Brings the first window that is not a panel and has exactly this title to the front, ready
    /// for keys. False where there is none.
    virtual bool makeKeyAndOrderFront(std::string_view title) = 0;
};

} // namespace blankwell
