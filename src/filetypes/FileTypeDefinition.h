#pragma once

#include <nlohmann/json_fwd.hpp>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace blankwell {

/// The kind that a file type belongs to: decides how its first bytes are made and how lists group
/// it.
enum class FileTypeCategory { plainText, code, office };

/// Every category, in the order of lists.
inline constexpr std::array allFileTypeCategories{
    FileTypeCategory::plainText,
    FileTypeCategory::code,
    FileTypeCategory::office,
};

/// The title shown to the user, which is also the stored form: "Plain Text", "Code" or "Office".
[[nodiscard]] std::string_view rawValue(FileTypeCategory category);

/// The category whose raw value is exactly `rawValue`.
[[nodiscard]] std::optional<FileTypeCategory> fileTypeCategory(std::string_view rawValue);

/// One kind of blank file.
struct FileTypeDefinition {
    /// Stable identifier, the key in settings and requests.
    std::string id;
    /// The name in lists, tiles and menus.
    std::string displayName;
    /// Without the leading dot.
    std::string fileExtension;
    FileTypeCategory category;
    /// The symbol drawn for the type, by its name in the platform's symbol set.
    std::string sfSymbolName;

    friend bool operator==(const FileTypeDefinition&, const FileTypeDefinition&) = default;
};

/// The JSON form: an object whose members are the record's field names.
void to_json(nlohmann::json& json, const FileTypeDefinition& definition);

/// Throws `nlohmann::json::exception` where a member is missing, is not a string, or is a category
/// that does not exist.
void from_json(const nlohmann::json& json, FileTypeDefinition& definition);

} // namespace blankwell

template <>
struct std::hash<blankwell::FileTypeDefinition> {
    std::size_t operator()(const blankwell::FileTypeDefinition& definition) const noexcept;
};
