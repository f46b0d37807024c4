#pragma once

#include <QWidget>

namespace blankwell {

class Switch;
class TextLabel;
class Theme;
struct FileManagerMenuRow;

/// A file manager with the switch of its menu, and below its name what there is to know.
class FileManagerMenuRowView : public QWidget {
    Q_OBJECT

public:
    FileManagerMenuRowView(const Theme& theme, const FileManagerMenuRow& row,
                           QWidget* parent = nullptr);

    /// Shows `row`, of the same file manager, without telling of it.
    void show(const FileManagerMenuRow& row);

signals:
    void switchedByUser(bool isOn);

private:
    Switch* toggle_;
    TextLabel* note_;
    bool isOn_ = false;
};

} // namespace blankwell
