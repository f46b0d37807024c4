#pragma once

#include "widgets/Card.h"

#include <functional>

namespace blankwell {

class Theme;
struct CardTexts;

/// A card that explains one thing and has one button for it.
class CardView : public Card {
    Q_OBJECT

public:
    /// `act` is called when the user presses the button.
    CardView(const Theme& theme, const CardTexts& texts, const std::function<void()>& act,
             QWidget* parent = nullptr);
};

} // namespace blankwell
