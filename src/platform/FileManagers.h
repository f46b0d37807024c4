#pragma once

#include <memory>
#include <vector>

namespace blankwell {

/// A file manager's process of this user in this session.
class RunningFileManager {
public:
    virtual ~RunningFileManager() = default;

    /// Asks it to end. False where the request is refused.
    virtual bool terminate() = 0;

    /// Ends it without asking.
    virtual void forceTerminate() = 0;

    [[nodiscard]] virtual bool isTerminated() const = 0;
};

/// The file managers of the session. Belongs to the main thread.
class FileManagers {
public:
    virtual ~FileManagers() = default;

    /// The processes that run now, with what `relaunch` needs to bring them back. They must not
    /// outlive this object.
    [[nodiscard]] virtual std::vector<std::unique_ptr<RunningFileManager>> running() = 0;

    /// Starts again what the last `running` found, with the folders it had open. Returns at once.
    virtual void relaunch() = 0;
};

} // namespace blankwell
