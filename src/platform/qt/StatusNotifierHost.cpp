#include "platform/qt/StatusNotifierHost.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace blankwell {
namespace {

const auto watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");

} // namespace

StatusNotifierHost::StatusNotifierHost(std::function<void()> changed)
    : changed_(std::move(changed)),
      watcher_(watcherName, QDBusConnection::sessionBus(),
               QDBusServiceWatcher::WatchForOwnerChange) {
    QObject::connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, &watcher_,
                     [this](const QString&, const QString&, const QString& newOwner) {
                         setPresent(!newOwner.isEmpty());
                     });
    askForPresence();
}

void StatusNotifierHost::askForPresence() {
    auto question = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                   "org.freedesktop.DBus", "NameHasOwner");
    question << watcherName;
    auto* const answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), &watcher_);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, &watcher_, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<bool> reply = *answer;
        // What came since the question is newer than the answer.
        if (reply.isValid() && reply.value() && !isPresent_) {
            setPresent(true);
        }
    });
}

void StatusNotifierHost::setPresent(bool isPresent) {
    isPresent_ = isPresent;
    changed_();
}

} // namespace blankwell
