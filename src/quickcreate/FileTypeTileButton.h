#pragma once

#include "filetypes/FileTypeDefinition.h"
#include "widgets/TextLine.h"

#include <QPushButton>

#include <functional>

namespace blankwell {

class Theme;

/// A tile that creates a file of its type: by a click, and by Space and Return while it has the
/// keyboard.
class FileTypeTileButton : public QPushButton {
    Q_OBJECT

public:
    /// `action` runs whenever the tile is pressed.
    FileTypeTileButton(const Theme& theme, FileTypeDefinition type, std::function<void()> action,
                       QWidget* parent = nullptr);

    [[nodiscard]] const FileTypeDefinition& type() const { return type_; }

    [[nodiscard]] QSize sizeHint() const override;

    /// Narrow enough for three beside each other; longer names are shortened.
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void drawGround(QPainter& painter) const;
    void drawSquare(QPainter& painter) const;
    void drawTexts(QPainter& painter);

    const Theme& theme_;
    FileTypeDefinition type_;
    TextLine name_;
    TextLine extension_;
};

} // namespace blankwell
