#pragma once

#include "base/ObjectWillChange.h"
#include "base/Published.h"
#include "platform/FileManager.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

class Installation;
struct FileManagerMenuState;

/// A file manager with the switch of its menu.
struct FileManagerMenuRow {
    FileManager manager;
    std::string_view name;
    bool isOn = false;
    /// False where the menu cannot be on, for the reason in `note`.
    bool canBeSwitched = true;
    /// What the user should know of it now; mostly blank.
    std::string note;
    /// The note tells of a failure.
    bool hasFailed = false;

    friend bool operator==(const FileManagerMenuRow&, const FileManagerMenuRow&) = default;
};

/// The symbol and title of the card with the switches.
struct FileManagerMenusTexts {
    std::string_view symbol;
    std::string_view title;

    friend bool operator==(const FileManagerMenusTexts&, const FileManagerMenusTexts&) = default;
};

inline constexpr FileManagerMenusTexts fileManagerMenusTexts{
    .symbol = "filemenu.and.cursorarrow",
    .title = "File Managers",
};

/// What stands on that card. Only file managers that are installed have a row.
struct FileManagerMenusContent {
    /// What the switches are for, or why there are none; may have bold runs.
    std::string text;
    std::vector<FileManagerMenuRow> rows;

    friend bool operator==(const FileManagerMenusContent&,
                           const FileManagerMenusContent&) = default;
};

/// Which file managers have the menu "Create File", and the switches for it. Belongs to the main
/// thread.
class FileManagerMenusModel {
public:
    /// `installation` must outlive this object.
    explicit FileManagerMenusModel(Installation& installation);

    /// As it was at the last `refresh` or `turn`, and blank before the first. Only changes are
    /// announced.
    [[nodiscard]] Published<FileManagerMenusContent>& content() { return content_; }

    /// Looks again: the command line, and what is installed meanwhile, change the menus as well.
    void refresh();

    /// Switches a menu on or off, for good. A failure is told in the row's note, and the row shows
    /// what there is.
    void turn(FileManager manager, bool on);

private:
    /// What became of the user's last change of a menu.
    struct Note {
        std::string text;
        bool hasFailed;
        /// It holds as long as the menu is as that change left it.
        bool isOn;
    };

    [[nodiscard]] FileManagerMenuRow rowOf(const FileManagerMenuState& state);

    Installation& installation_;
    std::map<FileManager, Note> notes_;
    ObjectWillChange willChange_;
    Published<FileManagerMenusContent> content_{willChange_, {}};
};

} // namespace blankwell
