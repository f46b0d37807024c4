#pragma once

#include "filetypes/FileTypeDefinition.h"

#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

class AppSettings;

/// A file type in the list, with its switch.
struct FileTypeRowContent {
    FileTypeDefinition type;
    bool isEnabled = false;

    friend bool operator==(const FileTypeRowContent&, const FileTypeRowContent&) = default;
};

/// The types of one category.
struct FileTypeSection {
    std::string_view title;
    std::vector<FileTypeRowContent> rows;

    friend bool operator==(const FileTypeSection&, const FileTypeSection&) = default;
};

/// The list in which the user switches file types on and off and puts them in an order. Read from
/// the settings store each time; every change is written there at once. Belongs to the main thread.
class FileTypesListModel {
public:
    enum class Place { before, after };
    enum class Direction { up, down };

    /// `settings` must outlive this object.
    explicit FileTypesListModel(AppSettings& settings) : settings_(settings) {}

    /// A section for each category, with all types of the catalog in the user's order.
    [[nodiscard]] std::vector<FileTypeSection> sections() const;

    void setEnabled(bool enabled, const std::string& id);

    /// Puts the type `id` before or after the type `target` of the same category and leaves the
    /// order of all others as it is. False, and nothing is written, where that is no change or the
    /// types do not belong to one category.
    bool move(std::string_view id, Place place, std::string_view target);

    /// Puts the type `id` one place up or down in its section; otherwise as `move`. False at the
    /// end of the section.
    bool move(std::string_view id, Direction direction);

private:
    [[nodiscard]] std::vector<FileTypeDefinition> types() const;

    AppSettings& settings_;
};

} // namespace blankwell
