#include "platform/linux/IcuTextOrder.h"

#include "contract/TextOrderContract.h"
#include "support/FakeSurroundings.h"
#include "support/FakeTextOrder.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace blankwell {
namespace {

struct FakeOrderSubject {
    const TextOrder& order() { return textOrder; }

    FakeTextOrder textOrder;
};

struct IcuOrderSubject {
    const TextOrder& order() { return textOrder; }

    IcuTextOrder textOrder{""};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, TextOrderContract, FakeOrderSubject);
INSTANTIATE_TYPED_TEST_SUITE_P(Icu, TextOrderContract, IcuOrderSubject);

struct IcuTextOrderTest : testing::Test {
    void expectAscending(const std::vector<std::string>& texts) const {
        blankwell::expectAscending(order, texts);
    }

    bool contains(std::string_view text, std::string_view needle) const {
        return order.caseInsensitiveContains(text, needle);
    }

    IcuTextOrder order{""};
};

/// Texts of a few pieces that are alike in some of the ways in which the order tells them apart.
std::vector<std::string> alikeTexts(std::size_t count) {
    constexpr std::array pieces{"a",  "A",      "\u00E4",     "a\u0308", "\u0308",
                                "1",  "01",     "\u0661",     "10",      "-",
                                " ",  "\xFF",   "\xFE",       "\xC3",    "\uFFFD",
                                "ss", "\u00DF", "\U0001F600", "\uFF5E",  "e\u0323\u0301"};
    std::mt19937 random(20); // a fixed seed: the same texts in each run
    std::vector<std::string> texts;
    for (std::size_t index = 0; index < count; ++index) {
        std::string text;
        for (auto length = random() % 5; length > 0; --length) {
            text += pieces.at(random() % pieces.size());
        }
        texts.push_back(std::move(text));
    }
    return texts;
}

TEST_F(IcuTextOrderTest, AccentsComeAfterCaseAndBeforeTheNextLetter) {
    expectAscending({"a", "A", "å", "ä", "b"});
    expectAscending({"e", "E", "é", "É", "f"});
    expectAscending({"résumé a", "résumé b"});
    expectAscending({"resume b", "résumé b", "resume c"});
}

TEST_F(IcuTextOrderTest, AccentsWeighMoreThanZerosAndCaseMoreThanWidth) {
    expectAscending({"e01", "é1"});
    expectAscending({"\uFF41b", "aB"}); // a full-width a
}

TEST_F(IcuTextOrderTest, PunctuationCounts) {
    expectAscending({"a b", "a-b", "ab"});
    expectAscending({"a-1", "a-2", "a1"});
}

TEST_F(IcuTextOrderTest, DigitsOfEveryScriptHaveTheirValue) {
    expectAscending({"a2", "a\u0663", "a10"}); // an Arabic three
    // Of the same value and length: an Arabic two after ours.
    expectAscending({"a2", "a\u0662", "a02"});
}

TEST_F(IcuTextOrderTest, CanonicallyEquivalentTextsAreNeighboursButNotEqual) {
    expectAscending({"e\u0301", "\u00E9", "f"});
    expectAscending({"e\u0301 1", "\u00E9 01"});
    expectAscending({"\u00E9 1", "e\u0301 01"});
    // The same two marks in either order.
    expectAscending({"e\u0301\u0323 1", "e\u0323\u0301 01"});
    expectAscending({"e\u0323\u0301 1", "e\u0301\u0323 01"});
}

TEST_F(IcuTextOrderTest, WhatIsAlikeAtLastComparesByCodeUnitsAndThenByBytes) {
    // Two variation selectors, which count nowhere: by code point or byte it is the other way
    // round.
    expectAscending({"a\U000E0100", "a\uFE00"});
    expectAscending({"\uFFFD", "\xFE", "\xFF"});
}

TEST_F(IcuTextOrderTest, IsATotalOrderOfAllTexts) {
    const auto texts = alikeTexts(300);
    std::vector<std::vector<bool>> less(texts.size(), std::vector<bool>(texts.size()));
    for (std::size_t left = 0; left < texts.size(); ++left) {
        for (std::size_t right = 0; right < texts.size(); ++right) {
            const auto result = order.standardCompare(texts[left], texts[right]);
            less[left][right] = result < 0;
            ASSERT_EQ(result == 0, texts[left] == texts[right]);
            ASSERT_EQ(order.standardCompare(texts[right], texts[left]), 0 <=> result);
        }
    }
    for (std::size_t a = 0; a < texts.size(); ++a) {
        for (std::size_t b = 0; b < texts.size(); ++b) {
            for (std::size_t c = 0; less[a][b] && c < texts.size(); ++c) {
                ASSERT_TRUE(!less[b][c] || less[a][c])
                    << texts[a] << " < " << texts[b] << " < " << texts[c];
            }
        }
    }
}

TEST_F(IcuTextOrderTest, ALocaleHasItsOwnOrderOfLetters) {
    blankwell::expectAscending(IcuTextOrder("sv_SE.UTF-8"), {"z", "å", "ä"});
    expectAscending({"å", "ä", "z"});
}

TEST_F(IcuTextOrderTest, ALocaleNeverChangesHowCaseAndPunctuationCount) {
    // By itself, Danish puts upper case first and Thai ignores punctuation.
    blankwell::expectAscending(IcuTextOrder("da"), {"a", "A", "b"});
    blankwell::expectAscending(IcuTextOrder("th"), {"a-b", "aa"});
}

TEST_F(IcuTextOrderTest, AnUnknownLocaleHasTheOrderOfTheRoot) {
    blankwell::expectAscending(IcuTextOrder("xx_YY.UTF-8"), {"å", "ä", "z"});
}

TEST_F(IcuTextOrderTest, ALocaleWithAnImpossibleOrderHasThatOfTheRoot) {
    const IcuTextOrder impossible("sv@colStrength=strange");
    blankwell::expectAscending(impossible, {"å", "ä", "z"});
    blankwell::expectAscending(impossible, {"a2", "A2", "a02", "a10"});
}

TEST_F(IcuTextOrderTest, ContainsByFullCaseFolding) {
    EXPECT_TRUE(contains("Straße", "STRASSE"));
    EXPECT_TRUE(contains("STRASSE", "ße"));
    EXPECT_TRUE(contains("ﬁle", "FI"));
    EXPECT_TRUE(contains("FILE", "ﬁ"));
    EXPECT_FALSE(contains("ΌΔΟΣ", "οδός"));
    EXPECT_TRUE(contains("ΟΔΟΣ", "οδος"));
}

TEST_F(IcuTextOrderTest, AccentsCountHoweverTheyAreEncoded) {
    EXPECT_TRUE(contains("Caf\u00E9", "FE\u0301"));
    EXPECT_TRUE(contains("Cafe\u0301", "F\u00C9"));
    EXPECT_FALSE(contains("Caf\u00E9", "e"));
    EXPECT_FALSE(contains("Cafe\u0301", "e"));
    EXPECT_FALSE(contains("Cafe", "\u00E9"));
    EXPECT_FALSE(contains("x\u0331", "x")); // has no composed form
    EXPECT_FALSE(contains("x\u0331", "\u0331"));
    EXPECT_TRUE(contains("x\u0331x", "x"));
    EXPECT_FALSE(contains("\u1112\u1161\u11AB", "\uD558")); // one syllable is not another's start
}

TEST_F(IcuTextOrderTest, BytesThatAreNotUtf8StandForTheReplacementCharacter) {
    EXPECT_TRUE(contains("a\xFF"
                         "b",
                         "\uFFFDB"));
    EXPECT_FALSE(contains("ab", "\xFF"));
}

struct CollationLocaleTest : testing::Test {
    FakeEnvironment environment;
};

TEST_F(CollationLocaleTest, TheMostSpecificVariableThatIsNotEmptyDecides) {
    EXPECT_EQ(collationLocale(environment), "");
    environment.variables["LANG"] = "de_DE.UTF-8";
    EXPECT_EQ(collationLocale(environment), "de_DE.UTF-8");
    environment.variables["LC_COLLATE"] = "sv_SE.UTF-8";
    EXPECT_EQ(collationLocale(environment), "sv_SE.UTF-8");
    environment.variables["LC_ALL"] = "";
    EXPECT_EQ(collationLocale(environment), "sv_SE.UTF-8");
    environment.variables["LC_ALL"] = "da_DK";
    EXPECT_EQ(collationLocale(environment), "da_DK");
}

TEST_F(CollationLocaleTest, TheLocaleOfProgramsIsTheRoot) {
    environment.variables["LANG"] = "sv_SE.UTF-8";
    for (const auto* const name : {"C", "POSIX", "C.UTF-8"}) {
        environment.variables["LC_COLLATE"] = name;
        EXPECT_EQ(collationLocale(environment), "") << name;
    }
}

} // namespace
} // namespace blankwell
