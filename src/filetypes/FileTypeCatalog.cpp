#include "filetypes/FileTypeCatalog.h"

#include <cstdlib>
#include <unordered_map>

namespace blankwell {
namespace {

using enum FileTypeCategory;

const std::vector<FileTypeDefinition>& definitions() {
    // XML and Python share a symbol on purpose.
    static const std::vector<FileTypeDefinition> list{
        {"txt", "Text", "txt", plainText, "doc.text"},
        {"md", "Markdown", "md", plainText, "doc.richtext"},
        {"rtf", "Rich Text", "rtf", plainText, "doc.richtext.fill"},
        {"csv", "CSV", "csv", plainText, "tablecells"},
        {"json", "JSON", "json", code, "curlybraces"},
        {"yaml", "YAML", "yaml", code, "list.bullet.indent"},
        {"xml", "XML", "xml", code, "chevron.left.forwardslash.chevron.right"},
        {"html", "HTML", "html", code, "globe"},
        {"css", "CSS", "css", code, "paintbrush"},
        {"js", "JavaScript", "js", code, "scroll"},
        {"sh", "Shell Script", "sh", code, "terminal"},
        {"py", "Python", "py", code, "chevron.left.forwardslash.chevron.right"},
        {"swift", "Swift", "swift", code, "swift"},
        {"docx", "Word Document", "docx", office, "doc.fill"},
        {"xlsx", "Excel Spreadsheet", "xlsx", office, "tablecells.fill"},
        {"pptx", "PowerPoint Presentation", "pptx", office, "rectangle.on.rectangle"},
    };
    return list;
}

using Index = std::unordered_map<std::string_view, const FileTypeDefinition*>;

Index makeIndex() {
    Index index;
    for (const auto& definition : definitions()) {
        if (!index.emplace(definition.id, &definition).second) {
            std::abort(); // two types with one id: a mistake in the list above
        }
    }
    return index;
}

} // namespace

std::span<const FileTypeDefinition> FileTypeCatalog::builtInTypes() {
    return definitions();
}

const FileTypeDefinition* FileTypeCatalog::definition(std::string_view id) {
    static const Index index = makeIndex();
    const auto found = index.find(id);
    return found == index.end() ? nullptr : found->second;
}

const std::set<std::string>& FileTypeCatalog::defaultEnabledIDs() {
    static const std::set<std::string> ids(defaultOrder().begin(), defaultOrder().end());
    return ids;
}

const std::vector<std::string>& FileTypeCatalog::defaultOrder() {
    static const std::vector<std::string> order = [] {
        std::vector<std::string> ids;
        for (const auto& definition : definitions()) {
            ids.push_back(definition.id);
        }
        return ids;
    }();
    return order;
}

} // namespace blankwell
