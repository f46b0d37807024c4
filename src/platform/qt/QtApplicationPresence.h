#pragma once

#include "platform/ApplicationPresence.h"

#include <QObject>

namespace blankwell {

/// Puts the application's windows into the task bar, or keeps them out of it. Panels and menus are
/// never in it.
///
/// Works under X11. A Wayland desktop lists every window whatever the policy.
class QtApplicationPresence : public QObject, public ApplicationPresence {
public:
    /// Watches the windows of the application as they are shown. Regular at first.
    QtApplicationPresence();

    void setActivationPolicy(ActivationPolicy policy) override;

    void terminate() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void apply(const QWidget& window) const;

    ActivationPolicy policy_ = ActivationPolicy::regular;
};

} // namespace blankwell
