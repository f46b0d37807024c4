#pragma once

#include "platform/UserDefaults.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

/// What every `UserDefaults` does. `World` has `here()` and `there()`, one domain as two programs
/// have it, and `putForeign(key)`, which stores a value of a form that the port does not know.
template <typename World>
struct UserDefaultsContract : testing::Test {
    /// What `value` has become for the other program.
    std::optional<PropertyValue> passedOn(const PropertyValue& value) {
        EXPECT_TRUE(world.here().set("key", value));
        return world.there().value("key");
    }

    World world;
};

/// Every byte once, 0 to 255.
inline std::string everyByte() {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes.push_back(static_cast<char>(byte));
    }
    return bytes;
}

inline Bytes dataOf(std::string_view bytes) {
    return {bytesOf(bytes).begin(), bytesOf(bytes).end()};
}

TYPED_TEST_SUITE_P(UserDefaultsContract);

TYPED_TEST_P(UserDefaultsContract, AnEmptyDomainHasNothing) {
    EXPECT_EQ(this->world.here().value("key"), std::nullopt);
    EXPECT_TRUE(this->world.here().keys("").empty());
}

TYPED_TEST_P(UserDefaultsContract, BooleansComeBack) {
    EXPECT_EQ(this->passedOn(true), PropertyValue(true));
    EXPECT_EQ(this->passedOn(false), PropertyValue(false));
}

TYPED_TEST_P(UserDefaultsContract, StringsComeBackWhateverTheirBytes) {
    using namespace std::string_literals;
    for (const auto& text : {""s,
                             "a"s,
                             "1"s,
                             "true"s,
                             " a "s,
                             " "s,
                             "\n"s,
                             "a\r\nb\rc"s,
                             "\t"s,
                             "]]>"s,
                             "&amp;<b>\"'"s,
                             "<!-- a -->"s,
                             "grün 日本 🎉"s,
                             "\x01"s,
                             "a\0b"s,
                             "\xFF\xFE"s,
                             "\xED\xA0\x80"s,
                             "\xEF\xBF\xBE"s,
                             "␛"s,
                             "␛01"s,
                             "%01"s,
                             "&#1;"s,
                             everyByte()}) {
        EXPECT_EQ(this->passedOn(text), PropertyValue(text)) << testing::PrintToString(text);
    }
}

TYPED_TEST_P(UserDefaultsContract, DataComesBack) {
    EXPECT_EQ(this->passedOn(Bytes()), PropertyValue(Bytes()));
    EXPECT_EQ(this->passedOn(dataOf("{}")), PropertyValue(dataOf("{}")));
    EXPECT_EQ(this->passedOn(dataOf(everyByte())), PropertyValue(dataOf(everyByte())));
}

TYPED_TEST_P(UserDefaultsContract, ArraysOfStringsComeBackInOrder) {
    using Strings = std::vector<std::string>;
    for (const auto& strings : {Strings{}, Strings{"a"}, Strings{""}, Strings{"b", "a", "b"},
                                Strings{"\x01", " ", everyByte()}}) {
        EXPECT_EQ(this->passedOn(strings), PropertyValue(strings));
    }
}

TYPED_TEST_P(UserDefaultsContract, KeysMayBeAnyBytes) {
    using namespace std::string_literals;
    const std::vector<std::string> keys{
        "", "\x01/x"s, " /blank at both ends ", "/a\0b"s, "/a\r\nb", "/caf\xE9", "/grün", "␛2F"};
    for (const auto& key : keys) {
        ASSERT_TRUE(this->world.here().set(key, key));
    }
    for (const auto& key : keys) {
        EXPECT_EQ(this->world.there().value(key), PropertyValue(key)) << key;
    }
    EXPECT_EQ(this->world.there().keys("").size(), keys.size());
}

TYPED_TEST_P(UserDefaultsContract, AnotherFormReplacesTheFormer) {
    EXPECT_EQ(this->passedOn("yes"), PropertyValue("yes"));
    EXPECT_EQ(this->passedOn(true), PropertyValue(true));
    EXPECT_EQ(this->passedOn(std::vector<std::string>{"yes"}),
              PropertyValue(std::vector<std::string>{"yes"}));
    EXPECT_EQ(this->passedOn(dataOf("yes")), PropertyValue(dataOf("yes")));
}

