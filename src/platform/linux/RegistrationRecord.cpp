#include "platform/linux/RegistrationRecord.h"

#include "base/Overloaded.h"
#include "base/PercentEncoding.h"

#include <algorithm>
#include <array>

namespace blankwell {
namespace {

using Kind = RegistrationRecord::Kind;

struct KindName {
    Kind kind;
    std::string_view name;
};

constexpr std::array kindNames{
    KindName{Kind::file, "file"},         KindName{Kind::link, "link"},
    KindName{Kind::entry, "entry"},       KindName{Kind::actions, "actions"},
    KindName{Kind::place, "place"},       KindName{Kind::madeFile, "made"},
    KindName{Kind::madeFolder, "folder"},
};

std::vector<std::string_view> wordsOf(std::string_view line) {
    std::vector<std::string_view> words;
    for (;;) {
        const auto end = line.find(' ');
        words.push_back(line.substr(0, end));
        if (end == std::string_view::npos) {
            return words;
        }
        line.remove_prefix(end + 1);
    }
}

} // namespace

RegistrationRecord recordOf(const Registration& registration) {
    return std::visit(
        Overloaded{
            [](const RegisteredFile& file) { return RegistrationRecord{Kind::file, file.url, {}}; },
            [](const RegisteredLink& link) { return RegistrationRecord{Kind::link, link.url, {}}; },
            [](const RegisteredEntry& entry) {
                return RegistrationRecord{
                    Kind::entry, entry.url, {entry.group, entry.key, entry.value}};
            },
            [](const RegisteredActions& actions) {
                return RegistrationRecord{Kind::actions, actions.url, {}};
            },
            [](const RegisteredPlace& place) {
                return RegistrationRecord{Kind::place, place.url, {}};
            },
        },
        registration);
}

std::string text(const RegistrationRecord& record) {
    constexpr std::string_view kept = "/._-+";
    std::string line(std::ranges::find(kindNames, record.kind, &KindName::kind)->name);
    line += ' ' + percentEncoded(record.url.path(), kept);
    for (const auto& detail : record.details) {
        line += ' ' + percentEncoded(detail, kept);
    }
    return line;
}

std::optional<RegistrationRecord> registrationRecord(std::string_view line) {
    const auto words = wordsOf(line);
    const auto* const kind = std::ranges::find(kindNames, words[0], &KindName::name);
    if (kind == kindNames.end() || words.size() < 2) {
        return std::nullopt;
    }
    std::vector<std::string> fields;
    for (std::size_t index = 1; index < words.size(); ++index) {
        auto field = percentDecoded(words[index]);
        if (!field) {
            return std::nullopt;
        }
        fields.push_back(*std::move(field));
    }
    const bool isEntry = kind->kind == Kind::entry;
    if (!fields[0].starts_with('/') || (isEntry && fields.size() != 4)) {
        return std::nullopt;
    }
    return RegistrationRecord{kind->kind, FileUrl(fields[0]), {fields.begin() + 1, fields.end()}};
}

} // namespace blankwell
