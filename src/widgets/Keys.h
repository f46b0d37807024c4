#pragma once

#include <QKeyEvent>

namespace blankwell {

/// Whether `event` is of the key that ends a line, on either side of the keyboard.
[[nodiscard]] inline bool isReturn(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace blankwell
