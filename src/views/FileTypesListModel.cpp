#include "views/FileTypesListModel.h"

#include "filetypes/FileTypeCatalog.h"
#include "settings/AppSettings.h"

#include <algorithm>
#include <iterator>

namespace blankwell {
namespace {

bool haveOneCategory(std::string_view id, std::string_view other) {
    const auto* const type = FileTypeCatalog::definition(id);
    const auto* const otherType = FileTypeCatalog::definition(other);
    return type != nullptr && otherType != nullptr && type->category == otherType->category;
}

} // namespace

std::vector<FileTypeSection> FileTypesListModel::sections() const {
    const auto& enabled = settings_.enabledFileTypeIDs.get();
    std::vector<FileTypeSection> sections;
    for (const auto category : allFileTypeCategories) {
        auto& section = sections.emplace_back(FileTypeSection{rawValue(category), {}});
        for (const auto& type : types()) {
            if (type.category == category) {
                section.rows.push_back({type, enabled.contains(type.id)});
            }
        }
    }
    return sections;
}

void FileTypesListModel::setEnabled(bool enabled, const std::string& id) {
    settings_.setEnabled(enabled, id);
}

bool FileTypesListModel::move(std::string_view id, Place place, std::string_view target) {
    if (id == target || !haveOneCategory(id, target)) {
        return false;
    }
    std::vector<std::string> order;
    std::ranges::transform(types(), std::back_inserter(order), &FileTypeDefinition::id);
    const auto before = order;
    std::erase(order, id);
    auto position = std::ranges::find(order, target);
    if (place == Place::after) {
        ++position;
    }
    order.insert(position, std::string(id));
    if (order == before) {
        return false;
    }
    settings_.fileTypeOrder.set(std::move(order));
    return true;
}

bool FileTypesListModel::move(std::string_view id, Direction direction) {
    auto section = types();
    std::erase_if(section, [&](const auto& type) { return !haveOneCategory(type.id, id); });
    const auto found = std::ranges::find(section, id, &FileTypeDefinition::id);
    if (found == section.end()) {
        return false;
    }
    if (direction == Direction::up) {
        return found != section.begin() && move(id, Place::before, std::prev(found)->id);
    }
    const auto next = std::next(found);
    return next != section.end() && move(id, Place::after, next->id);
}

/// Each type of the catalog once: an order may name a type twice or leave one out.
std::vector<FileTypeDefinition> FileTypesListModel::types() const {
    std::vector<FileTypeDefinition> types;
    const auto appendOnce = [&](const FileTypeDefinition& type) {
        if (std::ranges::find(types, type.id, &FileTypeDefinition::id) == types.end()) {
            types.push_back(type);
        }
    };
    std::ranges::for_each(settings_.orderedFileTypes(), appendOnce);
    std::ranges::for_each(FileTypeCatalog::builtInTypes(), appendOnce);
    return types;
}

} // namespace blankwell
