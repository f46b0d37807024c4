#include "app/RemoteRequests.h"

#include "app/FinderRequestHandler.h"
#include "platform/ApplicationPresence.h"
#include "platform/MainQueue.h"
#include "quickcreate/DesktopCreationController.h"

#include <utility>

namespace blankwell {
namespace {

constexpr std::string_view createActionPrefix = "create-";

} // namespace

void RemoteRequests::activate() {
    services_.mainQueue.async([this] { services_.creation.openMainWindow(); });
}

void RemoteRequests::open(std::vector<std::string> urls) {
    for (auto& url : urls) {
        services_.mainQueue.async(
            [this, opened = std::move(url)] { services_.requestHandler.openUrl(opened); });
    }
}

void RemoteRequests::activateAction(std::string_view action) {
    services_.mainQueue.async([this, chosen = std::string(action)] { perform(chosen); });
}

void RemoteRequests::perform(std::string_view action) {
    if (action == quickCreateAction) {
        services_.creation.showQuickCreatePanel();
    } else if (action.starts_with(createActionPrefix)) {
        services_.creation.createFromShortcut(action.substr(createActionPrefix.size()));
    } else if (action == quitAction) {
        services_.presence.terminate();
    } else {
        logger_.error("Unknown action requested: {}", action);
    }
}

} // namespace blankwell
