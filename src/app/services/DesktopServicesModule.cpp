#include "app/services/DesktopServices.h"

#include "platform/Identifiers.h"
#include "platform/linux/FileManagerFrontFolder.h"
#include "platform/linux/FileManagerWorkspace.h"
#include "platform/linux/IcuTextOrder.h"
#include "platform/linux/JournalLog.h"
#include "platform/linux/ProcessEnvironment.h"
#include "platform/linux/XdgAutostart.h"

#include <utility>

namespace blankwell {
namespace {

class LinuxDesktopServices : public DesktopServices {
public:
    std::expected<std::unique_ptr<TextOrder>, SystemError> makeTextOrder() override {
        auto order = IcuTextOrder::forLocale(collationLocale(ProcessEnvironment{}));
        if (!order) {
            return std::unexpected(std::move(order.error()));
        }
        return std::make_unique<IcuTextOrder>(*std::move(order));
    }

    std::unique_ptr<Log> makeJournal() override {
        return std::make_unique<JournalLog>("blankwell");
    }

    std::unique_ptr<LoginItem> makeLoginItem(const FileUrl& configHome, FileUrl program) override {
        return std::make_unique<XdgAutostart>(configHome, bundleIdentifier, std::move(program));
    }

    std::unique_ptr<Workspace> makeWorkspace(Log& log) override {
        return std::make_unique<FileManagerWorkspace>(log);
    }

    std::unique_ptr<FrontFolder>
    makeFrontFolder(const WellKnownFolders& wellKnown, FileUrl home,
                    std::function<std::vector<FileUrl>()> roots) override {
        return std::make_unique<FileManagerFrontFolder>(wellKnown, std::move(home),
                                                        std::move(roots));
    }
};

} // namespace
} // namespace blankwell

extern "C" __attribute__((visibility("default"))) std::unique_ptr<blankwell::DesktopServices>
blankwellMakeDesktopServices() {
    return std::make_unique<blankwell::LinuxDesktopServices>();
}
