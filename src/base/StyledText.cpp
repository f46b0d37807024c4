#include "base/StyledText.h"

namespace blankwell {
namespace {

constexpr std::string_view mark = "**";

void append(StyledText& text, std::string_view piece, bool isBold) {
    if (piece.empty()) {
        return;
    }
    if (!text.empty() && text.back().isBold == isBold) {
        text.back().text += piece;
        return;
    }
    text.push_back({.text = std::string(piece), .isBold = isBold});
}

} // namespace

StyledText styledText(std::string_view marked) {
    StyledText text;
    while (!marked.empty()) {
        const auto open = marked.find(mark);
        const auto begin = open + mark.size();
        const auto close = open == std::string_view::npos ? open : marked.find(mark, begin);
        if (close == std::string_view::npos) {
            break;
        }
        if (close == begin) {
            append(text, marked.substr(0, close + mark.size()), false);
        } else {
            append(text, marked.substr(0, open), false);
            append(text, marked.substr(begin, close - begin), true);
        }
        marked.remove_prefix(close + mark.size());
    }
    append(text, marked, false);
    return text;
}

} // namespace blankwell
