#pragma once

#include "widgets/Glide.h"

#include <QWidget>

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

class Segment;
class Theme;

/// A choice of one out of a few, side by side.
///
/// Tab goes to the selected segment, the arrow keys select another. Screen readers see a group of
/// radio buttons of the given name. Natural segments are as wide as their titles; in a control that
/// is made wider than that, all get the same width.
class SegmentedControl : public QWidget {
    Q_OBJECT

public:
    struct Title {
        std::string text;
        /// Empty for none.
        std::string symbol;
    };

    /// The first segment is selected.
    SegmentedControl(const Theme& theme, std::string_view name, std::span<const Title> titles,
                     QWidget* parent = nullptr);

    [[nodiscard]] int selected() const;

    /// Selects without telling of it.
    void select(int index);

signals:
    /// The user selected another segment.
    void selectedByUser(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void choose(int index);
    void layOutPill();
    [[nodiscard]] QRect placeOfPill() const;
    [[nodiscard]] QRectF pill() const;

    const Theme& theme_;
    std::vector<Segment*> segments_;
    Glide left_;
    Glide width_;
};

} // namespace blankwell
