#pragma once

#include "widgets/TextLabel.h"

namespace blankwell {

/// A text that names what comes after it. Screen readers know it as a heading, from which to which
/// they can go.
class Heading : public TextLabel {
    Q_OBJECT

public:
    Heading(const Theme& theme, std::string_view text, const Look& look, QWidget* parent = nullptr);
};

} // namespace blankwell
