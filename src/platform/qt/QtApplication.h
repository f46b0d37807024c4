#pragma once

#include "platform/AppWindows.h"
#include "platform/Application.h"

#include <QPointer>
#include <QWidget>

namespace blankwell {

/// The application and its windows, as Qt keeps them.
class QtApplication : public Application, public AppWindows {
public:
    [[nodiscard]] bool isActive() const override;

    /// Brings the dialog that is open to the front, else the window that was brought there last.
    void activate() override;

    void closeWindows(std::string_view title) override;

    bool makeKeyAndOrderFront(std::string_view title) override;

    /// Shows `window` in front of the others with the keyboard.
    void bringToFront(QWidget& window);

private:
    QPointer<QWidget> front_;
};

} // namespace blankwell
