#include "settings/AppSettings.h"

#include "base/Bytes.h"
#include "filetypes/FileTypeCatalog.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace blankwell {
namespace {

using Stored = std::optional<PropertyValue>;
using FileTypeShortcuts = AppSettings::FileTypeShortcuts;

template <typename Form>
const Form* as(const Stored& stored) {
    return stored ? std::get_if<Form>(&*stored) : nullptr;
}

template <typename Value>
std::optional<Value> decodeJson(const Stored& stored) {
    const auto* const data = as<Bytes>(stored);
    if (data == nullptr) {
        return std::nullopt;
    }
    try {
        return nlohmann::json::parse(textOf(*data)).get<Value>();
    } catch (const nlohmann::json::exception&) {
        return std::nullopt;
    }
}

template <typename Value>
Stored encodeJson(const Value& value) {
    try {
        const auto text = nlohmann::json(value).dump();
        const auto bytes = bytesOf(text);
        return Bytes(bytes.begin(), bytes.end());
    } catch (const nlohmann::json::exception&) {
        return std::nullopt; // a text that is not UTF-8
    }
}

std::set<std::string> decodeEnabledIDs(const Stored& stored) {
    const auto* const ids = as<std::vector<std::string>>(stored);
    return ids == nullptr ? FileTypeCatalog::defaultEnabledIDs()
                          : std::set<std::string>(ids->begin(), ids->end());
}

Stored encodeEnabledIDs(const std::set<std::string>& ids) {
    return std::vector<std::string>(ids.begin(), ids.end());
}

std::vector<std::string> decodeOrder(const Stored& stored) {
    const auto* const ids = as<std::vector<std::string>>(stored);
    if (ids == nullptr) {
        return FileTypeCatalog::defaultOrder();
    }
    auto order = *ids;
    std::erase_if(order,
                  [](const std::string& id) { return FileTypeCatalog::definition(id) == nullptr; });
    const std::set<std::string> kept(order.begin(), order.end());
    std::ranges::copy_if(FileTypeCatalog::defaultOrder(), std::back_inserter(order),
                         [&](const std::string& id) { return !kept.contains(id); });
    return order;
}

Stored encodeOrder(const std::vector<std::string>& ids) {
    return ids;
}

/// The mode with both is chosen for a run only: stored, it is read as the Dock alone.
AppPresence decodePresence(const Stored& stored) {
    const auto* const text = as<std::string>(stored);
    const auto presence = text == nullptr ? std::nullopt : appPresence(*text);
    return presence == AppPresence::menuBarOnly ? *presence : AppPresence::dockOnly;
}

template <typename Enumeration>
Stored encodeRawValue(const Enumeration& value) {
    return std::string(rawValue(value));
}

QuickCreateShortcut decodeShortcut(const Stored& stored) {
    const auto shortcut = decodeJson<QuickCreateShortcut>(stored);
    return shortcut && shortcut->isUsable() ? *shortcut : defaultQuickCreateShortcut;
}

FileTypeShortcuts decodeShortcuts(const Stored& stored) {
    auto shortcuts = decodeJson<FileTypeShortcuts>(stored).value_or(FileTypeShortcuts());
    std::erase_if(shortcuts, [](const auto& entry) {
        return FileTypeCatalog::definition(entry.first) == nullptr || !entry.second.isUsable();
    });
    return shortcuts;
}

CreationDestinationMode decodeDestination(const Stored& stored) {
    const auto* const text = as<std::string>(stored);
    const auto mode = text == nullptr ? std::nullopt : creationDestinationMode(*text);
    return mode.value_or(CreationDestinationMode::desktop);
}

bool decodeFlag(const Stored& stored) {
    const auto* const flag = as<bool>(stored);
    return flag != nullptr && *flag;
}

Stored encodeFlag(const bool& flag) {
    return flag;
}

} // namespace

AppSettings::AppSettings(UserDefaults& defaults, Log& log)
    : logger_(log, "AppSettings"),
      enabledFileTypeIDs(willChange_, defaults, logger_,
                         {"enabledFileTypeIDs", decodeEnabledIDs, encodeEnabledIDs}),
      fileTypeOrder(willChange_, defaults, logger_, {"fileTypeOrder", decodeOrder, encodeOrder}),
      appPresence(willChange_, defaults, logger_,
                  {.key = "appPresence",
                   .decode = decodePresence,
                   .encode = encodeRawValue<AppPresence>,
                   .isRewrittenOnLoad = true}),
      quickCreateShortcut(willChange_, defaults, logger_,
                          {"quickCreateShortcut", decodeShortcut, encodeJson<QuickCreateShortcut>}),
      fileTypeShortcuts(willChange_, defaults, logger_,
                        {"fileTypeShortcuts", decodeShortcuts, encodeJson<FileTypeShortcuts>}),
      directShortcutDestination(willChange_, defaults, logger_,
                                {"directShortcutDestination", decodeDestination,
                                 encodeRawValue<CreationDestinationMode>}),
      hasCompletedOnboarding(willChange_, defaults, logger_,
                             {"hasCompletedOnboarding", decodeFlag, encodeFlag}) {}

std::vector<FileTypeDefinition> AppSettings::orderedFileTypes() const {
    std::vector<FileTypeDefinition> types;
    for (const auto& id : fileTypeOrder.get()) {
        if (const auto* const type = FileTypeCatalog::definition(id)) {
            types.push_back(*type);
        }
    }
    return types;
}

std::vector<FileTypeDefinition> AppSettings::enabledFileTypes() const {
    auto types = orderedFileTypes();
    std::erase_if(types, [&](const FileTypeDefinition& type) {
        return !enabledFileTypeIDs.get().contains(type.id);
    });
    return types;
}

void AppSettings::setEnabled(bool enabled, const std::string& id) {
    auto ids = enabledFileTypeIDs.get();
    if (enabled) {
        ids.insert(id);
    } else {
        ids.erase(id);
    }
    enabledFileTypeIDs.set(std::move(ids));
}

void AppSettings::setShortcut(const std::optional<QuickCreateShortcut>& shortcut,
                              const std::string& id) {
    if (FileTypeCatalog::definition(id) == nullptr) {
        return;
    }
    auto shortcuts = fileTypeShortcuts.get();
    if (shortcut && shortcut->isUsable()) {
        shortcuts.insert_or_assign(id, *shortcut);
    } else {
        shortcuts.erase(id);
    }
    fileTypeShortcuts.set(std::move(shortcuts));
}

std::optional<std::string> AppSettings::shortcutConflictMessage(const QuickCreateShortcut& shortcut,
                                                                std::string_view id) const {
    if (shortcut == quickCreateShortcut.get()) {
        return "Conflicts with Quick Create";
    }
    const auto& shortcuts = fileTypeShortcuts.get();
    for (const auto& type : orderedFileTypes()) {
        const auto entry = shortcuts.find(type.id);
        if (type.id != id && entry != shortcuts.end() && entry->second == shortcut) {
            return fmt::format("Conflicts with {}", type.displayName);
        }
    }
    return std::nullopt;
}

void AppSettings::reloadFromStore() {
    enabledFileTypeIDs.reload();
    fileTypeOrder.reload();
    appPresence.reload();
    quickCreateShortcut.reload();
    fileTypeShortcuts.reload();
    directShortcutDestination.reload();
    hasCompletedOnboarding.reload();
}

} // namespace blankwell
