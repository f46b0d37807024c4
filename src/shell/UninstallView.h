#pragma once

#include "shell/CardView.h"

namespace blankwell {

class UninstallFlow;

/// The card that lets the user remove the application.
class UninstallView : public CardView {
    Q_OBJECT

public:
    /// `uninstaller` must outlive this object.
    UninstallView(const Theme& theme, UninstallFlow& uninstaller, QWidget* parent = nullptr);
};

} // namespace blankwell
