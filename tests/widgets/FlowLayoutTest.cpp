#include "widgets/FlowLayout.h"

#include "widgets/WidgetTest.h"

namespace blankwell {
namespace {

struct FlowLayoutTest : WidgetTest {
    FlowLayoutTest() {
        for (const auto size : {QSize(60, 20), QSize(60, 30), QSize(60, 20)}) {
            auto* const item = new QWidget;
            item->setFixedSize(size);
            layout->addWidget(item);
            items.push_back(item);
        }
    }

    void open(int width) {
        box.setFixedWidth(width);
        box.resize(width, 100);
        show(box);
    }

    QWidget box;
    FlowLayout* layout = new FlowLayout(10, &box);
    std::vector<QWidget*> items;
};

TEST_F(FlowLayoutTest, ItemsStandSideBySideInTheMiddleOfTheirLine) {
    open(200);
    EXPECT_EQ(items[0]->geometry(), QRect(0, 5, 60, 20));
    EXPECT_EQ(items[1]->geometry(), QRect(70, 0, 60, 30));
    EXPECT_EQ(items[2]->geometry(), QRect(140, 5, 60, 20));
    EXPECT_EQ(layout->heightForWidth(200), 30);
}

TEST_F(FlowLayoutTest, WhereALineIsFullTheNextBegins) {
    open(199);
    EXPECT_EQ(items[1]->geometry(), QRect(70, 0, 60, 30));
    EXPECT_EQ(items[2]->geometry(), QRect(0, 40, 60, 20));
    EXPECT_EQ(layout->heightForWidth(199), 60);
}

TEST_F(FlowLayoutTest, FromRightToLeftTheFirstStandsRight) {
    box.setLayoutDirection(Qt::RightToLeft);
    open(200);
    EXPECT_EQ(items[0]->geometry(), QRect(140, 5, 60, 20));
    EXPECT_EQ(items[2]->geometry(), QRect(0, 5, 60, 20));
}

TEST_F(FlowLayoutTest, HiddenItemsTakeNoRoom) {
    items[0]->hide();
    open(200);
    EXPECT_EQ(items[1]->geometry(), QRect(0, 0, 60, 30));
}

TEST_F(FlowLayoutTest, ItIsAsWideAsOneLineAndNoNarrowerThanItsWidestItem) {
    EXPECT_EQ(layout->sizeHint().width(), 200);
    EXPECT_EQ(layout->minimumSize().width(), 60);
}

} // namespace
} // namespace blankwell
