#include "widgets/Disclosure.h"

#include "widgets/DisclosureHeader.h"
#include "widgets/Metrics.h"

#include <QVBoxLayout>

namespace blankwell {

Disclosure::Disclosure(const Theme& theme, std::string_view title, std::string_view symbol,
                       QWidget* parent)
    : QWidget(parent),
      header_(new DisclosureHeader(theme, title, symbol)),
      content_(new QWidget),
      contentLayout_(new QVBoxLayout(content_)) {
    contentLayout_->setContentsMargins({});
    contentLayout_->setSpacing(2 * metrics::grid);
    content_->hide();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(metrics::symbolGap);
    layout->addWidget(header_);
    layout->addWidget(content_);
    connect(header_, &QAbstractButton::toggled, this, [this](bool isExpanded) {
        content_->setVisible(isExpanded);
        emit toggled(isExpanded);
    });
}

bool Disclosure::isExpanded() const {
    return header_->isChecked();
}

void Disclosure::setExpanded(bool expanded) {
    header_->setChecked(expanded);
}

} // namespace blankwell
