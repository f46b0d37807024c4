#include "filetypes/FileTypeDefinition.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace blankwell {

std::string_view rawValue(FileTypeCategory category) {
    switch (category) {
    case FileTypeCategory::plainText:
        return "Plain Text";
    case FileTypeCategory::code:
        return "Code";
    case FileTypeCategory::office:
        return "Office";
    }
    return {};
}

std::optional<FileTypeCategory> fileTypeCategory(std::string_view rawValue) {
    const auto* const found =
        std::ranges::find_if(allFileTypeCategories, [&](FileTypeCategory category) {
            return blankwell::rawValue(category) == rawValue;
        });
    return found == allFileTypeCategories.end() ? std::nullopt : std::optional(*found);
}

void to_json(nlohmann::json& json, const FileTypeDefinition& definition) {
    json = {
        {"id", definition.id},
        {"displayName", definition.displayName},
        {"fileExtension", definition.fileExtension},
        {"category", rawValue(definition.category)},
        {"sfSymbolName", definition.sfSymbolName},
    };
}

void from_json(const nlohmann::json& json, FileTypeDefinition& definition) {
    const auto category = fileTypeCategory(json.at("category").get<std::string>());
    if (!category) {
        throw nlohmann::json::other_error::create(501, "no such file type category", &json);
    }
    definition = {
        .id = json.at("id"),
        .displayName = json.at("displayName"),
        .fileExtension = json.at("fileExtension"),
        .category = *category,
        .sfSymbolName = json.at("sfSymbolName"),
    };
}

} // namespace blankwell

std::size_t std::hash<blankwell::FileTypeDefinition>::operator()(
    const blankwell::FileTypeDefinition& definition) const noexcept {
    const std::hash<std::string_view> hashOf;
    std::size_t seed = 0;
    for (const std::string_view field :
         {std::string_view(definition.id), std::string_view(definition.displayName),
          std::string_view(definition.fileExtension), rawValue(definition.category),
          std::string_view(definition.sfSymbolName)}) {
        seed = seed * 31 + hashOf(field);
    }
    return seed;
}
