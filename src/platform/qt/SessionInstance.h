#pragma once

#include "platform/qt/ApplicationAdaptor.h"

#include <QObject>

#include <expected>
#include <string>
#include <string_view>
#include <vector>

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

    // What another process, which runs already, is asked for. Each waits until that has taken note,
    // five seconds at most; the error is a sentence for the user.

    [[nodiscard]] std::expected<void, std::string> activate() const;
    [[nodiscard]] std::expected<void, std::string> open(const std::vector<std::string>& urls) const;
    [[nodiscard]] std::expected<void, std::string> activateAction(std::string_view action) const;

private:
    [[nodiscard]] std::expected<void, std::string> ask(const QString& method,
                                                       QVariantList arguments) const;

    QString name_;
    QString path_;
    QObject object_;
    ApplicationAdaptor* adaptor_;
    Claim claim_;
};

} // namespace blankwell
