#pragma once

#include "base/FileUrl.h"

#include <optional>
#include <string>
#include <vector>

namespace blankwell {

/// What an open panel shows and lets the user choose.
struct OpenPanelConfiguration {
    std::string title;
    std::string message;
    /// The text of the button that confirms.
    std::string prompt;
    bool canChooseFiles = false;
    bool canChooseDirectories = true;
    bool canCreateDirectories = false;
    bool allowsMultipleSelection = false;
    bool resolvesAliases = true;
    /// The folder it opens in; the panel's own choice where unset.
    std::optional<FileUrl> directory;

    friend bool operator==(const OpenPanelConfiguration&, const OpenPanelConfiguration&) = default;
};

/// How an open panel ended.
struct OpenPanelResult {
    enum class Response {
        confirmed,
        cancelled,
        /// There is nobody to ask here.
        unavailable,
    };

    Response response;
    /// What was chosen, in the panel's order; may be empty even if confirmed.
    std::vector<FileUrl> urls;
};

/// Asks the user for folders.
class OpenPanel {
public:
    virtual ~OpenPanel() = default;

    /// Shows the panel and waits for its end.
    [[nodiscard]] virtual OpenPanelResult runModal(const OpenPanelConfiguration& configuration) = 0;
};

} // namespace blankwell
