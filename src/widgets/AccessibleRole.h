#pragma once

#include <QAccessible>

class QWidget;

namespace blankwell {

/// Tells screen readers what a plain `widget` is. They call it by its accessible name.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

} // namespace blankwell
