#include "updates/VersionOrder.h"

#include <algorithm>
#include <vector>

namespace blankwell {
namespace {

enum class Kind { word, number };

struct Part {
    Kind kind;
    /// Of a number, without the zeros in front.
    std::string_view text;
};

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// Letters, and every byte of a letter outside of ASCII.
bool isWordCharacter(char character) {
    const auto lowered = static_cast<char>(character | 0x20);
    return (lowered >= 'a' && lowered <= 'z') ||
           (static_cast<unsigned char>(character) & 0x80U) != 0;
}

std::string_view withoutLeadingZeros(std::string_view digits) {
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

bool isZero(const Part& part) {
    return part.kind == Kind::number && part.text.empty();
}

/// The numbers in front of the first word are filled up, so zeros at their end are dropped.
void dropFillingZeros(std::vector<Part>& parts) {
    const auto firstWord =
        std::ranges::find_if(parts, [](const Part& part) { return part.kind == Kind::word; });
    auto end = firstWord;
    while (end != parts.begin() && isZero(*(end - 1))) {
        --end;
    }
    parts.erase(end, firstWord);
}

std::vector<Part> partsOf(std::string_view version) {
    std::vector<Part> parts;
    while (!version.empty()) {
        const bool isNumber = isDigit(version.front());
        if (!isNumber && !isWordCharacter(version.front())) {
            version.remove_prefix(1);
            continue;
        }
        const auto* const end =
            std::ranges::find_if_not(version, isNumber ? isDigit : isWordCharacter);
        const auto text = version.substr(0, static_cast<std::size_t>(end - version.begin()));
        parts.push_back(isNumber ? Part{Kind::number, withoutLeadingZeros(text)}
                                 : Part{Kind::word, text});
        version.remove_prefix(text.size());
    }
    dropFillingZeros(parts);
    return parts;
}

std::weak_ordering compareParts(const Part& left, const Part& right) {
    if (left.kind != right.kind) {
        return left.kind <=> right.kind;
    }
    if (left.kind == Kind::number && left.text.size() != right.text.size()) {
        return left.text.size() <=> right.text.size();
    }
    return left.text <=> right.text;
}

/// How a version that ended compares with one that goes on with `next`.
std::weak_ordering compareEndWith(const Part& next) {
    return next.kind == Kind::number ? std::weak_ordering::less : std::weak_ordering::greater;
}

} // namespace

std::weak_ordering compareVersions(std::string_view left, std::string_view right) {
    const auto leftParts = partsOf(left);
    const auto rightParts = partsOf(right);
    const auto common = std::min(leftParts.size(), rightParts.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (const auto order = compareParts(leftParts[i], rightParts[i]); order != 0) {
            return order;
        }
    }
    if (leftParts.size() == rightParts.size()) {
        return std::weak_ordering::equivalent;
    }
    return leftParts.size() < rightParts.size() ? compareEndWith(rightParts[common])
                                                : 0 <=> compareEndWith(leftParts[common]);
}

} // namespace blankwell
