#pragma once

#include "base/Subscription.h"

#include <QWidget>

namespace blankwell {

class LoginItemModel;
class Switch;
class TextLabel;
class Theme;

/// The row with the switch that lets the application start at login. As wide as the rings of
/// switches reach.
class LoginItemRow : public QWidget {
    Q_OBJECT

public:
    /// `model` must outlive this object.
    LoginItemRow(const Theme& theme, LoginItemModel& model, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void render();

    LoginItemModel& model_;
    TextLabel* caption_;
    Switch* toggle_;
    Subscription changes_;
};

} // namespace blankwell
