#pragma once

#include "widgets/Card.h"

namespace blankwell {

struct HelpCard;

/// A card of the help window.
class HelpCardView : public Card {
    Q_OBJECT

public:
    HelpCardView(const Theme& theme, const HelpCard& card, QWidget* parent = nullptr);
};

} // namespace blankwell
