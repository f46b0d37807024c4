#pragma once

#include "widgets/Colors.h"

#include <QWidget>

#include <string>
#include <string_view>

namespace blankwell {

class Theme;

/// A symbol that cannot be clicked. It only adorns the text beside it, so it has no name of its
/// own.
class SymbolLabel : public QWidget {
    Q_OBJECT

public:
    struct Look {
        /// The side of the square that the symbol fills.
        int size = 16;
        /// The width of the column in whose middle it stands; no less than the size.
        int columnWidth = 0;
        ColorRole color = ColorRole::accent;
    };

    SymbolLabel(const Theme& theme, std::string_view symbol, const Look& look,
                QWidget* parent = nullptr);

    [[nodiscard]] const std::string& symbol() const { return symbol_; }

    void setSymbol(std::string_view symbol);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Theme& theme_;
    std::string symbol_;
    Look look_;
};

} // namespace blankwell
