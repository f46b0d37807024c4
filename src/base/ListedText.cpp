#include "base/ListedText.h"

#include "base/Text.h"

#include <algorithm>
#include <vector>

namespace blankwell {
namespace {

using Lines = std::vector<std::string>;
using Line = Lines::iterator;

/// With their line feeds.
Lines linesOf(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return lines;
}

std::string joined(const Lines& lines) {
    std::string text;
    for (const auto& line : lines) {
        text += line;
    }
    return text;
}

bool isHeading(std::string_view line) {
    return trimmed(line).starts_with('[');
}

Line headingOf(Lines& lines, std::string_view group) {
    return std::ranges::find_if(lines, [&](std::string_view line) {
        line = trimmed(line);
        return line.size() == group.size() + 2 && line.starts_with('[') && line.ends_with(']') &&
               line.substr(1, group.size()) == group;
    });
}

/// The lines under a heading.
struct Section {
    Line begin;
    Line end;
};

Section sectionUnder(Lines& lines, Line heading) {
    const auto begin = heading + 1;
    return {begin, std::find_if(begin, lines.end(), isHeading)};
}

Line lineOf(const Section& section, std::string_view key) {
    return std::find_if(section.begin, section.end, [&](std::string_view line) {
        const auto sign = line.find('=');
        return sign != std::string_view::npos && trimmed(line.substr(0, sign)) == key;
    });
}

std::string entryLine(std::string_view key, std::string_view value) {
    return std::string(key) + '=' + std::string(value) + '\n';
}

void endLastLine(Lines& lines) {
    if (!lines.empty() && !lines.back().ends_with('\n')) {
        lines.back() += '\n';
    }
}

} // namespace

std::string withListedEntry(std::string_view text, std::string_view group, std::string_view key,
                            std::string_view value) {
    auto lines = linesOf(text);
    endLastLine(lines);
    const auto heading = headingOf(lines, group);
    if (heading == lines.end()) {
        lines.push_back('[' + std::string(group) + "]\n");
        lines.push_back(entryLine(key, value));
        return joined(lines);
    }
    const auto section = sectionUnder(lines, heading);
    if (const auto line = lineOf(section, key); line != section.end) {
        *line = entryLine(key, value);
        return joined(lines);
    }
    auto place = section.end;
    while (place != section.begin && trimmed(*(place - 1)).empty()) {
        --place;
    }
    lines.insert(place, entryLine(key, value));
    return joined(lines);
}

std::string withoutListedEntry(std::string_view text, std::string_view group, std::string_view key,
                               std::string_view value) {
    auto lines = linesOf(text);
    const auto heading = headingOf(lines, group);
    if (heading == lines.end()) {
        return std::string(text);
    }
    const auto section = sectionUnder(lines, heading);
    const auto line = lineOf(section, key);
    if (line == section.end ||
        trimmed(std::string_view(*line).substr(line->find('=') + 1)) != value) {
        return std::string(text);
    }
    const bool isAlone = std::all_of(section.begin, section.end, [&](const std::string& other) {
        return &other == &*line || trimmed(other).empty();
    });
    lines.erase(isAlone ? heading : line, line + 1);
    return joined(lines);
}

} // namespace blankwell
