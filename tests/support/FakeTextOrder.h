#pragma once

#include "platform/TextOrder.h"

#include <algorithm>
#include <string>
#include <vector>

namespace blankwell {

/// The user's order for ASCII texts.
class FakeTextOrder : public TextOrder {
public:
    std::strong_ordering standardCompare(std::string_view left,
                                         std::string_view right) const override {
        ++comparisons;
        if (const auto byValue = compareWithDigits(lowered(left), lowered(right)); byValue != 0) {
            return byValue;
        }
        if (const auto byZeros = digitRuns(left) <=> digitRuns(right); byZeros != 0) {
            return byZeros;
        }
        // Lower case stands before upper case, the other way round than in ASCII.
        return right <=> left;
    }

    bool caseInsensitiveContains(std::string_view text, std::string_view needle) const override {
        return !needle.empty() && lowered(text).contains(lowered(needle));
    }

    mutable int comparisons = 0;

private:
    static bool isDigit(char character) { return character >= '0' && character <= '9'; }

    static std::string lowered(std::string_view text) {
        std::string result(text);
        std::ranges::transform(result, result.begin(), [](char character) {
            return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32)
                                                        : character;
        });
        return result;
    }

    static std::strong_ordering compareWithDigits(std::string_view left, std::string_view right) {
        while (!left.empty() && !right.empty()) {
            if (isDigit(left[0]) && isDigit(right[0])) {
                const auto leftRun = takeDigits(left);
                const auto rightRun = takeDigits(right);
                if (leftRun.size() != rightRun.size()) {
                    return leftRun.size() <=> rightRun.size();
                }
                if (const auto order = leftRun <=> rightRun; order != 0) {
                    return order;
                }
            } else if (left[0] != right[0]) {
                return left[0] <=> right[0];
            } else {
                left.remove_prefix(1);
                right.remove_prefix(1);
            }
        }
        return left.size() <=> right.size();
    }

    /// The number of digits in each run of them.
    static std::vector<std::size_t> digitRuns(std::string_view text) {
        std::vector<std::size_t> runs;
        while (!text.empty()) {
            const auto start = std::ranges::find_if(text, isDigit);
            text.remove_prefix(static_cast<std::size_t>(start - text.begin()));
            const auto end = std::ranges::find_if_not(text, isDigit);
            runs.push_back(static_cast<std::size_t>(end - text.begin()));
            text.remove_prefix(runs.back());
        }
        return runs;
    }

    static std::string_view takeDigits(std::string_view& text) {
        const auto end =
            static_cast<std::size_t>(std::ranges::find_if_not(text, isDigit) - text.begin());
        auto run = text.substr(0, end);
        text.remove_prefix(end);
        while (run.size() > 1 && run.starts_with('0')) {
            run.remove_prefix(1);
        }
        return run;
    }
};

} // namespace blankwell
