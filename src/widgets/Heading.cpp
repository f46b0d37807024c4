#include "widgets/Heading.h"

#include <QAccessibleWidget>

namespace blankwell {
namespace {

class AccessibleHeading : public QAccessibleWidget {
public:
    explicit AccessibleHeading(Heading& heading)
        : QAccessibleWidget(&heading, QAccessible::Heading), heading_(heading) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? heading_.text() : QAccessibleWidget::text(kind);
    }

private:
    Heading& heading_;
};

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* const heading = qobject_cast<Heading*>(object);
    return heading == nullptr ? nullptr : new AccessibleHeading(*heading);
}

} // namespace

Heading::Heading(const Theme& theme, std::string_view text, const Look& look, QWidget* parent)
    : TextLabel(theme, text, look, parent) {
    // The last one installed is asked first, before that of all texts.
    QAccessible::installFactory(makeAccessible);
}

} // namespace blankwell
