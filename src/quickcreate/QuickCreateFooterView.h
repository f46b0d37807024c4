#pragma once

#include <QWidget>

namespace blankwell {

class SymbolLabel;
class TextLabel;
class Theme;
struct QuickCreateFooter;

/// The bottom of the Quick Create panel: where files go, and what came of the last one.
class QuickCreateFooterView : public QWidget {
    Q_OBJECT

public:
    explicit QuickCreateFooterView(const Theme& theme, QWidget* parent = nullptr);

    void setFooter(const QuickCreateFooter& footer);

private:
    SymbolLabel* symbol_;
    TextLabel* firstLine_;
    TextLabel* secondLine_;
};

} // namespace blankwell
