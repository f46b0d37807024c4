#pragma once

#include <QApplication>
#include <QTimer>

#include <functional>

namespace blankwell {

/// Calls `act` with the dialog that the call to come opens, once it is shown. A dialog that is
/// still open three seconds later is closed, so that no test waits for ever.
template <typename Dialog>
void whenShown(std::function<void(Dialog&)> act) {
    QTimer::singleShot(0, [act = std::move(act)] {
        auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) {
            whenShown<Dialog>(act);
            return;
        }
        QTimer::singleShot(3000, dialog, [dialog] { dialog->close(); });
        act(*dialog);
    });
}

} // namespace blankwell
