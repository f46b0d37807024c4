#include "app/application/LoginItemWatch.h"

#include "widgets/QtStrings.h"

#include <QFileInfo>

#include <fmt/core.h>

#include <utility>

namespace blankwell {

LoginItemWatch::LoginItemWatch(const FileUrl& configHome, std::string_view name,
                               std::function<void()> changed)
    : configHome_(qString(configHome.path())),
      folder_(qString(configHome.appending("autostart").path())),
      entry_(folder_ + qString(fmt::format("/{}.desktop", name))) {
    const auto tell = [this, changed = std::move(changed)] {
        follow();
        changed();
    };
    QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &watcher_, tell);
    QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged, &watcher_, tell);
    follow();
}

/// The entry itself is watched too, for who writes it in place.
void LoginItemWatch::follow() {
    if (!watchesFolder()) {
        watcher_.addPath(configHome_); // where the folder comes up
        if (QFileInfo::exists(folder_)) {
            watcher_.addPath(folder_);
        }
        if (watchesFolder()) {
            watcher_.removePath(configHome_);
        }
    }
    if (QFileInfo::exists(entry_)) {
        watcher_.addPath(entry_);
    }
}

bool LoginItemWatch::watchesFolder() const {
    return watcher_.directories().contains(folder_);
}

} // namespace blankwell
