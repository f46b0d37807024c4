#include "platform/linux/PropertyList.h"

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <fmt/core.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <cstdlib>
#include <random>

#include <sys/resource.h>

namespace blankwell {
namespace {

using namespace std::string_literals;
using testing::HasSubstr;

/// A property list whose root dictionary holds `inside`.
std::string documentWith(std::string_view inside) {
    return fmt::format("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                       "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                       "<plist version=\"1.0\">\n<dict>{}</dict>\n</plist>\n",
                       inside);
}

std::string repeated(std::string_view text, int times) {
    std::string result;
    for (int time = 0; time < times; ++time) {
        result += text;
    }
    return result;
}

bool isCorrupt(std::string_view document) {
    const auto list = PropertyList::parse(document);
    return !list && list.error().is(CocoaCode::fileReadCorruptFile);
}

/// What becomes of the value written as `inside` when another key is set.
std::string rewritten(std::string_view inside) {
    auto list = PropertyList::parse(documentWith(fmt::format("<key>k</key>{}", inside)));
    if (!list) {
        return list.error().description;
    }
    list->set("other", true);
    return list->xml().value();
}

TEST(PropertyList, EveryFormIsReadFromXml) {
    const auto list = PropertyList::parse(documentWith(
        "<key>yes</key><true/><key>no</key><false/><key>text</key><string>a &amp; &#x42;</string>"
        "<key>data</key><data>AAEC</data><key>none</key><array/>"
        "<key>some</key><array><string>a</string><string/></array><!-- note -->"
        "<key>raw</key><string><![CDATA[<b>]]></string>"));
    ASSERT_TRUE(list);
    EXPECT_EQ(*list->find("yes"), PropertyValue(true));
    EXPECT_EQ(*list->find("no"), PropertyValue(false));
    EXPECT_EQ(*list->find("text"), PropertyValue("a & B"));
    EXPECT_EQ(*list->find("data"), PropertyValue(Bytes{std::byte(0), std::byte(1), std::byte(2)}));
    EXPECT_EQ(*list->find("none"), PropertyValue(std::vector<std::string>()));
    EXPECT_EQ(*list->find("some"), PropertyValue(std::vector<std::string>{"a", ""}));
    EXPECT_EQ(*list->find("raw"), PropertyValue("<b>"));
}

TEST(PropertyList, ForeignFormsAreKeptButNotFound) {
    for (const auto* form : {"<integer>-5</integer>", "<integer>18446744073709551615</integer>",
                             "<real>1.5</real>", "<date>2020-01-02T03:04:05Z</date>", "<dict/>"}) {
        const auto list = PropertyList::parse(documentWith(fmt::format("<key>k</key>{}", form)));
        ASSERT_TRUE(list) << form;
        EXPECT_EQ(list->find("k"), nullptr) << form;
        EXPECT_TRUE(list->contains("k")) << form;
        EXPECT_THAT(rewritten(form), HasSubstr(form));
    }
}

TEST(PropertyList, MixedArraysAndDictionariesAreKeptWhole) {
    const auto document = rewritten("<array><string>a</string><integer>1</integer>"
                                    "<dict><key>x</key><data>AAEC</data></dict></array>");
    EXPECT_THAT(document, HasSubstr("<string>a</string>"));
    EXPECT_THAT(document, HasSubstr("<integer>1</integer>"));
    EXPECT_THAT(document, HasSubstr("<key>x</key>"));
    EXPECT_THAT(document, HasSubstr("AAEC"));
}

TEST(PropertyList, ForeignNumbersSurviveACommaLocale) {
    const TemporaryFolder locales;
    const auto path = locales.url().path();
    ASSERT_EQ(std::system(("localedef -i de_DE -f UTF-8 " + path + "/de_DE.UTF-8").c_str()), 0);
    inChildProcess([&] {
        ::setenv("LOCPATH", path.c_str(), 1);
        ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
        ASSERT_STREQ(std::localeconv()->decimal_point, ",");
        EXPECT_THAT(rewritten("<real>0.5</real>"), HasSubstr("<real>0.5</real>"));
        EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    });
}

TEST(PropertyList, TextIsWrittenAsItStandsWhereXmlCanHoldIt) {
    PropertyList list;
    list.set("securityScopedFolderBookmark./home/u/Grün", " text ");
    const auto document = list.xml();
    ASSERT_TRUE(document);
    EXPECT_THAT(*document, HasSubstr("<key>securityScopedFolderBookmark./home/u/Grün</key>"));
    EXPECT_THAT(*document, HasSubstr("<string> text </string>"));
}

TEST(PropertyList, WhatIsNoPropertyListIsCorrupt) {
    for (const auto& document :
         {""s, "\0"s, "bplist00"s, "{ a = b; }"s, "{\"a\": 1}"s, "[General]\na=1\n"s,
          "<html></html>"s, "<plist></plist>"s, "<plist/>"s, "<plist"s,
          "<plist><string>a</string></plist>"s, "<plist><array/></plist>"s, "<dict/>"s,
          documentWith("<string>no key</string>"), documentWith("</array>"),
          documentWith("<key>a</key><thing/>"), documentWith("<key>a</key><string>x<b/>y</string>"),
          documentWith("<key>a</key><true/"),
          documentWith("<key>a</key><string>&unknown;</string>")}) {
        EXPECT_TRUE(isCorrupt(document)) << document;
    }
}

TEST(PropertyList, EntitiesOfADocumentTypeAreRefused) {
    EXPECT_TRUE(isCorrupt("<?xml version=\"1.0\"?><!DOCTYPE plist [<!ENTITY a \"aa\">"
                          "<!ENTITY b SYSTEM \"file:///etc/passwd\">]>"
                          "<plist><dict><key>k</key><string>&a;&b;</string></dict></plist>"));
}

TEST(PropertyList, TextThatIsNotXmlIsRefused) {
    for (const auto& text : {"\xFF"s, "\x01"s, "&#1;"s, "&#xD800;"s, "&#0;"s, "a\0b"s}) {
        EXPECT_TRUE(isCorrupt(documentWith("<key>k</key><string>" + text + "</string>"))) << text;
        EXPECT_TRUE(isCorrupt(documentWith("<key>" + text + "</key><true/>"))) << text;
        EXPECT_TRUE(isCorrupt(documentWith("<key>k</key><array><integer>1</integer><string>" +
                                           text + "</string></array>")))
            << text;
    }
}

TEST(PropertyList, ATruncatedDocumentIsCorruptOrComplete) {
    PropertyList list;
    list.set("a", true);
    list.set("b", std::vector<std::string>{"x", "ü"});
    list.set("c", Bytes(100));
    const auto document = list.xml().value();
    for (std::size_t length = 0; length < document.size(); ++length) {
        const auto part = PropertyList::parse(document.substr(0, length));
        EXPECT_TRUE(!part || part->xml() == document) << length;
    }
}

TEST(PropertyList, RandomBytesAreCorrupt) {
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        std::string bytes(random() % 300, '\0');
        std::ranges::generate(bytes, [&] { return static_cast<char>(random()); });
        EXPECT_TRUE(isCorrupt(bytes));
        EXPECT_TRUE(isCorrupt("<plist><dict>" + bytes));
    }
}

TEST(PropertyList, ModerateNestingIsKept) {
    const auto nested = repeated("<array>", 60) + repeated("</array>", 60);
    EXPECT_THAT(rewritten(nested), HasSubstr(repeated("\t", 60) + "<array/>"));
}

TEST(PropertyList, DeepNestingIsRefusedBeforeItEndsTheProcess) {
    constexpr int levels = 60'000;
    const std::pair<const char*, const char*> patterns[] = {
        {"<array>", "</array>"},
        {"<dict><key>k</key>", "</dict>"},
        {"<array >", "</array\n>"},
        {"<array><!-- </array> -->", "</array>"},
        {"<array><!--></array>-->", "</array>"},
        {"<array><string><![CDATA[</array>]]></string>", "</array>"},
        {"<array a=\"></array>\">", "</array>"},
        {"<array a='></array>'>", "</array>"},
        {"<plist a=\"></array>\"><array>", "</array>"},
        {"<array><?x </array>?>", "</array>"},
        {"<array></array/>", "</array>"},
    };
    inChildProcess([&] {
        const rlimit smallStack{.rlim_cur = 1U << 20U, .rlim_max = RLIM_INFINITY};
        ASSERT_EQ(::setrlimit(RLIMIT_STACK, &smallStack), 0);
        for (const auto& [opening, closing] : patterns) {
            const auto half = "<key>k</key>" + repeated(opening, levels);
            EXPECT_TRUE(isCorrupt(documentWith(half))) << opening;
            EXPECT_TRUE(isCorrupt(documentWith(half + repeated(closing, levels)))) << opening;
        }
    });
}

TEST(PropertyList, ManyValuesSideBySideAreNoNesting) {
    PropertyList list;
    for (int number = 0; number < 2000; ++number) {
        list.set(fmt::format("k{}", number), std::vector<std::string>{"a"});
    }
    const auto read = PropertyList::parse(list.xml().value());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->entries("").size(), 2000U);
}

TEST(PropertyList, AListTooLargeToBeReadAgainIsNotWritten) {
    PropertyList list;
    list.set("k", std::string(PropertyList::largestSize, 'a'));
    const auto document = list.xml();
    ASSERT_FALSE(document);
    EXPECT_EQ(document.error().code, EFBIG);
    EXPECT_TRUE(isCorrupt(documentWith(std::string(PropertyList::largestSize, ' '))));
}

} // namespace
} // namespace blankwell
