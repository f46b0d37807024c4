#include "platform/linux/IcuTextOrder.h"

#include "platform/Environment.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/uloc.h>
#include <unicode/unistr.h>

#include <array>
#include <new>
#include <utility>
#include <vector>

namespace blankwell {
namespace {

icu::UnicodeString utf16(std::string_view text) {
    return icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
}

std::strong_ordering collate(const UCollator* collator, const icu::UnicodeString& left,
                             const icu::UnicodeString& right) {
    return static_cast<int>(ucol_strcoll(collator, left.getBuffer(), left.length(),
                                         right.getBuffer(), right.length())) <=> 0;
}

/// The number of digits in each run of them.
std::vector<int> digitRuns(const icu::UnicodeString& text) {
    std::vector<int> runs;
    bool inRun = false;
    for (std::int32_t index = 0; index < text.length(); index = text.moveIndex32(index, 1)) {
        const bool isDigit = u_isdigit(text.char32At(index)) != 0;
        if (isDigit && !inRun) {
            runs.push_back(0);
        }
        if (isDigit) {
            ++runs.back();
        }
        inRun = isDigit;
    }
    return runs;
}

const icu::Normalizer2& normalizer(const icu::Normalizer2* (*instance)(UErrorCode&)) {
    UErrorCode status = U_ZERO_ERROR;
    return *instance(status); // compiled into the library: never missing
}

icu::UnicodeString normalized(const icu::Normalizer2& form, const icu::UnicodeString& text) {
    UErrorCode status = U_ZERO_ERROR;
    return form.normalize(text, status);
}

/// `text` in the form in which two texts are equal that differ only in case or in how their letters
/// are composed (The Unicode Standard, D145).
icu::UnicodeString folded(const icu::Normalizer2& composed, std::string_view text) {
    const auto& decomposed = normalizer(icu::Normalizer2::getNFDInstance);
    return normalized(composed, normalized(decomposed, utf16(text)).foldCase());
}

} // namespace

std::string collationLocale(const Environment& environment) {
    for (const auto* const name : {"LC_ALL", "LC_COLLATE", "LANG"}) {
        auto locale = environment.variable(name).value_or("");
        if (locale == "C" || locale == "POSIX" || locale.starts_with("C.")) {
            return "";
        }
        if (!locale.empty()) {
            return locale;
        }
    }
    return "";
}

void IcuTextOrder::CloseCollator::operator()(UCollator* collator) const {
    ucol_close(collator);
}

IcuTextOrder::IcuTextOrder(std::string locale) : locale_(std::move(locale)) {}

/// Nothing, where ICU cannot order by `locale`.
IcuTextOrder::Collator IcuTextOrder::openCollator(const std::string& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::array<char, ULOC_FULLNAME_CAPACITY> name{};
    uloc_canonicalize(locale.c_str(), name.data(), static_cast<std::int32_t>(name.size()), &status);
    Collator collator(U_FAILURE(status) != 0 ? nullptr : ucol_open(name.data(), &status));
    if (collator) {
        ucol_setAttribute(collator.get(), UCOL_NUMERIC_COLLATION, UCOL_ON, &status);
        ucol_setAttribute(collator.get(), UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, &status);
        ucol_setAttribute(collator.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
    }
    return U_FAILURE(status) != 0 ? nullptr : std::move(collator);
}

IcuTextOrder::Collators IcuTextOrder::openCollators(const std::string& locale) {
    Collators collators{.letters = openCollator(locale), .cases = openCollator(locale)};
    if (!collators.letters || !collators.cases) {
        return locale.empty() ? throw std::bad_alloc() : openCollators("");
    }
    UErrorCode status = U_ZERO_ERROR;
    auto* const letters = collators.letters.get();
    ucol_setAttribute(letters, UCOL_STRENGTH, UCOL_SECONDARY, &status);
    ucol_setAttribute(letters, UCOL_CASE_LEVEL, UCOL_OFF, &status);
    auto* const cases = collators.cases.get();
    ucol_setAttribute(cases, UCOL_STRENGTH, UCOL_TERTIARY, &status);
    ucol_setAttribute(cases, UCOL_CASE_LEVEL, UCOL_ON, &status);
    ucol_setAttribute(cases, UCOL_CASE_FIRST, UCOL_LOWER_FIRST, &status);
    return collators;
}

const IcuTextOrder::Collators& IcuTextOrder::collators() const {
    if (!collators_) {
        collators_ = openCollators(locale_);
    }
    return *collators_;
}

std::strong_ordering IcuTextOrder::standardCompare(std::string_view left,
                                                   std::string_view right) const {
    if (left == right) {
        return std::strong_ordering::equal;
    }
    const auto& [letters, cases] = collators();
    const auto leftText = utf16(left);
    const auto rightText = utf16(right);
    if (const auto order = collate(letters.get(), leftText, rightText); order != 0) {
        return order;
    }
    if (const auto order = digitRuns(leftText) <=> digitRuns(rightText); order != 0) {
        return order;
    }
    if (const auto order = collate(cases.get(), leftText, rightText); order != 0) {
        return order;
    }
    const auto order = static_cast<int>(leftText.compare(rightText)) <=> 0;
    return order != 0 ? order : left <=> right;
}

bool IcuTextOrder::caseInsensitiveContains(std::string_view text, std::string_view needle) const {
    if (needle.empty()) {
        return false;
    }
    const auto& composed = normalizer(icu::Normalizer2::getNFCInstance);
    const auto foldedText = folded(composed, text);
    const auto foldedNeedle = folded(composed, needle);
    const auto standsWhole = [&](std::int32_t boundary) {
        return boundary == foldedText.length() ||
               composed.hasBoundaryBefore(foldedText.char32At(boundary)) != 0;
    };
    for (auto at = foldedText.indexOf(foldedNeedle); at >= 0;
         at = foldedText.indexOf(foldedNeedle, at + 1)) {
        if ((at == 0 || standsWhole(at)) && standsWhole(at + foldedNeedle.length())) {
            return true;
        }
    }
    return false;
}

} // namespace blankwell