TYPED_TEST_P(UserDefaultsContract, OneFormIsNotReadAsAnother) {
    ASSERT_TRUE(this->world.here().set("key", "true"));
    EXPECT_EQ(this->world.here().template read<bool>("key"), std::nullopt);
    EXPECT_EQ(this->world.here().template read<Bytes>("key"), std::nullopt);
    EXPECT_EQ(this->world.here().template read<std::string>("key"), "true");
}

TYPED_TEST_P(UserDefaultsContract, ARemovedKeyIsGone) {
    ASSERT_TRUE(this->world.here().set("a", true));
    ASSERT_TRUE(this->world.here().set("b", true));
    ASSERT_TRUE(this->world.there().remove("a"));
    EXPECT_EQ(this->world.here().value("a"), std::nullopt);
    EXPECT_EQ(this->world.here().keys(""), std::vector<std::string>{"b"});
}

TYPED_TEST_P(UserDefaultsContract, RemovingAnAbsentKeySucceeds) {
    EXPECT_TRUE(this->world.here().remove("key"));
}

TYPED_TEST_P(UserDefaultsContract, KeysOfAPrefixComeInByteOrder) {
    for (const auto* key : {"folder./b", "folder./a/b", "other", "folder./a", "folder./B",
                            "folder./\xC3\xA9", "folder.", "folder"}) {
        ASSERT_TRUE(this->world.here().set(key, true));
    }
    EXPECT_EQ(this->world.there().keys("folder."),
              (std::vector<std::string>{"folder.", "folder./B", "folder./a", "folder./a/b",
                                        "folder./b", "folder./\xC3\xA9"}));
}

TYPED_TEST_P(UserDefaultsContract, TwoProgramsSeeEachOthersWrites) {
    for (const auto* text : {"1", "2", "3"}) {
        ASSERT_TRUE(this->world.here().set("ours", text));
        EXPECT_EQ(this->world.there().value("ours"), PropertyValue(text));
        ASSERT_TRUE(this->world.there().set("theirs", text));
        EXPECT_EQ(this->world.here().value("theirs"), PropertyValue(text));
    }
    EXPECT_EQ(this->world.here().keys(""), (std::vector<std::string>{"ours", "theirs"}));
}

TYPED_TEST_P(UserDefaultsContract, AForeignValueIsListedButReadsAsAbsent) {
    this->world.putForeign("foreign");
    EXPECT_EQ(this->world.here().value("foreign"), std::nullopt);
    EXPECT_EQ(this->world.here().keys("for"), std::vector<std::string>{"foreign"});
}

TYPED_TEST_P(UserDefaultsContract, AForeignValueSurvivesOtherKeys) {
    this->world.putForeign("foreign");
    ASSERT_TRUE(this->world.here().set("key", true));
    ASSERT_TRUE(this->world.here().remove("key"));
    EXPECT_EQ(this->world.there().keys(""), std::vector<std::string>{"foreign"});
}

TYPED_TEST_P(UserDefaultsContract, AForeignValueCanBeReplacedAndRemoved) {
    this->world.putForeign("a");
    this->world.putForeign("b");
    ASSERT_TRUE(this->world.here().set("a", true));
    ASSERT_TRUE(this->world.here().remove("b"));
    EXPECT_EQ(this->world.there().value("a"), PropertyValue(true));
    EXPECT_EQ(this->world.there().keys(""), std::vector<std::string>{"a"});
}

REGISTER_TYPED_TEST_SUITE_P(UserDefaultsContract, AnEmptyDomainHasNothing, BooleansComeBack,
                            StringsComeBackWhateverTheirBytes, DataComesBack,
                            ArraysOfStringsComeBackInOrder, KeysMayBeAnyBytes,
                            AnotherFormReplacesTheFormer, OneFormIsNotReadAsAnother,
                            ARemovedKeyIsGone, RemovingAnAbsentKeySucceeds,
                            KeysOfAPrefixComeInByteOrder, TwoProgramsSeeEachOthersWrites,
                            AForeignValueIsListedButReadsAsAbsent, AForeignValueSurvivesOtherKeys,
                            AForeignValueCanBeReplacedAndRemoved);

} // namespace blankwell
