#include "widgets/TextLine.h"

#include "widgets/Painting.h"
#include "widgets/WidgetTest.h"

#include <QFontMetrics>
#include <QPainter>

#include <functional>

namespace blankwell {
namespace {

struct TextLineTest : WidgetTest {
    static constexpr int room = 120;

    static QImage drawn(const std::function<void(QPainter&)>& draw) {
        QImage image(300, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setPen(Qt::black);
        draw(painter);
        return image;
    }

    QImage drawn(TextLine& drawnLine, int width = room) const {
        return drawn([&](QPainter& painter) {
            drawnLine.draw(painter, QRectF(10, 5, width, drawnLine.height()), widget);
        });
    }

    /// The same text, arranged for this one painting.
    [[nodiscard]] QImage expected(const QString& text, int width = room) const {
        return drawn([&](QPainter& painter) {
            const auto style = fontOf(TextStyle::body);
            painter.setFont(style);
            const QRectF place(10, 5, width, QFontMetrics(style).height());
            drawLine(painter, place, Qt::AlignLeading, text, widget);
        });
    }

    static QString shortened(const QString& text, int width) {
        return QFontMetrics(fontOf(TextStyle::body)).elidedText(text, Qt::ElideRight, width);
    }

    QWidget widget;
    const QString name = "Markdown";
    TextLine line{name, TextStyle::body};
};

TEST_F(TextLineTest, DrawsItsTextEachTime) {
    EXPECT_NE(expected(name), expected(""));
    EXPECT_EQ(drawn(line), expected(name));
    EXPECT_EQ(drawn(line), expected(name));
}

TEST_F(TextLineTest, ItsEndIsLeftOutWhereTheRoomEnds) {
    const QString text = "A name that is far too long for the room that it has";
    TextLine longLine(text, TextStyle::body);
    ASSERT_NE(shortened(text, room), text);
    EXPECT_EQ(drawn(longLine), expected(shortened(text, room)));
    EXPECT_EQ(drawn(longLine, 80), expected(shortened(text, 80), 80));
    EXPECT_EQ(drawn(longLine), expected(shortened(text, room)));
}

TEST_F(TextLineTest, FollowsTheFont) {
    const auto before = drawn(line);
    const int height = line.height();
    enlargeFont(1.5);
    EXPECT_GT(line.height(), height);
    EXPECT_NE(drawn(line), before);
    EXPECT_EQ(drawn(line), expected(name));
}

TEST_F(TextLineTest, BeginsWhereTextsBegin) {
    const auto before = drawn(line);
    widget.setLayoutDirection(Qt::RightToLeft);
    EXPECT_NE(drawn(line), before);
    EXPECT_EQ(drawn(line), expected(name));
}

TEST_F(TextLineTest, ATextIsNoMarkup) {
    TextLine marked("<b>a</b>", TextStyle::body);
    EXPECT_EQ(drawn(marked), expected("<b>a</b>"));
}

} // namespace
} // namespace blankwell
