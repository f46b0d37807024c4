#include "platform/linux/ThunarActionList.h"

#include <fmt/core.h>
#include <pugixml.hpp>

#include <iterator>
#include <vector>

namespace blankwell {
namespace {

/// Everything is kept, and texts as they stand in the document, so that what is written back is
/// what was read.
constexpr unsigned verbatim = pugi::parse_cdata | pugi::parse_comments | pugi::parse_pi |
                              pugi::parse_declaration | pugi::parse_doctype |
                              pugi::parse_ws_pcdata | pugi::parse_fragment;

constexpr std::string_view emptyList = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                       "<actions>\n</actions>\n";

std::string escaped(std::string_view text) {
    std::string result;
    for (const char character : text) {
        switch (character) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '\n':
        case '\r':
        case '\t':
            result += fmt::format("&#{};", static_cast<int>(character));
            break;
        default:
            result += character;
        }
    }
    return result;
}

std::string elementText(std::string_view name, std::string_view text) {
    return fmt::format("\t<{0}>{1}</{0}>\n", name, escaped(text));
}

std::string markup(const CustomAction& action) {
    return "<action>\n" + elementText("icon", action.icon) + elementText("name", action.name) +
           elementText("submenu", action.submenu) + elementText("unique-id", action.id) +
           elementText("command", action.command) + elementText("description", action.description) +
           elementText("range", "1") + elementText("patterns", "*") + "\t<directories/>\n</action>";
}

bool isBlank(pugi::xml_node node) {
    return node.type() == pugi::node_pcdata &&
           std::string_view(node.value()).find_first_not_of(" \t\r\n") == std::string_view::npos;
}

void removeActions(pugi::xml_node list, std::string_view prefix) {
    std::vector<pugi::xml_node> found;
    for (const auto action : list.children("action")) {
        if (std::string_view(action.child_value("unique-id")).starts_with(prefix)) {
            found.push_back(action);
        }
    }
    for (const auto action : found) {
        if (const auto before = action.previous_sibling(); isBlank(before)) {
            list.remove_child(before);
        }
        list.remove_child(action);
    }
}

/// Each on a line of its own behind the last that is there. Pieces of markup stand in the tree as
/// texts, which are written as they are.
void appendActions(pugi::xml_node list, std::span<const CustomAction> actions) {
    std::string text;
    for (const auto& action : actions) {
        text += '\n' + markup(action);
    }
    auto last = list.last_child();
    while (isBlank(last)) {
        last = last.previous_sibling();
    }
    const bool isEmpty = last.empty();
    auto node = isEmpty ? list.prepend_child(pugi::node_pcdata)
                        : list.insert_child_after(pugi::node_pcdata, last);
    node.set_value(text.c_str());
}

class StringWriter : public pugi::xml_writer {
public:
    void write(const void* data, std::size_t size) override {
        text.append(static_cast<const char*>(data), size);
    }

    std::string text;
};

std::expected<void, std::string> load(pugi::xml_document& document, std::string_view text) {
    const auto result =
        document.load_buffer(text.data(), text.size(), verbatim, pugi::encoding_utf8);
    if (!result) {
        return std::unexpected(fmt::format("{} at byte {}", result.description(), result.offset));
    }
    if (!document.child("actions")) {
        return std::unexpected("It has no list of actions");
    }
    return {};
}

} // namespace

std::expected<std::string, std::string> withThunarActions(std::string_view document,
                                                          std::string_view prefix,
                                                          std::span<const CustomAction> actions) {
    pugi::xml_document tree;
    if (const auto loaded = load(tree, document.empty() ? emptyList : document); !loaded) {
        return std::unexpected(loaded.error());
    }
    const auto list = tree.child("actions");
    removeActions(list, prefix);
    if (!actions.empty()) {
        appendActions(list, actions);
    }
    StringWriter writer;
    tree.save(writer, "", pugi::format_raw | pugi::format_no_escapes | pugi::format_no_declaration,
              pugi::encoding_utf8);
    pugi::xml_document check;
    if (const auto loaded = load(check, writer.text); !loaded) {
        return std::unexpected(loaded.error());
    }
    return writer.text;
}

} // namespace blankwell
