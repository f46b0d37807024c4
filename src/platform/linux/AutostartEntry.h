#pragma once

#include <glib.h>

#include <expected>
#include <memory>
#include <string>
#include <string_view>

namespace blankwell {

/// The text of a desktop entry that starts a program at login.
class AutostartEntry {
public:
    /// The entry that starts `program`, an absolute path in UTF-8, with "--background".
    [[nodiscard]] static AutostartEntry starting(std::string_view program);

    /// Reads `text`, comments included. The error says what is wrong with it.
    [[nodiscard]] static std::expected<AutostartEntry, std::string> parse(const std::string& text);

    /// Whether a session starts it.
    [[nodiscard]] bool isOn() const;

    /// Whether it is as `starting` makes it for a program of this name, wherever that stands.
    [[nodiscard]] bool isUntouched() const;

    /// Switches it on. Its command becomes the one that `starting` gives `program`, unless that is
    /// the user's own.
    void turnOn(std::string_view program);

    void turnOff();

    [[nodiscard]] std::string text() const;

private:
    struct Release {
        void operator()(GKeyFile* file) const;
    };

    AutostartEntry();

    [[nodiscard]] std::string command() const;
    [[nodiscard]] bool hasUsualCommand() const;
    [[nodiscard]] bool flag(const char* key) const;

    std::unique_ptr<GKeyFile, Release> file_;
};

} // namespace blankwell
