#pragma once

#include "platform/qt/ApplicationAdaptor.h"

#include <QObject>
#include <QString>

#include <string>

namespace blankwell {

/// The one running application of the session, told by its name on the session bus.
class SessionInstance {
public:
    enum class Claim {
        /// This process is the one.
        first,
        /// Another process is.
        taken,
        /// There is no session bus: nobody can tell, and nobody can ask for anything.
        noBus,
    };

    /// Takes `name` for this process, at the object path that goes with it.
    explicit SessionInstance(const std::string& name);
    ~SessionInstance();

    SessionInstance(const SessionInstance&) = delete;
    SessionInstance& operator=(const SessionInstance&) = delete;

    [[nodiscard]] Claim claim() const { return claim_; }

    /// Hands what others ask to `requests`, what they asked since the claim included: nothing was
    /// delivered before the event loop runs. `requests` must outlive this object.
    void serve(ApplicationRequests& requests) { adaptor_->setRequests(&requests); }

    /// Gives the name up, so that what is asked from now on goes to the next instance, and hands on
    /// what was asked of this one before. For an instance that ends.
    void retire();

private:
    void giveUpName();

    QString name_;
    QString path_;
    QObject object_;
    ApplicationAdaptor* adaptor_;
    Claim claim_;
};

} // namespace blankwell
