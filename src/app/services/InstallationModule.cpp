#include "app/services/DesktopInstallation.h"
#include "app/services/DesktopServices.h"
#include "platform/UserDefaults.h"
#include "settings/AppSettings.h"

#include <memory>

namespace blankwell {
namespace {

/// The installation with the settings that it follows.
class SettledInstallation : public Installation {
public:
    SettledInstallation(const FileUrl& programFolder, const Environment& environment,
                        const Account& account, PreferenceDomains& domains, Log& log)
        : settings_(sharedDefaults(domains), log),
          desktop_(programFolder, {environment, account, settings_, domains, log}) {}

    std::expected<FileUrl, SystemError> install(const std::optional<FileUrl>& folder) override {
        return desktop_.installation().install(folder);
    }

    std::expected<void, SystemError> unregister() override {
        return desktop_.installation().unregister();
    }

    std::vector<FileManagerMenuState> menuStates() override {
        return desktop_.installation().menuStates();
    }

    std::expected<void, SystemError> turnMenu(FileManager manager, bool on) override {
        return desktop_.installation().turnMenu(manager, on);
    }

private:
    AppSettings settings_;
    DesktopInstallation desktop_;
};

} // namespace
} // namespace blankwell

extern "C" __attribute__((visibility("default"))) std::unique_ptr<blankwell::Installation>
blankwellMakeInstallation(const blankwell::FileUrl& programFolder,
                          const blankwell::Environment& environment,
                          const blankwell::Account& account, blankwell::PreferenceDomains& domains,
                          blankwell::Log& log) {
    return std::make_unique<blankwell::SettledInstallation>(programFolder, environment, account,
                                                            domains, log);
}
