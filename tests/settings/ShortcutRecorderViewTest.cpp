#include "settings/ShortcutRecorderView.h"

#include "settings/KeySender.h"
#include "settings/OptionalShortcutRecorderView.h"
#include "widgets/WidgetTest.h"

namespace blankwell {
namespace {

constexpr QuickCreateShortcut commandM{.keyCode = 46, .carbonModifiers = 0x100};
constexpr QuickCreateShortcut shiftA{.keyCode = 0, .carbonModifiers = 0x200};

struct ShortcutRecorderViewTest : WidgetTest {
    CountedRecorderServices counted;
};

TEST_F(ShortcutRecorderViewTest, ItShowsAndSetsTheBoundShortcut) {
    QuickCreateShortcut bound = commandM;
    ShortcutRecorderView view(
        theme, "Quick Create Shortcut", counted.services,
        {.get = [&] { return bound; }, .set = [&](const auto& shortcut) { bound = shortcut; }});
    EXPECT_EQ(view.appearance().text, "⌘ + M");
    KeySender::click(view, keys::a, Qt::ShiftModifier);
    EXPECT_EQ(bound, shiftA);
    bound = commandM;
    view.readBinding();
    EXPECT_EQ(view.shortcut(), commandM);
}

TEST_F(ShortcutRecorderViewTest, AnAbsentShortcutIsAskedForInTheSecondaryColour) {
    std::optional<QuickCreateShortcut> bound;
    OptionalShortcutRecorderView view(
        theme, "Markdown shortcut", counted.services,
        {.get = [&] { return bound; }, .set = [&](const auto& shortcut) { bound = shortcut; }});
    EXPECT_EQ(view.shortcut(), std::nullopt);
    EXPECT_EQ(view.appearance().text, "Set Shortcut");
    EXPECT_EQ(view.appearance().textColor, ColorRole::secondaryLabel);
    KeySender::click(view, keys::a, Qt::ShiftModifier);
    EXPECT_EQ(bound, shiftA);
    bound.reset();
    view.readBinding();
    EXPECT_EQ(view.appearance().text, "Set Shortcut");
}

} // namespace
} // namespace blankwell
