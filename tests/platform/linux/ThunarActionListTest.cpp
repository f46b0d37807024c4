#include "platform/linux/ThunarActionList.h"

#include <gmock/gmock.h>

#include <array>
#include <vector>

namespace blankwell {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr auto prefix = "app.example.Files";

/// With everything that a document may hold and that must not be lost.
constexpr auto usersOwn = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE actions [
  <!ELEMENT actions (action)+>
]>
<!-- mine -->
<actions>
  <action>
    <name xml:lang="de">Größe &amp; &#x41; <![CDATA[<b>]]></name>
    <unique-id>1234-1</unique-id>
    <command>echo %f &gt; "x"</command>
    <directories/>
  </action>
  <?keep this?>
</actions>
)";

CustomAction action(std::string_view id, std::string_view name) {
    return {
        .id = std::string(prefix) + "." + std::string(id),
        .name = std::string(name),
        .description = "Create it",
        .icon = "text-x-generic",
        .submenu = "Create File",
        .command = "'/a b/blankwell' open md %f",
    };
}

std::string with(std::string_view document, const std::vector<CustomAction>& actions) {
    return withThunarActions(document, prefix, actions).value_or("(none)");
}

TEST(ThunarActionListTest, AnEmptyTextBecomesAList) {
    EXPECT_EQ(with("", {action("md", "Markdown")}), R"(<?xml version="1.0" encoding="UTF-8"?>
<actions>
<action>
	<icon>text-x-generic</icon>
	<name>Markdown</name>
	<submenu>Create File</submenu>
	<unique-id>app.example.Files.md</unique-id>
	<command>'/a b/blankwell' open md %f</command>
	<description>Create it</description>
	<range>1</range>
	<patterns>*</patterns>
	<directories/>
</action>
</actions>
)");
}

TEST(ThunarActionListTest, WhatOthersWroteStaysByteForByte) {
    const auto merged = with(usersOwn, {action("md", "Markdown"), action("txt", "Text")});
    const std::string_view whole = usersOwn;
    const auto end = whole.find("\n</actions>");
    EXPECT_THAT(merged, StartsWith(std::string(whole.substr(0, end)) + "\n<action>"));
    EXPECT_EQ(with(merged, {}), usersOwn);
}

TEST(ThunarActionListTest, TheActionsKeepTheirOrderAndAreThereOnce) {
    const std::vector actions{action("b", "B"), action("a", "A")};
    const auto once = with(usersOwn, actions);
    EXPECT_LT(once.find("<name>B<"), once.find("<name>A<"));
    EXPECT_EQ(with(once, actions), once);
}

TEST(ThunarActionListTest, FormerActionsGo) {
    const auto merged = with(with(usersOwn, {action("old", "Old")}), {action("new", "New")});
    EXPECT_THAT(merged, Not(HasSubstr("<name>Old<")));
    EXPECT_THAT(merged, HasSubstr("<name>New<"));
}

TEST(ThunarActionListTest, OddTextsAreEscaped) {
    auto odd = action("md", "a<b>&\"c\"");
    odd.command = "'/x\ny\t&<' open md %f";
    const auto text = with("", {odd});
    EXPECT_THAT(text, HasSubstr("<name>a&lt;b&gt;&amp;\"c\"</name>"));
    EXPECT_THAT(text, HasSubstr("<command>'/x&#10;y&#9;&amp;&lt;' open md %f</command>"));
}

TEST(ThunarActionListTest, WhatIsNoListOfActionsIsLeftAlone) {
    const std::vector actions{action("md", "Markdown")};
    for (const auto* const text : {"<actions><action></actions>", "<other/>", "text",
                                   "<actions a='\"'><action/></actions>", "\xff\xfe<\0a\0"}) {
        EXPECT_FALSE(withThunarActions(text, prefix, actions)) << text;
    }
}

} // namespace
} // namespace blankwell
