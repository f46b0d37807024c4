#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

/// The action that opens the Quick Create panel.
inline constexpr std::string_view quickCreateAction = "quick-create";

/// The action that ends the application.
inline constexpr std::string_view quitAction = "quit";

/// What other programs of the session ask of the running application. Each call takes note and
/// returns at once.
class ApplicationRequests {
public:
    virtual ~ApplicationRequests() = default;

    /// The user wants to see the application.
    virtual void activate() = 0;

    /// Something wants these URLs opened, whatever they are.
    virtual void open(std::vector<std::string> urls) = 0;

    /// The user chose one of the actions of the application's desktop entry.
    virtual void activateAction(std::string_view action) = 0;
};

} // namespace blankwell
