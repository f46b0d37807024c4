#include "app/FinderRequestHandler.h"

#include "access/FolderAccess.h"
#include "app/FinderRequest.h"
#include "base/FileUrl.h"
#include "filetypes/FileTypeCatalog.h"
#include "platform/Alert.h"
#include "platform/Application.h"
#include "platform/MainQueue.h"
#include "platform/Workspace.h"

namespace blankwell {

void FinderRequestHandler::openUrl(std::string_view url) {
    const auto scheme = url.substr(0, url.find(':'));
    if (scheme != requestScheme) {
        return;
    }
    const auto request = parseFinderRequest(url);
    if (!request) {
        services_.application.activate();
        return;
    }
    const bool wasActive = services_.application.isActive();
    handle(*request);
    if (!wasActive) {
        // The platform may still be bringing a window up: it is closed on the queue's next turn.
        const auto closeMainWindows = [&application = services_.application] {
            application.closeWindows("Blankwell+");
        };
        closeMainWindows();
        services_.mainQueue.async(closeMainWindows);
    }
}

void FinderRequestHandler::handle(const FinderRequest& request) {
    const auto* const type = FileTypeCatalog::definition(request.typeID);
    if (type == nullptr) {
        logger_.error("Unknown file type requested: {}", request.typeID);
        reportFailure("Blankwell+ does not know how to create this file type.");
        return;
    }
    const FileUrl directory(request.directoryPath);
    logger_.notice("Creating file from Finder request: type={} dir={}", request.typeID,
                   directory.path());
    const auto created =
        services_.folderAccess.createWithFolderAccess(directory, AccessPrompt::allowed, *type);
    if (!created) {
        const auto text = description(created.error());
        logger_.error("Create request failed: {}", text);
        reportFailure(text);
        return;
    }
    logger_.notice("Created file from Finder request: {}", created->path());
    services_.workspace.reveal(*created);
}

void FinderRequestHandler::reportFailure(const std::string& text) {
    services_.application.activate();
    services_.alert.runModal(creationFailedAlert(text));
}

} // namespace blankwell
