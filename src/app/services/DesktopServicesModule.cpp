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
    std::unique_ptr<TextOrder> makeTextOrder() override {
        return std::make_unique<IcuTextOrder>(collationLocale(ProcessEnvironment{}));
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
