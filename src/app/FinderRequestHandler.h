#pragma once

#include "platform/Log.h"

#include <string>
#include <string_view>

namespace blankwell {

class Alert;
class Application;
class FolderAccess;
class MainQueue;
class Workspace;
struct FinderRequest;

/// Does what an opened request URL asks for: creates the file, shows it in the file manager, and
/// tells the user of a failure. Belongs to the main thread.
class FinderRequestHandler {
public:
    /// What a request uses. All must outlive the object and the work it leaves in the queue.
    struct Services {
        FolderAccess& folderAccess;
        Workspace& workspace;
        Alert& alert;
        Application& application;
        MainQueue& mainQueue;
        Log& log;
    };

    explicit FinderRequestHandler(const Services& services)
        : services_(services), logger_(services.log, "CreateFileRequest") {}

    /// Handles `url`, whatever it is: one of another scheme is ignored, one that asks for nothing
    /// only brings the application to the front. Leaves the user's own windows alone, and closes
    /// those that only the delivery of the URL brought up.
    void openUrl(std::string_view url);

private:
    void handle(const FinderRequest& request);
    void reportFailure(const std::string& text);

    Services services_;
    Logger logger_;
};

} // namespace blankwell
