#pragma once

#include "base/FileUrl.h"

#include <QFileSystemWatcher>

#include <functional>
#include <string_view>

namespace blankwell {

/// Tells when somebody may have changed what starts at login: the command line, the settings of the
/// desktop, an editor. Belongs to the main thread.
class LoginItemWatch {
public:
    /// Watches the entry `name` in the folder of such entries under `configHome`, which exists.
    /// Neither the entry nor its folder need be there. Calls `changed` after each change.
    LoginItemWatch(const FileUrl& configHome, std::string_view name, std::function<void()> changed);

private:
    void follow();
    [[nodiscard]] bool watchesFolder() const;

    QString configHome_;
    QString folder_;
    QString entry_;
    QFileSystemWatcher watcher_;
};

} // namespace blankwell
