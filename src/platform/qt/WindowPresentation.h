#pragma once

class QDialog;
class QWidget;

namespace blankwell {

/// Whether `window` is a panel: a tool beside the application's proper windows, which no task bar
/// lists.
[[nodiscard]] bool isPanel(const QWidget& window);

/// Brings the shown `window` to the front with the keyboard, as far as the desktop lets programs do
/// that.
void raiseAndActivate(QWidget& window);

/// Runs `dialog` above all other windows until it is closed, and returns its result. The window of
/// the application that had the keyboard gets it back.
int runInFront(QDialog& dialog);

} // namespace blankwell
