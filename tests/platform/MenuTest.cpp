#include "platform/Menu.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(MenuTest, ActionsAreReplacedAtEveryDepthAndTheRestStays) {
    const Menu<int> menu{
        MenuHeader{"Title"},
        MenuSeparator{},
        Submenu<int>{"More", {"folder", "Folder"}, {MenuCommand<int>{"Deep", {}, false, 2}}},
        MenuCommand<int>{"Top", {"power", "Top"}, true, 1},
    };
    int sum = 0;
    const auto bound = withActions<int>(menu, [&](int action) -> std::function<void()> {
        return [&sum, action] { sum += action; };
    });

    ASSERT_EQ(bound.size(), 4U);
    EXPECT_EQ(std::get<MenuHeader>(bound[0]).title, "Title");
    EXPECT_TRUE(std::holds_alternative<MenuSeparator>(bound[1]));
    const auto& submenu = std::get<Submenu<std::function<void()>>>(bound[2]);
    const auto& deep = std::get<MenuCommand<std::function<void()>>>(submenu.items.at(0));
    const auto& top = std::get<MenuCommand<std::function<void()>>>(bound[3]);
    EXPECT_EQ(submenu.symbol, (MenuSymbol{"folder", "Folder"}));
    EXPECT_FALSE(deep.isEnabled);
    EXPECT_EQ(top.title, "Top");
    top.action();
    EXPECT_EQ(sum, 1);
    deep.action();
    EXPECT_EQ(sum, 3);
}

TEST(MenuTest, MenusAreEqualOnlyIfTheirSubmenusAre) {
    const Menu<int> menu{Submenu<int>{"A", {}, {MenuHeader{"x"}}}};
    EXPECT_EQ(menu, (Menu<int>{Submenu<int>{"A", {}, {MenuHeader{"x"}}}}));
    EXPECT_NE(menu, (Menu<int>{Submenu<int>{"A", {}, {MenuHeader{"y"}}}}));
}

} // namespace
} // namespace blankwell
