#pragma once

#include "base/FileUrl.h"
#include "desktop/Program.h"
#include "platform/Identifiers.h"
#include "platform/linux/XdgPreferenceDomains.h"
#include "settings/AppSettings.h"
#include "support/FakeLog.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace blankwell {

/// The application on the private desktop.
struct ApplicationFixture : testing::Test {
    ApplicationFixture();

    /// Returns once the application is gone.
    ~ApplicationFixture() override;

    /// Starts it and returns once others can ask for something.
    void start(const Arguments& arguments = {});

    void startInBackground() { start({"--background"}); }

    /// The shell's `$?` after the program was started once more with `arguments`, words of a shell.
    [[nodiscard]] static std::string statusOf(const std::string& arguments);

    /// How many lines of its log contain `text`.
    [[nodiscard]] static std::ptrdiff_t logged(std::string_view text);

    std::optional<Program> application;

    FakeLog log;
    std::unique_ptr<XdgPreferenceDomains> domains;
    /// The settings as another process has them, such as the preferences' own tool.
    std::unique_ptr<AppSettings> settings;
};

/// What a request URL for a file of the type `type` in `folder` is.
[[nodiscard]] std::string requestUrl(const FileUrl& folder, const std::string& type);

/// Whether the window titled `title` goes.
[[nodiscard]] bool windowIsGone(const std::string& title);

/// What the window manager knows of the window titled `title`, as xprop prints it.
[[nodiscard]] std::string statesOf(const std::string& title);

/// Whether a file comes to be at `file`.
[[nodiscard]] bool fileAppears(const FileUrl& file);

} // namespace blankwell
