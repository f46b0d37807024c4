#include "platform/linux/AccessibleFolder.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace blankwell {
namespace {

using Role = Accessible::Role;
using State = Accessible::State;

constexpr auto menu = static_cast<Role>(33);
constexpr auto table = static_cast<Role>(55);

/// What a widget is told to be.
struct Widget {
    Role role = Role::panel;
    std::string name;
    std::set<State> states = {State::showing};
    std::string text;
    std::vector<Widget> children;
    bool isSilent = false;
};

class ScriptedAccessible : public Accessible {
public:
    explicit ScriptedAccessible(Widget widget) : widget_(std::move(widget)) {}

    std::optional<Role> role() override { return answer(widget_.role); }

    std::optional<std::string> name() override { return answer(widget_.name); }

    std::optional<std::string> text() override { return answer(widget_.text); }

    std::optional<bool> is(State state) override { return answer(widget_.states.contains(state)); }

    std::optional<Children> children() override {
        Children children;
        for (const auto& child : widget_.children) {
            children.push_back(std::make_unique<ScriptedAccessible>(child));
        }
        return widget_.isSilent ? std::nullopt : std::optional(std::move(children));
    }

private:
    template <typename Value>
    std::optional<Value> answer(Value value) const {
        return widget_.isSilent ? std::nullopt : std::optional(std::move(value));
    }

    Widget widget_;
};

Widget field(const std::string& text) {
    return {.role = Role::text, .text = text};
}

Widget button(const std::string& name, Role role = Role::toggleButton) {
    return {.role = role, .name = name};
}

Widget downButton(const std::string& name, Role role = Role::toggleButton) {
    return {.role = role, .name = name, .states = {State::showing, State::checked}};
}

/// A window with these widgets in a tool bar.
Widget window(std::vector<Widget> bar) {
    Widget toolBar{.role = Role::toolBar, .children = std::move(bar)};
    return {.role = Role::frame, .children = {{.children = {std::move(toolBar)}}}};
}

/// The folder called "b" that the windows show, on a disk with /a/b, /a/b/c and /x/b.
std::optional<FileUrl> folderIn(std::vector<Widget> windows) {
    Accessible::Children children;
    for (auto& one : windows) {
        children.push_back(std::make_unique<ScriptedAccessible>(std::move(one)));
    }
    const std::set<std::string> folders{"/", "/a", "/a/b", "/a/b/c", "/x", "/x/b"};
    return folderInAccessibleWindows(
        std::move(children), "b", [&](const FileUrl& url) { return folders.contains(url.path()); });
}

TEST(AccessibleFolder, IsThePathInTheLocationField) {
    EXPECT_EQ(folderIn({window({field("/a/b")})}), FileUrl("/a/b"));
    EXPECT_EQ(folderIn({window({field("/a/b/")})}), FileUrl("/a/b"));
    auto entry = field("/a/b");
    entry.role = Role::entry;
    EXPECT_EQ(folderIn({window({entry})}), FileUrl("/a/b"));
}

TEST(AccessibleFolder, IsWhatThePathBarLeadsTo) {
    EXPECT_EQ(folderIn({window({downButton("b"), button("a"), button("")})}), FileUrl("/a/b"));
    EXPECT_EQ(folderIn({window({downButton("b", Role::checkBox), button("a", Role::checkBox),
                                button("/", Role::checkBox)})}),
              FileUrl("/a/b"));
    EXPECT_EQ(folderIn({window({button("/"), button("a"), downButton("b")})}), FileUrl("/a/b"))
        << "the other way round";
}

TEST(AccessibleFolder, IsTheButtonThatIsDownThoughThePathBarRemembersDeeperOnes) {
    EXPECT_EQ(folderIn({window({button("c"), downButton("b"), button("a"), button("")})}),
              FileUrl("/a/b"));
}

TEST(AccessibleFolder, IsNoneWithoutAPathToTheTop) {
    EXPECT_EQ(folderIn({window({downButton("b"), button("a"), button("Disk")})}), std::nullopt);
    EXPECT_EQ(folderIn({window({downButton("b")})}), std::nullopt);
    EXPECT_EQ(folderIn({window({button("b"), button("a"), button("")})}), std::nullopt)
        << "no button is down";
    EXPECT_EQ(folderIn({window({downButton("b"), downButton("a"), button("")})}), std::nullopt);
    EXPECT_EQ(folderIn({window({downButton("b"), button(""), button("a"), button("")})}),
              std::nullopt);
    EXPECT_EQ(folderIn({window({field("b")})}), std::nullopt);
    EXPECT_EQ(folderIn({window({})}), std::nullopt);
    EXPECT_EQ(folderIn({}), std::nullopt);
}

TEST(AccessibleFolder, HasTheNameOfTheTitleAndExists) {
    EXPECT_EQ(folderIn({window({field("/a/b/c")})}), std::nullopt);
    EXPECT_EQ(folderIn({window({field("/y/b")})}), std::nullopt);
    EXPECT_EQ(folderIn({window({field("/a/b/c"), field("/a/b")})}), FileUrl("/a/b"));
}

TEST(AccessibleFolder, IsNoneWhereTwoAreShown) {
    EXPECT_EQ(folderIn({window({field("/a/b"), field("/x/b")})}), std::nullopt);
    EXPECT_EQ(folderIn({window({field("/a/b")}), window({field("/x/b")})}), std::nullopt);
    EXPECT_EQ(folderIn({window({field("/a/b")}), window({field("/a/b/")})}), FileUrl("/a/b"))
        << "the same twice";
}

TEST(AccessibleFolder, IsNotReadFromAHiddenBarNorFromOneInUse) {
    auto hidden = field("/a/b");
    hidden.states = {};
    EXPECT_EQ(folderIn({window({hidden})}), std::nullopt);
    auto edited = field("/a/b");
    edited.states = {State::showing, State::focused};
    EXPECT_EQ(folderIn({window({edited})}), std::nullopt);
    EXPECT_EQ(folderIn({window({{.states = {}, .children = {field("/a/b")}}})}), std::nullopt);
}

TEST(AccessibleFolder, IsNotLookedForInMenusAndViews) {
    for (const auto role : {menu, table}) {
        EXPECT_EQ(folderIn({window({{.role = role, .children = {field("/a/b")}}})}), std::nullopt);
    }
}

TEST(AccessibleFolder, IsNoneWhereAnAnswerIsMissing) {
    Widget silent{.isSilent = true};
    EXPECT_EQ(folderIn({window({field("/a/b"), silent})}), std::nullopt);
    EXPECT_EQ(folderIn({window({field("/a/b")}), silent}), std::nullopt);
}

} // namespace
} // namespace blankwell
