#pragma once

#include <QWidget>

namespace blankwell {

class Bundle;
class Theme;

/// What the main window begins with: what the application is, and its version.
class MainHeaderView : public QWidget {
    Q_OBJECT

public:
    MainHeaderView(const Theme& theme, const Bundle& bundle, QWidget* parent = nullptr);
};

} // namespace blankwell
