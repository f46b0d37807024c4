#pragma once

#include "platform/ApplicationRequests.h"
#include "platform/Log.h"

namespace blankwell {

class ApplicationPresence;
class DesktopCreationController;
class FinderRequestHandler;
class MainQueue;

/// Serves the requests of other programs, one after the other from the main queue. What they ask
/// for is checked as strictly as an opened URL.
class RemoteRequests : public ApplicationRequests {
public:
    /// All must outlive this object and the work it leaves in the queue.
    struct Services {
        DesktopCreationController& creation;
        FinderRequestHandler& requestHandler;
        ApplicationPresence& presence;
        MainQueue& mainQueue;
        Log& log;
    };

    explicit RemoteRequests(const Services& services)
        : services_(services), logger_(services.log, "RemoteRequest") {}

    void activate() override;
    void open(std::vector<std::string> urls) override;

    /// Knows "quick-create", "create-" with the id of a file type, and "quit". Any other is logged.
    void activateAction(std::string_view action) override;

private:
    void perform(std::string_view action);

    Services services_;
    Logger logger_;
};

} // namespace blankwell
