#pragma once

#include "widgets/Colors.h"

#include <QWidget>

#include <string_view>

namespace blankwell {

class Theme;

/// A paragraph of a page that teaches the user, with bold runs.
[[nodiscard]] QWidget* guideText(const Theme& theme, std::string_view text, ColorRole color,
                                 Qt::Alignment alignment = Qt::AlignLeading);

/// A text, maybe with a title of its own, beside a symbol or a number.
class GuideItem : public QWidget {
    Q_OBJECT

public:
    struct Texts {
        /// Empty for none.
        std::string_view title;
        std::string_view text;
    };

    /// Takes over `mark`. It stands beside the title, or beside the middle of a text that has none.
    GuideItem(const Theme& theme, QWidget* mark, const Texts& texts, QWidget* parent = nullptr);

    /// With a symbol, in a column of the width of those in lists.
    GuideItem(const Theme& theme, std::string_view symbol, const Texts& texts,
              QWidget* parent = nullptr);
};

} // namespace blankwell
