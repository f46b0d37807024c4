#pragma once

#include "updates/UpdatePage.h"

#include <QWidget>

#include <string>
#include <string_view>

class QProgressBar;
class QScrollArea;
class QVBoxLayout;

namespace blankwell {

class TextLabel;
class Theme;

/// A page about updates. Shows what it is told and decides nothing.
class UpdateView : public QWidget {
    Q_OBJECT

public:
    explicit UpdateView(const Theme& theme, QWidget* parent = nullptr);

    /// Shows `page` in place of the one before. While only the progress of a page changes, nothing
    /// else is made anew, so that the keyboard stays where it is.
    void show(const UpdatePage& page, bool checksAutomatically);

    /// Says under the page's link that nothing opened it.
    void tellOfUnopenedLink();

signals:
    void answered(blankwell::UpdateAnswer answer);
    void checksAutomaticallyChanged(bool checks);
    /// The user wants to read the page at `url`, which is UTF-8.
    void linkPressed(const std::string& url);

protected:
    void changeEvent(QEvent* event) override;

private:
    void build(bool checksAutomatically);
    void addTexts(QVBoxLayout& lines);
    void addNotes(QVBoxLayout& lines);
    [[nodiscard]] QWidget* notesOf(std::string_view notes);
    void addNotesLink(QVBoxLayout& lines);
    void addProgress(QVBoxLayout& lines);
    void addAutomaticChecks(QVBoxLayout& lines, bool checksAutomatically);
    void addButtons(QVBoxLayout& lines);
    void showProgress();
    void takeSize();

    const Theme& theme_;
    UpdatePage page_;
    QWidget* content_ = nullptr;
    QScrollArea* notes_ = nullptr;
    QProgressBar* bar_ = nullptr;
    TextLabel* amount_ = nullptr;
    /// What became of the link.
    TextLabel* linkNotice_ = nullptr;
    /// The button that the keyboard starts at.
    QWidget* first_ = nullptr;
};

} // namespace blankwell
