#pragma once

#include "filetypes/FileTypeDefinition.h"
#include "views/FileTypesListModel.h"

#include <QWidget>

namespace blankwell {

class Switch;
class Theme;

/// A file type in the list with its switch. The user drags it to another place, or moves it by Alt
/// with an arrow key while the switch has the keyboard; the row only tells of that.
class FileTypeRow : public QWidget {
    Q_OBJECT

public:
    FileTypeRow(const Theme& theme, const FileTypeDefinition& type, QWidget* parent = nullptr);

    [[nodiscard]] const std::string& id() const { return id_; }

    /// Has the keyboard for the row.
    [[nodiscard]] Switch& toggle() const { return *toggle_; }

    /// Turns the switch without telling of it.
    void setOn(bool isOn);

    /// Says that it is the row `position` of `count`, counted from 1.
    void setPosition(int position, int count);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void switchedByUser(bool isOn);
    void moveRequested(FileTypesListModel::Direction direction);
    /// The user drags the row; `place` is where the pointer is on the desktop.
    void dragged(QPoint place);
    void dropped();
    void dragCancelled();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void layOut(const FileTypeDefinition& type);
    [[nodiscard]] bool requestMove(const QKeyEvent& event);
    void beginDrag();
    void endDrag();
    void drawGrip(QPainter& painter) const;

    const Theme& theme_;
    std::string id_;
    Switch* toggle_;
    bool isOn_ = false;
    bool isFirst_ = true;
    bool isDragged_ = false;
    QPoint pressedAt_;
};

} // namespace blankwell
