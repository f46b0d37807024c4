#include "platform/qt/ApplicationAdaptor.h"

#include "platform/ApplicationRequests.h"
#include "platform/qt/QtText.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace blankwell {

void ApplicationAdaptor::Activate(const QVariantMap& /*platformData*/) {
    if (requests_ != nullptr) {
        requests_->activate();
    }
}

void ApplicationAdaptor::Open(const QStringList& uris, const QVariantMap& /*platformData*/) {
    std::vector<std::string> urls;
    std::ranges::transform(uris, std::back_inserter(urls), utf8);
    if (requests_ != nullptr) {
        requests_->open(std::move(urls));
    }
}

void ApplicationAdaptor::ActivateAction(const QString& name, const QVariantList& /*parameters*/,
                                        const QVariantMap& /*platformData*/) {
    if (requests_ != nullptr) {
        requests_->activateAction(utf8(name));
    }
}

} // namespace blankwell
