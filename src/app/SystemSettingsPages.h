#pragma once

#include "platform/Workspace.h"

#include <functional>
#include <string_view>
#include <utility>

namespace blankwell {

/// A workspace on a desktop whose system settings have no page for the file manager's menu: the
/// application shows a page of its own where one of theirs is asked for. Everything else goes on to
/// the desktop.
class SystemSettingsPages : public Workspace {
public:
    /// Shows the application's page about the file manager's menu; false where it cannot.
    using ShowExtensionPage = std::function<bool()>;

    /// `desktop` must outlive this object.
    SystemSettingsPages(Workspace& desktop, ShowExtensionPage showExtensionPage)
        : desktop_(desktop), showExtensionPage_(std::move(showExtensionPage)) {}

    void reveal(const FileUrl& url) override { desktop_.reveal(url); }

    /// Of the system's settings only those of extensions have a page here.
    bool open(std::string_view url) override;

private:
    Workspace& desktop_;
    ShowExtensionPage showExtensionPage_;
};

} // namespace blankwell
