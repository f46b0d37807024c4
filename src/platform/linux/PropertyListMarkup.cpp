#include "platform/linux/PropertyListMarkup.h"

#include <algorithm>
#include <optional>

namespace blankwell {
namespace {

constexpr std::string_view root = "<plist";
constexpr std::string_view blanks = " \t\r\n";
constexpr int deepestNesting = 64;

/// A tag, comment or character data section.
struct Markup {
    std::size_t length;
    /// By how much it changes the nesting of containers.
    int nesting = 0;
};

/// The markup at the start of `text` that stands between `opening` and `closing`.
std::optional<Markup> enclosed(std::string_view text, std::string_view opening,
                               std::string_view closing) {
    const auto end = text.find(closing, opening.size());
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    return Markup{.length = end + closing.size()};
}

/// Attributes could hide a tag from this count or from the parser's, so only the root has any, and
/// no tag may begin within them.
bool hasPlainAttributes(std::string_view tag) {
    return tag.find('<', 1) == std::string_view::npos && std::ranges::count(tag, '"') % 2 == 0;
}

int nestingOf(std::string_view name, bool closes, bool isEmpty) {
    if (isEmpty || (name != "array" && name != "dict")) {
        return 0;
    }
    return closes ? -1 : 1;
}

std::optional<Markup> tagAt(std::string_view text) {
    const auto end = text.find('>');
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    const auto tag = text.substr(0, end + 1);
    if (tag.starts_with(root)) {
        return hasPlainAttributes(tag) ? std::optional(Markup{.length = tag.size()}) : std::nullopt;
    }
    auto inside = tag.substr(1, tag.size() - 2);
    const bool closes = inside.starts_with('/');
    const bool isEmpty = !closes && inside.ends_with('/');
    inside.remove_prefix(closes ? 1 : 0);
    inside.remove_suffix(isEmpty ? 1 : 0);
    const auto name = inside.substr(0, inside.find_last_not_of(blanks) + 1);
    if (name.find_first_of("<>/\"' \t\r\n") != std::string_view::npos) {
        return std::nullopt;
    }
    return Markup{.length = tag.size(), .nesting = nestingOf(name, closes, isEmpty)};
}

std::optional<Markup> markupAt(std::string_view text) {
    if (text.starts_with("<!--")) {
        return enclosed(text, "<!--", "-->");
    }
    if (text.starts_with("<![CDATA[")) {
        return enclosed(text, "<![CDATA[", "]]>");
    }
    return tagAt(text);
}

bool isCountable(std::string_view text) {
    int nesting = 0;
    for (auto at = text.find('<'); at != std::string_view::npos; at = text.find('<')) {
        const auto markup = markupAt(text.substr(at));
        if (!markup) {
            return false;
        }
        nesting += markup->nesting;
        if (nesting > deepestNesting) {
            return false;
        }
        text.remove_prefix(at + markup->length);
    }
    return true;
}

} // namespace

std::string_view parsableRoot(std::string_view document) {
    // The parser reads C strings: it and this count would part ways at a NUL.
    const auto start = document.find(root);
    if (start == std::string_view::npos || document.contains('\0')) {
        return {};
    }
    const auto rest = document.substr(start);
    return isCountable(rest) ? rest : std::string_view();
}

} // namespace blankwell
