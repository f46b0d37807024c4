#pragma once

#include "base/ObjectWillChange.h"
#include "filetypes/CreationDestination.h"
#include "platform/Log.h"
#include "settings/AppPresence.h"
#include "settings/QuickCreateShortcut.h"
#include "settings/StoredProperty.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

class UserDefaults;
struct FileTypeDefinition;

/// The user's choices, kept in a preference domain that other processes read and write as well.
///
/// Each property is read once, with a default for what is missing or cannot be used, and written
/// through at every assignment. Observers hear of an assignment before it takes effect. Belongs to
/// the main thread.
class AppSettings {
private:
    // In front of the properties, which announce through it and log through the other.
    ObjectWillChange willChange_;
    Logger logger_;

public:
    using FileTypeShortcuts = std::map<std::string, QuickCreateShortcut>;

    /// Loads from `defaults`; never fails. Writes nothing but a presence that is not stored as it
    /// was loaded. Both must outlive this object.
    AppSettings(UserDefaults& defaults, Log& log);

    /// The types that are switched on. Ids that no type has are kept.
    StoredProperty<std::set<std::string>> enabledFileTypeIDs;
    /// The ids of all types in the user's order.
    StoredProperty<std::vector<std::string>> fileTypeOrder;
    StoredProperty<AppPresence> appPresence;
    /// Opens the Quick Create panel.
    StoredProperty<QuickCreateShortcut> quickCreateShortcut;
    /// Create a file of a type at once, by the type's id.
    StoredProperty<FileTypeShortcuts> fileTypeShortcuts;
    /// Where they create it.
    StoredProperty<CreationDestinationMode> directShortcutDestination;
    StoredProperty<bool> hasCompletedOnboarding;

    /// Hears of each assignment to any of the properties before it takes effect.
    [[nodiscard]] ObjectWillChange& objectWillChange() { return willChange_; }

    /// All types in the user's order.
    [[nodiscard]] std::vector<FileTypeDefinition> orderedFileTypes() const;

    /// Those of them that are switched on.
    [[nodiscard]] std::vector<FileTypeDefinition> enabledFileTypes() const;

    void setEnabled(bool enabled, const std::string& id);

    /// Sets or takes away the shortcut of the type `id`; a shortcut that is not usable counts as
    /// none. Does nothing for an id that no type has.
    void setShortcut(const std::optional<QuickCreateShortcut>& shortcut, const std::string& id);

    /// The text that warns of another use of `shortcut`, or nothing. Types that are switched off
    /// count as well, the type `id` itself does not.
    [[nodiscard]] std::optional<std::string>
    shortcutConflictMessage(const QuickCreateShortcut& shortcut, std::string_view id) const;

    /// Takes in what other processes changed in the domain, as if it were assigned; writes no more
    /// than loading does. To be called whenever the domain changed, whoever changed it.
    void reloadFromStore();
};

} // namespace blankwell
