#pragma once

#include "views/EdgeScrolling.h"
#include "views/FileTypesListModel.h"

#include <QWidget>

#include <cstddef>
#include <vector>

class QVBoxLayout;

namespace blankwell {

class DropIndicator;
class FileTypeRow;
class Theme;

/// The types of one category, which the user puts in an order among themselves.
class FileTypeSectionView : public QWidget {
    Q_OBJECT

public:
    /// Has a row for each type of `section`. `model` must outlive this object.
    FileTypeSectionView(const Theme& theme, FileTypesListModel& model,
                        const FileTypeSection& section, QWidget* parent = nullptr);

    /// Puts the rows in the order of `section`, which has the same types, and turns their switches.
    void render(const FileTypeSection& section);

    /// From top to bottom.
    [[nodiscard]] const std::vector<FileTypeRow*>& rows() const { return rows_; }

signals:
    /// The user has moved the row with the keyboard, which it still has.
    void movedByKeyboard();

private:
    FileTypeRow* makeRow(const Theme& theme, const FileTypeDefinition& type);
    [[nodiscard]] std::size_t placeAt(QPoint place) const;
    void dragTo(QPoint place);
    void drop(const FileTypeRow& row);
    void endDrag();

    FileTypesListModel& model_;
    QVBoxLayout* column_;
    std::vector<FileTypeRow*> rows_;
    DropIndicator* indicator_;
    /// How many rows stand above where the dragged one would be dropped.
    std::size_t dropPlace_ = 0;
    EdgeScrolling edgeScrolling_{*this};
};

} // namespace blankwell
