#pragma once

#include "quickcreate/TileGrid.h"

#include <QWidget>

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

class FileTypeTileButton;
class Heading;
class SymbolLabel;
class TextLabel;
class Theme;
struct FileTypeDefinition;
struct QuickCreateSection;

/// The sections of tiles in the Quick Create panel, and what stands there when there are none.
///
/// A tile is made when its type is first shown and then kept, since a search shows the same few
/// tiles again and again. Tab and the arrow keys go from tile to tile in reading order.
class QuickCreateList : public QWidget {
    Q_OBJECT

public:
    /// `create` is called with the type of a tile that is pressed.
    QuickCreateList(const Theme& theme, std::function<void(const FileTypeDefinition&)> create,
                    QWidget* parent = nullptr);
    ~QuickCreateList() override;

    /// What to show from now on.
    void setSections(std::vector<QuickCreateSection> sections);

    [[nodiscard]] const std::vector<QuickCreateSection>& sections() const { return sections_; }

    /// Gives the keyboard to the first tile; false where there is none.
    bool focusFirstTile();

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// A tile got the keyboard.
    void tileFocused(QWidget* tile);

    /// The keyboard left the list at its top.
    void leftUpwards();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    FileTypeTileButton& tileOf(const FileTypeDefinition& type);
    Heading& titleOf(const QuickCreateSection& section);
    void putInReadingOrder();
    void arrange();
    void place(QWidget& widget, const QRect& rect) const;
    [[nodiscard]] int arrangeSection(const QuickCreateSection& section, int top, int tileHeight);
    [[nodiscard]] int arrangeEmptyState();
    void step(TileStep step);
    void focusTile(FileTypeTileButton& tile);

    const Theme& theme_;
    std::function<void(const FileTypeDefinition&)> create_;
    std::vector<QuickCreateSection> sections_;
    TileGrid grid_;
    std::vector<FileTypeTileButton*> shown_;
    std::vector<FileTypeTileButton*> tabOrder_;
    std::map<std::string, FileTypeTileButton*, std::less<>> tiles_;
    std::map<std::string_view, Heading*> titles_;
    SymbolLabel* emptySymbol_;
    TextLabel* emptyText_;
    int height_ = 0;
};

} // namespace blankwell
