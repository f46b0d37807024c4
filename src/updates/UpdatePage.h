#pragma once

#include "updates/UpdateState.h"

#include <optional>
#include <string>
#include <vector>

namespace blankwell {

/// What the window of updates says: texts as data, for any toolkit to render.
struct UpdatePage {
    struct Button {
        std::string title;
        UpdateAnswer answer;
        /// Whether the Return key presses it.
        bool isDefault = false;

        friend bool operator==(const Button&, const Button&) = default;
    };

    struct Progress {
        /// From 0 to 1; nothing where it cannot be told.
        std::optional<double> fraction;
        std::string text;

        friend bool operator==(const Progress&, const Progress&) = default;
    };

    /// A place on the web.
    struct Link {
        std::string title;
        std::string url;

        friend bool operator==(const Link&, const Link&) = default;
    };

    std::string title;
    std::string text;
    /// What is new, as plain text; empty where there is nothing to read.
    std::string notes;
    /// Where it is to be read in full.
    std::optional<Link> notesLink;
    std::optional<Progress> progress;
    /// In the order of reading.
    std::vector<Button> buttons;
    /// Whether the user can say here that updates are to be looked for every day.
    bool offersAutomaticChecks = false;

    friend bool operator==(const UpdatePage&, const UpdatePage&) = default;
};

inline constexpr auto updateWindowTitle = "Software Update";
/// What the notes are called.
inline constexpr auto updateNotesTitle = "What is new";
inline constexpr auto automaticChecksTitle = "Check for updates automatically, once a day";

/// What to say where nothing opens `url`.
[[nodiscard]] std::string unopenedLinkText(const std::string& url);

/// The page for `state`. `runningVersion` is what people call the version that runs.
[[nodiscard]] UpdatePage pageFor(const UpdateState& state, const std::string& runningVersion);

} // namespace blankwell
