#pragma once

#include "platform/TextOrder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace blankwell {

/// Expects `texts` to stand in strictly ascending order, each pair compared both ways.
inline void expectAscending(const TextOrder& order, const std::vector<std::string>& texts) {
    for (std::size_t left = 0; left < texts.size(); ++left) {
        for (std::size_t right = 0; right < texts.size(); ++right) {
            EXPECT_EQ(order.standardCompare(texts[left], texts[right]), left <=> right)
                << texts[left] << " and " << texts[right];
        }
    }
}

/// What every `TextOrder` does with ASCII texts. `Subject` makes one: `const TextOrder& order()`.
template <typename Subject>
struct TextOrderContract : testing::Test {
    void expectAscending(const std::vector<std::string>& texts) {
        blankwell::expectAscending(subject.order(), texts);
    }

    bool contains(std::string_view text, std::string_view needle) {
        return subject.order().caseInsensitiveContains(text, needle);
    }

    Subject subject;
};

TYPED_TEST_SUITE_P(TextOrderContract);

TYPED_TEST_P(TextOrderContract, LettersComeBeforeTheirCase) {
    this->expectAscending({"", "a", "A", "ab", "aB", "Ab", "AB", "b", "B"});
}

TYPED_TEST_P(TextOrderContract, RunsOfDigitsCompareByTheirValue) {
    this->expectAscending({"Folder 2", "Folder 10", "Folder 10 a", "Folder 10 b1", "Folder 10 b9"});
    this->expectAscending({"9", "99999999999999999998", "99999999999999999999", "a"});
}

TYPED_TEST_P(TextOrderContract, OfRunsWithTheSameValueTheShorterComesFirst) {
    this->expectAscending({"a1", "A1", "a01", "a01b1", "a1b2"});
    this->expectAscending({"a1b01", "A1b01", "a01b1", "a01B1"});
}

TYPED_TEST_P(TextOrderContract, PathsCompareFolderByFolder) {
    this->expectAscending({"/", "/home", "/home/u", "/home/u/a", "/home/u2", "/home2"});
}

TYPED_TEST_P(TextOrderContract, ContainsWhateverTheCase) {
    EXPECT_TRUE(this->contains("Markdown", "DOWN"));
    EXPECT_TRUE(this->contains("PowerPoint Presentation", "point pres"));
    EXPECT_TRUE(this->contains("txt", "txt"));
    EXPECT_FALSE(this->contains("txt", "text"));
    EXPECT_FALSE(this->contains("tx", "txt"));
}

TYPED_TEST_P(TextOrderContract, TheEmptyNeedleStandsNowhere) {
    EXPECT_FALSE(this->contains("txt", ""));
    EXPECT_FALSE(this->contains("", ""));
    EXPECT_FALSE(this->contains("", "a"));
}

REGISTER_TYPED_TEST_SUITE_P(TextOrderContract, LettersComeBeforeTheirCase,
                            RunsOfDigitsCompareByTheirValue,
                            OfRunsWithTheSameValueTheShorterComesFirst, PathsCompareFolderByFolder,
                            ContainsWhateverTheCase, TheEmptyNeedleStandsNowhere);

} // namespace blankwell
