#pragma once

#include <QWidget>

namespace blankwell {

class ScrollArea;
class Theme;
struct HelpContent;

/// The help window. The keys that scroll a page scroll it.
class HelpView : public QWidget {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    HelpView(const Theme& theme, const HelpContent& content, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    ScrollArea* area_;
};

} // namespace blankwell
