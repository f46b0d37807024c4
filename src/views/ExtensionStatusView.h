#pragma once

#include "shell/CardView.h"

namespace blankwell {

class ExtensionStatusModel;

/// The card that leads to the settings of the file manager's extension.
class ExtensionStatusView : public CardView {
    Q_OBJECT

public:
    /// `model` must outlive this object.
    ExtensionStatusView(const Theme& theme, ExtensionStatusModel& model, QWidget* parent = nullptr);
};

} // namespace blankwell
