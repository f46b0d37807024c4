#include "widgets/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace blankwell {
namespace {

constexpr auto roleProperty = "blankwellAccessibleRole";

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* const widget = qobject_cast<QWidget*>(object);
    const auto role = widget == nullptr ? QVariant() : widget->property(roleProperty);
    return role.isValid()
               ? new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()))
               : nullptr;
}

} // namespace

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
    QAccessible::installFactory(makeAccessible);
    widget.setProperty(roleProperty, static_cast<int>(role));
}

} // namespace blankwell
