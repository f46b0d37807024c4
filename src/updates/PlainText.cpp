#include "updates/PlainText.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>

namespace blankwell {
namespace {

constexpr std::string_view blanks = " \t\r\n\f";

constexpr auto blockTags = std::to_array<std::string_view>({
    "address", "article", "blockquote", "br",  "dd",      "div",   "dl", "dt", "footer",
    "h1",      "h2",      "h3",         "h4",  "h5",      "h6",    "hr", "li", "main",
    "ol",      "p",       "pre",        "row", "section", "table", "tr", "ul",
});

/// What stands in these is not for readers.
constexpr auto hiddenTags = std::to_array<std::string_view>({"script", "style", "title"});

constexpr auto references = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"amp", "&"},
    {"lt", "<"},
    {"gt", ">"},
    {"quot", "\""},
    {"apos", "'"},
    {"nbsp", " "},
    {"hellip", "…"},
    {"ndash", "–"},
    {"mdash", "—"},
    {"lsquo", "‘"},
    {"rsquo", "’"},
    {"ldquo", "“"},
    {"rdquo", "”"},
    {"bull", "•"},
    {"copy", "©"},
});

bool contains(std::span<const std::string_view> names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

std::string lowered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
    });
    return result;
}

std::string utf8(char32_t code) {
    const auto byte = [](std::uint32_t value) { return static_cast<char>(value); };
    if (code < 0x80) {
        return {byte(code)};
    }
    if (code < 0x800) {
        return {byte(0xC0U | code >> 6U), byte(0x80U | (code & 0x3FU))};
    }
    if (code < 0x10000) {
        return {byte(0xE0U | code >> 12U), byte(0x80U | (code >> 6U & 0x3FU)),
                byte(0x80U | (code & 0x3FU))};
    }
    return {byte(0xF0U | code >> 18U), byte(0x80U | (code >> 12U & 0x3FU)),
            byte(0x80U | (code >> 6U & 0x3FU)), byte(0x80U | (code & 0x3FU))};
}

/// The character of a reference such as "#8217" or "#x2019"; nothing where it has none to show.
std::optional<std::string> numbered(std::string_view reference) {
    const bool isHexadecimal = reference.starts_with("#x") || reference.starts_with("#X");
    const auto digits = reference.substr(isHexadecimal ? 2 : 1);
    std::uint32_t code = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code,
                                              isHexadecimal ? 16 : 10);
    const bool isWhole = error == std::errc() && end == digits.data() + digits.size();
    const bool isCharacter = code >= 0x20 && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    return isWhole && isCharacter ? std::optional(utf8(code)) : std::nullopt;
}

std::optional<std::string> resolved(std::string_view reference) {
    if (reference.starts_with('#')) {
        return numbered(reference);
    }
    const auto* const found =
        std::ranges::find(references, reference, [](const auto& entry) { return entry.first; });
    return found == references.end() ? std::nullopt : std::optional(std::string(found->second));
}

/// Builds the text from the pieces of the page.
class Reader {
public:
    explicit Reader(std::string_view html) : rest_(html) {}

    std::string run() {
        while (!rest_.empty()) {
            if (rest_.front() == '<') {
                readTag();
            } else if (rest_.front() == '&') {
                readReference();
            } else {
                readCharacters();
            }
        }
        return std::string(trimmed(text_));
    }

private:
    void readTag() {
        if (rest_.starts_with("<!--")) {
            skipPast("-->");
            return;
        }
        const auto end = std::min(rest_.find('>'), rest_.size());
        auto tag = rest_.substr(1, end == 0 ? 0 : end - 1);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        const bool isEnd = tag.starts_with('/');
        tag.remove_prefix(isEnd ? 1 : 0);
        apply(lowered(tag.substr(0, tag.find_first_of(" \t\r\n\f/"))), isEnd);
    }

    void apply(const std::string& tag, bool isEnd) {
        if (!isEnd && contains(hiddenTags, tag)) {
            skipTo("</" + tag);
        } else if (contains(blockTags, tag)) {
            beginLine();
            if (tag == "li" && !isEnd) {
                text_ += "• ";
            }
        }
    }

    void readReference() {
        constexpr std::size_t longest = 12;
        const auto end = rest_.substr(0, longest).find(';');
        if (end != std::string_view::npos) {
            if (const auto character = resolved(rest_.substr(1, end - 1))) {
                text_ += *character;
                rest_.remove_prefix(end + 1);
                return;
            }
        }
        text_ += '&';
        rest_.remove_prefix(1);
    }

    /// Runs of blanks become one.
    void readCharacters() {
        const auto piece = rest_.substr(0, rest_.find_first_of("<&"));
        for (const char character : piece) {
            if (!blanks.contains(character)) {
                text_ += character;
            } else if (!text_.empty() && !blanks.contains(text_.back())) {
                text_ += ' ';
            }
        }
        rest_.remove_prefix(piece.size());
    }

    void beginLine() {
        while (text_.ends_with(' ')) {
            text_.pop_back();
        }
        if (!text_.empty() && !text_.ends_with('\n')) {
            text_ += '\n';
        }
    }

    void skipPast(std::string_view mark) {
        const auto at = rest_.find(mark);
        rest_.remove_prefix(at == std::string_view::npos ? rest_.size() : at + mark.size());
    }

    void skipTo(std::string_view mark) {
        const auto at = lowered(rest_).find(mark);
        rest_.remove_prefix(std::min(at, rest_.size()));
    }

    std::string_view rest_;
    std::string text_;
};

} // namespace

std::string plainTextOfHtml(std::string_view html) {
    return Reader(html).run();
}

} // namespace blankwell
