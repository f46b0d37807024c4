#include "widgets/Card.h"
#include "widgets/ScrollArea.h"
#include "widgets/Separator.h"
#include "widgets/SymbolLabel.h"
#include "widgets/WidgetTest.h"

#include <QScrollBar>
#include <QVBoxLayout>

namespace blankwell {
namespace {

using CardTest = WidgetTest;
using SeparatorTest = WidgetTest;
using SymbolLabelTest = WidgetTest;

TEST_F(CardTest, ItHasARoundedGroundAndRoomAroundItsContent) {
    Card card(theme);
    auto* const content = new QWidget;
    card.content().addWidget(content);
    card.resize(200, 100);
    const auto image = imageOf(card);
    EXPECT_EQ(image.pixelColor(100, 50), theme.color(ColorRole::controlBackground));
    EXPECT_EQ(image.pixelColor(100, 0), theme.color(ColorRole::separator));
    EXPECT_EQ(image.pixelColor(0, 0), theme.color(ColorRole::windowBackground));
    EXPECT_EQ(content->geometry(), QRect(16, 16, 168, 68));
}

TEST_F(SeparatorTest, ItIsOneLine) {
    Separator line(theme);
    line.resize(50, line.height());
    EXPECT_EQ(line.height(), 1);
    EXPECT_EQ(imageOf(line).pixelColor(25, 0), theme.color(ColorRole::separator));
}

TEST_F(SymbolLabelTest, TheSymbolStandsInTheMiddleOfItsColumnInItsColour) {
    SymbolLabel label(theme, "doc.fill", {.size = 16, .columnWidth = 40, .color = ColorRole::red});
    EXPECT_EQ(label.size(), QSize(40, 16));
    EXPECT_EQ(imageOf(label).pixelColor(20, 10), theme.color(ColorRole::red));
    EXPECT_EQ(imageOf(label).pixelColor(4, 10), theme.color(ColorRole::windowBackground));
    label.setSymbol("magnifyingglass");
    EXPECT_EQ(label.symbol(), "magnifyingglass");
    EXPECT_NE(imageOf(label).pixelColor(20, 14), theme.color(ColorRole::red));
}

struct ScrollAreaTest : WidgetTest {
    void setContentHeight(int height) {
        auto* const content = new QWidget;
        content->setFixedHeight(height);
        area.setWidget(content);
        area.resize(200, 300);
        show(area);
    }

    [[nodiscard]] QImage bar() const { return imageOf(*area.verticalScrollBar()); }

    static bool isBlank(const QImage& image) {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) != image.pixel(0, 0)) {
                    return false;
                }
            }
        }
        return true;
    }

    ScrollArea area{theme};
};

TEST_F(ScrollAreaTest, WithNothingToScrollThereIsNoBarButItsRoom) {
    setContentHeight(100);
    EXPECT_TRUE(isBlank(bar()));
    EXPECT_EQ(area.widget()->width(), 200 - ScrollArea::barWidth);
}

TEST_F(ScrollAreaTest, TheHandleShowsAndMovesTheContent) {
    setContentHeight(900);
    EXPECT_FALSE(isBlank(bar()));
    auto& scroll = *area.verticalScrollBar();
    // A third of the content is seen, so the handle is a third of the bar.
    EXPECT_TRUE(isBlank(bar().copy(0, 110, 10, 190)));
    QTest::mousePress(&scroll, Qt::LeftButton, {}, {5, 50});
    QTest::mouseMove(&scroll, {5, 100});
    QTest::mouseMove(&scroll, {5, 250});
    QTest::mouseRelease(&scroll, Qt::LeftButton, {}, {5, 250});
    EXPECT_EQ(scroll.value(), scroll.maximum());
    EXPECT_TRUE(isBlank(bar().copy(0, 0, 10, 190)));
    EXPECT_FALSE(isBlank(bar()));
}

TEST_F(ScrollAreaTest, AClickBesideTheHandleTurnsThePage) {
    setContentHeight(900);
    auto& scroll = *area.verticalScrollBar();
    QTest::mouseClick(&scroll, Qt::LeftButton, {}, {5, 290});
    EXPECT_EQ(scroll.value(), scroll.pageStep());
    QTest::mouseClick(&scroll, Qt::LeftButton, {}, {5, 10});
    EXPECT_EQ(scroll.value(), 0);
}

} // namespace
} // namespace blankwell
