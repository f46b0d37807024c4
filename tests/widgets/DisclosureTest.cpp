#include "widgets/Disclosure.h"

#include "widgets/DisclosureHeader.h"
#include "widgets/TextLabel.h"
#include "widgets/WidgetTest.h"

#include <QVBoxLayout>

namespace blankwell {
namespace {

struct DisclosureTest : WidgetTest {
    DisclosureTest() { disclosure.content().addWidget(row); }

    DisclosureHeader& header() { return *disclosure.findChild<DisclosureHeader*>(); }

    Disclosure disclosure{theme, "Direct File Shortcuts", "bolt.fill"};
    TextLabel* row = new TextLabel(theme, "Markdown", {});
};

TEST_F(DisclosureTest, TheContentIsHiddenUntilTheTitleIsClicked) {
    std::vector<bool> told;
    QObject::connect(&disclosure, &Disclosure::toggled,
                     [&](bool isExpanded) { told.push_back(isExpanded); });
    show(disclosure);
    EXPECT_FALSE(row->isVisible());
    QTest::mouseClick(&header(), Qt::LeftButton);
    EXPECT_TRUE(row->isVisible());
    EXPECT_TRUE(disclosure.isExpanded());
    QTest::mouseClick(&header(), Qt::LeftButton);
    EXPECT_FALSE(row->isVisible());
    EXPECT_THAT(told, testing::ElementsAre(true, false));
}

TEST_F(DisclosureTest, SpaceAndReturnOpenAndCloseIt) {
    show(disclosure);
    QTest::keyClick(&header(), Qt::Key_Space);
    EXPECT_TRUE(disclosure.isExpanded());
    QTest::keyClick(&header(), Qt::Key_Return);
    EXPECT_FALSE(disclosure.isExpanded());
}

TEST_F(DisclosureTest, ScreenReadersSeeWhetherItIsExpanded) {
    auto& interface = accessible(header());
    EXPECT_EQ(interface.role(), QAccessible::Button);
    EXPECT_EQ(accessibleName(header()), "Direct File Shortcuts");
    EXPECT_TRUE(interface.state().expandable);
    EXPECT_TRUE(interface.state().collapsed);
    EXPECT_FALSE(interface.state().expanded);
    interface.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(disclosure.isExpanded());
    EXPECT_TRUE(interface.state().expanded);
    EXPECT_FALSE(interface.state().collapsed);
}

TEST_F(DisclosureTest, TheChevronTurnsWithTheContent) {
    desktop.set({.scheme = ColorScheme::light, .accent = std::nullopt, .reducesMotion = true});
    show(disclosure);
    const auto chevron = [&] { return imageOf(header()).copy(0, 0, 12, header().height()); };
    const auto closed = chevron();
    disclosure.setExpanded(true);
    EXPECT_NE(chevron(), closed);
    disclosure.setExpanded(false);
    EXPECT_EQ(chevron(), closed);
}

} // namespace
} // namespace blankwell
