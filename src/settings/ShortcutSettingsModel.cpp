#include "settings/ShortcutSettingsModel.h"

#include "filetypes/FileTypeDefinition.h"
#include "settings/AppSettings.h"
#include "settings/HotKeyFailures.h"

#include <fmt/format.h>

namespace blankwell {
namespace {

constexpr std::string_view notRegistered = "Could not be registered";

ShortcutCaption warning(std::string text) {
    return {.text = std::move(text), .color = ColorRole::red};
}

} // namespace

std::optional<ShortcutCaption>
ShortcutSettingsModel::quickCreateWarning(const HotKeyFailures& failures) const {
    for (const auto& type : settings_.orderedFileTypes()) {
        if (shortcutOf(type.id) == settings_.quickCreateShortcut.get()) {
            return warning(fmt::format("Conflicts with {}", type.displayName));
        }
    }
    if (failures.quickCreate) {
        return warning(std::string(notRegistered));
    }
    return std::nullopt;
}

QuickCreateShortcut ShortcutSettingsModel::quickCreateShortcut() const {
    return settings_.quickCreateShortcut.get();
}

void ShortcutSettingsModel::setQuickCreateShortcut(const QuickCreateShortcut& shortcut) {
    settings_.quickCreateShortcut.set(shortcut);
}

void ShortcutSettingsModel::resetQuickCreateShortcut() {
    settings_.quickCreateShortcut.set(defaultQuickCreateShortcut);
}

CreationDestinationMode ShortcutSettingsModel::destination() const {
    return settings_.directShortcutDestination.get();
}

void ShortcutSettingsModel::setDestination(CreationDestinationMode mode) {
    settings_.directShortcutDestination.set(mode);
}

std::vector<DirectShortcutRowContent>
ShortcutSettingsModel::rows(const HotKeyFailures& failures) const {
    std::vector<DirectShortcutRowContent> rows;
    for (const auto& type : settings_.orderedFileTypes()) {
        const auto shortcut = shortcutOf(type.id);
        rows.push_back({
            .fileTypeID = type.id,
            .symbol = type.sfSymbolName,
            .title = type.displayName,
            .caption = caption(type, failures),
            .shortcut = shortcut,
            .clearHelp = fmt::format("Clear {} shortcut", type.displayName),
            .isClearEnabled = shortcut.has_value(),
        });
    }
    return rows;
}

void ShortcutSettingsModel::setShortcut(const std::optional<QuickCreateShortcut>& shortcut,
                                        const std::string& id) {
    settings_.setShortcut(shortcut, id);
}

std::optional<QuickCreateShortcut> ShortcutSettingsModel::shortcutOf(const std::string& id) const {
    const auto& shortcuts = settings_.fileTypeShortcuts.get();
    const auto found = shortcuts.find(id);
    return found == shortcuts.end() ? std::nullopt : std::optional(found->second);
}

ShortcutCaption ShortcutSettingsModel::caption(const FileTypeDefinition& type,
                                               const HotKeyFailures& failures) const {
    if (!settings_.enabledFileTypeIDs.get().contains(type.id)) {
        return {.text = fmt::format(".{} disabled", type.fileExtension),
                .color = ColorRole::secondaryLabel};
    }
    if (const auto shortcut = shortcutOf(type.id)) {
        if (auto conflict = settings_.shortcutConflictMessage(*shortcut, type.id)) {
            return warning(*std::move(conflict));
        }
        if (failures.fileTypes.contains(type.id)) {
            return warning(std::string(notRegistered));
        }
    }
    return {.text = "." + type.fileExtension, .color = ColorRole::secondaryLabel};
}

} // namespace blankwell
