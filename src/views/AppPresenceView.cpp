#include "views/AppPresenceView.h"

#include "settings/AppSettings.h"
#include "views/LoginItemRow.h"
#include "views/MainWindowContent.h"
#include "widgets/Heading.h"
#include "widgets/Metrics.h"
#include "widgets/SegmentedControl.h"
#include "widgets/Separator.h"
#include "widgets/Switch.h"
#include "widgets/TextLabel.h"

#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
#include <vector>

namespace blankwell {
namespace {

constexpr int pickerWidth = 320;

std::vector<SegmentedControl::Title> titles() {
    std::vector<SegmentedControl::Title> result;
    std::ranges::transform(presenceSegments(), std::back_inserter(result), [](const auto& segment) {
        return SegmentedControl::Title{.text = std::string(segment.title), .symbol = {}};
    });
    return result;
}

} // namespace

AppPresenceView::AppPresenceView(const Theme& theme, AppSettings& settings,
                                 LoginItemModel& loginItem, QWidget* parent)
    : Card(theme, parent),
      picker_(new SegmentedControl(theme, mainWindowTexts.appPresenceHeading, titles())),
      description_(new TextLabel(theme, "",
                                 {.style = TextStyle::caption,
                                  .color = ColorRole::secondaryLabel,
                                  .overflow = TextLabel::Overflow::wrap})) {
    // The ring of the switch is beyond what stands in line.
    constexpr int ring = Switch::ringMargin;
    constexpr int side = metrics::cardPadding - ring;
    content().setContentsMargins(side, metrics::cardPadding, side, metrics::cardPadding);
    auto* const choice = new QVBoxLayout;
    choice->setContentsMargins(ring, 0, ring, 0);
    choice->setSpacing(content().spacing());
    choice->addWidget(
        new Heading(theme, mainWindowTexts.appPresenceHeading, {.style = TextStyle::headline}));
    picker_->setMinimumWidth(pickerWidth);
    choice->addWidget(picker_);
    choice->addWidget(description_);
    choice->addSpacing(metrics::grid);
    choice->addWidget(new Separator(theme));
    content().addLayout(choice);
    content().addWidget(new LoginItemRow(theme, loginItem));
    connect(picker_, &SegmentedControl::selectedByUser, this, [&settings](int index) {
        settings.appPresence.set(presenceSegments().at(static_cast<std::size_t>(index)).presence);
    });
    presence_ = settings.appPresence.observe([this](const auto& presence) { render(presence); });
}

void AppPresenceView::render(AppPresence presence) {
    const auto segments = presenceSegments();
    const auto* const found = std::ranges::find(segments, presence, &PresenceSegment::presence);
    picker_->select(static_cast<int>(found - segments.begin()));
    description_->setText(found->description);
}

} // namespace blankwell
