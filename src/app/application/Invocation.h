#pragma once

#include <expected>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell::application {

/// What the arguments of the application ask for.
struct Invocation {
    enum class Purpose { run, showHelp, showVersion };

    Purpose purpose = Purpose::run;
    /// `--background`: no window comes up, as at login or when the session bus starts the program.
    bool inBackground = false;
    /// `--action`: the action of the desktop entry to perform; empty for none.
    std::string action;
    /// To be opened, whatever they are.
    std::vector<std::string> urls;

    friend bool operator==(const Invocation&, const Invocation&) = default;
};

/// Reads the arguments that follow the program's name. The error says in one line what is wrong.
[[nodiscard]] std::expected<Invocation, std::string>
parseArguments(std::span<const std::string_view> arguments);

/// The text of `--help`.
[[nodiscard]] std::string_view helpText();

} // namespace blankwell::application
