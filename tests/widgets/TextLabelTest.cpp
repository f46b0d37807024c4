#include "widgets/TextLabel.h"

#include "widgets/Heading.h"
#include "widgets/WidgetTest.h"

#include <QVBoxLayout>

namespace blankwell {
namespace {

using Overflow = TextLabel::Overflow;

constexpr TextLabel::Look marked{.markup = TextLabel::Markup::boldRuns};

struct TextLabelTest : WidgetTest {
    static int inkedColumns(const QImage& image) {
        int columns = 0;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                if (image.pixelColor(x, y).lightness() < 160) {
                    ++columns;
                    break;
                }
            }
        }
        return columns;
    }

    static int firstInk(const QImage& image) {
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                if (image.pixelColor(x, y).lightness() < 160) {
                    return x;
                }
            }
        }
        return -1;
    }
};

TEST_F(TextLabelTest, RunsBetweenDoubleAsterisksAreBoldAndTheAsterisksGone) {
    TextLabel plain(theme, "Works in Dropbox and Downloads.", {});
    TextLabel bold(theme, "Works in **Dropbox and Downloads**.", marked);
    EXPECT_EQ(bold.text(), "Works in Dropbox and Downloads.");
    EXPECT_GT(bold.sizeHint().width(), plain.sizeHint().width());
}

TEST_F(TextLabelTest, AsterisksThatNothingClosesStay) {
    EXPECT_EQ(TextLabel(theme, "2 ** 3", marked).text(), "2 ** 3");
    EXPECT_EQ(TextLabel(theme, "**2** ** 3", marked).text(), "2 ** 3");
    EXPECT_EQ(TextLabel(theme, "**all**", marked).text(), "all");
}

TEST_F(TextLabelTest, AFileNameMayHaveAsterisks) {
    EXPECT_EQ(TextLabel(theme, "Created **a**.md in b", {}).text(), "Created **a**.md in b");
}

TEST_F(TextLabelTest, NothingElseIsMarkup) {
    EXPECT_EQ(TextLabel(theme, "<b>R&amp;D</b> & more", marked).text(), "<b>R&amp;D</b> & more");
}

TEST_F(TextLabelTest, AWrappedTextIsHigherWhereItIsNarrower) {
    const TextLabel label(theme, "Enable the extension for context menus where they are allowed.",
                          {.overflow = Overflow::wrap});
    const auto whole = label.sizeHint();
    EXPECT_EQ(label.heightForWidth(whole.width()), whole.height());
    EXPECT_GT(label.heightForWidth(whole.width() / 2), whole.height());
}

TEST_F(TextLabelTest, ALayoutGivesAWrappedTextTheHeightItNeeds) {
    QWidget window;
    auto* const label =
        new TextLabel(theme, "Enable the extension for context menus where allowed.",
                      {.overflow = Overflow::wrap});
    auto* const layout = new QVBoxLayout(&window);
    layout->addWidget(label);
    layout->addStretch();
    window.resize(label->sizeHint().width() / 2, 400);
    show(window);
    EXPECT_GE(label->height(), label->heightForWidth(label->width()));
    EXPECT_GT(label->height(), label->sizeHint().height());
}

TEST_F(TextLabelTest, AnElidedTextKeepsToItsWidthAndAPathBothItsEnds) {
    const std::string path = "/home/someone/with a rather long name/Desktop";
    TextLabel end(theme, path, {.overflow = Overflow::elideEnd});
    TextLabel middle(theme, path, {.overflow = Overflow::elideMiddle});
    for (auto* const label : {&end, &middle}) {
        EXPECT_LT(label->minimumSizeHint().width(), 80);
        label->resize(120, label->sizeHint().height());
    }
    EXPECT_NE(imageOf(end), imageOf(middle));
    EXPECT_EQ(imageOf(end).width(), 120);
    EXPECT_EQ(middle.text().toStdString(), path);
}

TEST_F(TextLabelTest, ALabelThatMustNotShrinkAsksForItsWholeWidth) {
    const TextLabel label(theme, "Create File", {.style = TextStyle::title3});
    EXPECT_EQ(label.minimumSizeHint(), label.sizeHint());
}

TEST_F(TextLabelTest, ScreenReadersReadTheText) {
    TextLabel label(theme, "No **saved** roots.", marked);
    EXPECT_EQ(accessible(label).role(), QAccessible::StaticText);
    EXPECT_EQ(accessibleName(label), "No saved roots.");
    label.setText("1 root.");
    EXPECT_EQ(accessibleName(label), "1 root.");
}

TEST_F(TextLabelTest, ScreenReadersSeeAHeadingAsSuch) {
    Heading heading(theme, "Folder **Access**", {.style = TextStyle::headline});
    EXPECT_EQ(accessible(heading).role(), QAccessible::Heading);
    EXPECT_EQ(accessibleName(heading), "Folder **Access**");
}

TEST_F(TextLabelTest, ATextHasTheColourOfItsRole) {
    TextLabel label(theme, "Conflict", {.style = TextStyle::title, .color = ColorRole::red});
    label.resize(label.sizeHint());
    const auto red = imageOf(label);
    label.setColor(ColorRole::label);
    EXPECT_NE(imageOf(label), red);
}

TEST_F(TextLabelTest, FromRightToLeftTheTextStandsRight) {
    TextLabel label(theme, "Abc", {});
    label.resize(label.sizeHint().width() + 100, label.sizeHint().height());
    EXPECT_LT(firstInk(imageOf(label)), 10);
    label.setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(firstInk(imageOf(label)), 90);
}

TEST_F(TextLabelTest, ALargerFontOfTheDesktopMakesItLarger) {
    TextLabel label(theme, "Text", {});
    show(label);
    const auto before = label.sizeHint();
    const auto columns = inkedColumns(imageOf(label));
    enlargeFont(1.5);
    EXPECT_GT(label.sizeHint().height(), before.height());
    EXPECT_TRUE(QTest::qWaitFor([&] { return inkedColumns(imageOf(label)) > columns; }));
}

} // namespace
} // namespace blankwell
