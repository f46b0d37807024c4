#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace blankwell {

/// Puts its items one after the other where texts begin, each as wide as it wants to be, and goes
/// on in the next line where one is full. An item that is wider than a line gets the whole line.
class FlowLayout : public QLayout {
    Q_OBJECT

public:
    /// `spacing` is between items and between lines.
    explicit FlowLayout(int spacing, QWidget* parent = nullptr);

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] QSize sizeHint() const override;
    void setGeometry(const QRect& geometry) override;

private:
    struct Line {
        std::vector<QLayoutItem*> items;
        int height = 0;
    };

    [[nodiscard]] std::vector<Line> lines(int width) const;

    std::vector<std::unique_ptr<QLayoutItem>> items_;
};

} // namespace blankwell
