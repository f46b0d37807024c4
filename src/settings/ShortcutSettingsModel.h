#pragma once

#include "filetypes/CreationDestination.h"
#include "platform/ColorRole.h"
#include "settings/QuickCreateShortcut.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

class AppSettings;
struct FileTypeDefinition;
struct HotKeyFailures;

/// The texts and symbols of the shortcut settings that never change.
struct ShortcutSettingsTexts {
    std::string_view quickCreateTitle;
    std::string_view quickCreateSymbol;
    std::string_view resetSymbol;
    std::string_view resetHelp;
    std::string_view destinationLabel;
    std::string_view directShortcutsTitle;
    std::string_view directShortcutsSymbol;
    std::string_view clearSymbol;

    friend bool operator==(const ShortcutSettingsTexts&, const ShortcutSettingsTexts&) = default;
};

inline constexpr ShortcutSettingsTexts shortcutSettingsTexts{
    .quickCreateTitle = "Quick Create Shortcut",
    .quickCreateSymbol = "keyboard",
    .resetSymbol = "arrow.counterclockwise",
    .resetHelp = "Reset Quick Create shortcut",
    .destinationLabel = "Destination",
    .directShortcutsTitle = "Direct File Shortcuts",
    .directShortcutsSymbol = "bolt.fill",
    .clearSymbol = "xmark.circle",
};

/// One choice of where direct shortcuts create their files.
struct DestinationSegment {
    CreationDestinationMode mode;
    std::string_view title;
    std::string_view symbol;

    friend bool operator==(const DestinationSegment&, const DestinationSegment&) = default;
};

/// The choices, from left to right.
inline constexpr std::array destinationSegments{
    DestinationSegment{CreationDestinationMode::desktop, "Desktop", "desktopcomputer"},
    DestinationSegment{CreationDestinationMode::frontFinderFolder, "Finder Folder", "folder"},
};

/// A small line under a title.
struct ShortcutCaption {
    std::string text;
    ColorRole color;

    friend bool operator==(const ShortcutCaption&, const ShortcutCaption&) = default;
};

/// What the row of one file type shows.
struct DirectShortcutRowContent {
    std::string fileTypeID;
    std::string symbol;
    std::string title;
    ShortcutCaption caption;
    /// What the row's recorder shows.
    std::optional<QuickCreateShortcut> shortcut;
    std::string clearHelp;
    bool isClearEnabled = false;

    friend bool operator==(const DirectShortcutRowContent&,
                           const DirectShortcutRowContent&) = default;
};

/// What the shortcut settings show, read from the settings store each time, and what their controls
/// do to it. A conflict is told and never prevents a change. Belongs to the main thread.
class ShortcutSettingsModel {
public:
    /// `settings` must outlive this object.
    explicit ShortcutSettingsModel(AppSettings& settings) : settings_(settings) {}

    /// The line under the title of the Quick Create shortcut, where there is something to warn of:
    /// the first type in the user's order that has the same shortcut, or else that the shortcut is
    /// among `failures`.
    [[nodiscard]] std::optional<ShortcutCaption>
    quickCreateWarning(const HotKeyFailures& failures) const;

    [[nodiscard]] QuickCreateShortcut quickCreateShortcut() const;
    void setQuickCreateShortcut(const QuickCreateShortcut& shortcut);
    void resetQuickCreateShortcut();

    [[nodiscard]] CreationDestinationMode destination() const;
    void setDestination(CreationDestinationMode mode);

    /// A row for each type in the user's order, switched on or not.
    [[nodiscard]] std::vector<DirectShortcutRowContent> rows(const HotKeyFailures& failures) const;

    /// Sets the shortcut of the type `id`, or takes it away.
    void setShortcut(const std::optional<QuickCreateShortcut>& shortcut, const std::string& id);

private:
    [[nodiscard]] std::optional<QuickCreateShortcut> shortcutOf(const std::string& id) const;
    [[nodiscard]] ShortcutCaption caption(const FileTypeDefinition& type,
                                          const HotKeyFailures& failures) const;

    AppSettings& settings_;
};

} // namespace blankwell
