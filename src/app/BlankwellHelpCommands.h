#pragma once

#include <functional>
#include <string_view>
#include <utility>

namespace blankwell {

class AppSettings;
class Application;

/// The commands of the Help menu. Belongs to the main thread.
class BlankwellHelpCommands {
public:
    /// Opens the window of the scene with this id, or brings it to the front.
    using OpenWindow = std::function<void(std::string_view id)>;

    /// The references must outlive this object.
    BlankwellHelpCommands(OpenWindow openWindow, AppSettings& settings, Application& application)
        : openWindow_(std::move(openWindow)), settings_(settings), application_(application) {}

    void showHelp();

    /// Shows the walkthrough over the main window once more.
    void showWelcomeWalkthrough();

private:
    OpenWindow openWindow_;
    AppSettings& settings_;
    Application& application_;
};

} // namespace blankwell
