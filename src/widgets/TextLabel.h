#pragma once

#include "widgets/Colors.h"
#include "widgets/Typography.h"

#include <QTextLayout>
#include <QWidget>

#include <string_view>

namespace blankwell {

class Theme;

/// A text to be read, as it stands.
class TextLabel : public QWidget {
    Q_OBJECT

public:
    /// What happens to a text that is longer than the label is wide.
    enum class Overflow {
        /// The label is as wide as the text.
        none,
        /// It goes on in the next line.
        wrap,
        /// An ellipsis stands for the end.
        elideEnd,
        /// An ellipsis stands for the middle, as suits paths.
        elideMiddle,
    };

    /// What asterisks in a text are.
    enum class Markup {
        none,
        /// Runs between double asterisks are bold, and the asterisks not shown.
        boldRuns,
    };

    struct Look {
        TextStyle style = TextStyle::body;
        ColorRole color = ColorRole::label;
        Overflow overflow = Overflow::none;
        Markup markup = Markup::none;
        Qt::Alignment alignment = Qt::AlignLeading;
    };

    TextLabel(const Theme& theme, std::string_view text, const Look& look,
              QWidget* parent = nullptr);

    /// The text as it is read, without markup.
    [[nodiscard]] const QString& text() const { return text_; }

    /// Screen readers hear of the change.
    void setText(std::string_view text);

    void setColor(ColorRole color);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool take(std::string_view text);
    [[nodiscard]] bool isElided() const;
    [[nodiscard]] QString shownText() const;
    [[nodiscard]] QSizeF layOut(QTextLayout& layout, double width) const;

    const Theme& theme_;
    Look look_;
    QString text_;
    QList<QTextLayout::FormatRange> boldRuns_;
};

} // namespace blankwell
