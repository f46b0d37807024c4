#pragma once

#include "base/Observers.h"
#include "platform/ColorRole.h"

#include <functional>
#include <string>
#include <string_view>

namespace blankwell {

class LoginItem;

/// The texts of the switch for the login item that never change.
struct LoginItemTexts {
    std::string_view title;
    /// Shown under the title as long as there is nothing else to say.
    std::string_view description;

    friend bool operator==(const LoginItemTexts&, const LoginItemTexts&) = default;
};

inline constexpr LoginItemTexts loginItemTexts{
    .title = "Open at login",
    .description = "Start Blankwell+ without a window when you log in.",
};

/// What the row of the switch shows.
struct LoginItemContent {
    bool isOn = false;
    /// Not where nobody can tell whether it is on.
    bool isEnabled = true;
    std::string caption;
    ColorRole captionColor = ColorRole::secondaryLabel;

    friend bool operator==(const LoginItemContent&, const LoginItemContent&) = default;
};

/// Whether the application starts at login, for the user to see and to switch. Belongs to the main
/// thread.
class LoginItemModel {
public:
    /// Reads nothing yet. `item` must outlive this object.
    explicit LoginItemModel(LoginItem& item);

    [[nodiscard]] const LoginItemContent& content() const { return content_; }

    /// Calls `observer` after each change of the content.
    Subscription observeChanges(std::function<void()> observer) {
        return observers_.add(std::move(observer));
    }

    /// Reads the item. To be called when the switch comes into view, and whenever somebody else may
    /// have changed the item.
    void reload();

    /// Switches the item. Where that fails the content says why.
    void setOn(bool on);

private:
    [[nodiscard]] LoginItemContent read() const;
    void show(LoginItemContent content);

    LoginItem& item_;
    LoginItemContent content_;
    Observers<> observers_;
};

} // namespace blankwell
