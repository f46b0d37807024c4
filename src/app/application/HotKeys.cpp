#include "app/application/HotKeys.h"

#include "filetypes/FileTypeCatalog.h"
#include "platform/Log.h"
#include "platform/linux/DisplayProtocol.h"
#include "platform/linux/HotKeyStatuses.h"
#include "platform/linux/PortalHotKeyService.h"
#include "platform/linux/X11HotKeyService.h"
#include "settings/AppSettings.h"

#include <QSocketNotifier>

#include <algorithm>
#include <string>

namespace blankwell {
namespace {

constexpr auto category = "GlobalHotKey";

/// What the desktop shows the user of a hot key.
std::string whatItDoes(const AppSettings& settings, const KeyCombination& combination) {
    const QuickCreateShortcut shortcut{.keyCode = combination.keyCode,
                                       .carbonModifiers = combination.carbonModifiers};
    if (settings.quickCreateShortcut.get() == shortcut) {
        return "Create File";
    }
    const auto& shortcuts = settings.fileTypeShortcuts.get();
    const auto found =
        std::ranges::find(shortcuts, shortcut, &AppSettings::FileTypeShortcuts::value_type::second);
    const auto* const type =
        found == shortcuts.end() ? nullptr : FileTypeCatalog::definition(found->first);
    return type == nullptr ? shortcut.displayString() : "Create " + type->displayName + " File";
}

} // namespace

struct HotKeys::FromXServer {
    FromXServer() {
        QObject::connect(&notifier, &QSocketNotifier::activated,
                         [this] { service.processEvents(); });
    }

    X11HotKeyService service;
    QSocketNotifier notifier{service.descriptor(), QSocketNotifier::Read};
};

struct HotKeys::FromPortal {
    FromPortal(const AppSettings& settings, Log& log)
        : logger(log, category), service([&settings](const KeyCombination& combination) {
              return whatItDoes(settings, combination);
          }) {
        service.onAbsence([this] {
            logger.error("This desktop gives programs no hot keys. Its own key bindings can run "
                         "\"blankwell quick-create\" and \"blankwell create TYPE\".");
        });
        QObject::connect(&notifier, &QSocketNotifier::activated,
                         [this] { service.processEvents(); });
    }

    Logger logger;
    PortalHotKeyService service;
    QSocketNotifier notifier{service.descriptor(), QSocketNotifier::Read};
};

HotKeys::HotKeys(const Environment& environment, const AppSettings& settings, Log& log) {
    switch (displayProtocol(environment)) {
    case DisplayProtocol::x11:
        fromXServer_ = std::make_unique<FromXServer>();
        break;
    case DisplayProtocol::wayland:
        fromPortal_ = std::make_unique<FromPortal>(settings, log);
        break;
    case DisplayProtocol::none:
        break;
    }
}

HotKeys::~HotKeys() = default;

HotKeyService& HotKeys::service() {
    if (fromXServer_) {
        return fromXServer_->service;
    }
    if (fromPortal_) {
        return fromPortal_->service;
    }
    return unavailable_;
}

} // namespace blankwell
