#pragma once

#include "access/FolderAccess.h"
#include "base/FileUrl.h"

#include <array>
#include <expected>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace blankwell {

/// The ways in which the user grants folders.
enum class FolderGrant { homeFolder, otherFolders, cloudFolders, externalVolumes };

struct FolderGrantButton {
    FolderGrant grant;
    std::string_view title;

    friend bool operator==(const FolderGrantButton&, const FolderGrantButton&) = default;
};

/// The buttons of all grants, in their order.
inline constexpr std::array folderGrantButtons{
    FolderGrantButton{FolderGrant::homeFolder, "Grant Home Folder..."},
    FolderGrantButton{FolderGrant::otherFolders, "Add Other Folders..."},
    FolderGrantButton{FolderGrant::cloudFolders, "Add Cloud Folders..."},
    FolderGrantButton{FolderGrant::externalVolumes, "Add External Volumes..."},
};

/// The texts and symbols of the folder access section that never change.
struct FolderAccessSetupTexts {
    std::string_view symbol;
    std::string_view title;
    /// Of the icon button in each row, title and tooltip in one.
    std::string_view forget;
    std::string_view forgetSymbol;

    friend bool operator==(const FolderAccessSetupTexts&, const FolderAccessSetupTexts&) = default;
};

inline constexpr FolderAccessSetupTexts folderAccessSetupTexts{
    .symbol = "folder.badge.gearshape",
    .title = "Folder Access",
    .forget = "Forget Access",
    .forgetSymbol = "xmark.circle",
};

/// A granted folder as the user sees it.
struct FolderRootRow {
    FileUrl root;
    std::string name;
    std::string symbol;

    friend bool operator==(const FolderRootRow&, const FolderRootRow&) = default;
};

/// What the folder access section shows and does: the granted roots, the grants, and one line that
/// tells what became of the last action.
///
/// The list is read from the store when the section appears and after each action that changed it.
/// Belongs to the main thread; a grant blocks on its panels.
class FolderAccessSetupModel {
public:
    /// All must outlive the object.
    struct Services {
        FolderAccess& folderAccess;
        SecurityScopedBookmarkStore& store;
        const FileSystem& fileSystem;
        const Account& account;
        const WellKnownFolders& folders;
    };

    /// `changed` is called after each change of what is shown.
    FolderAccessSetupModel(const Services& services, std::function<void()> changed)
        : services_(services), changed_(std::move(changed)) {}

    /// To be called whenever the section comes into view.
    void appear();

    /// Asks the user for folders. A failure is told in the status line.
    void grant(FolderGrant grant);

    /// Takes the grant of `root` back, without asking. A failure is told in the status line.
    void forget(const FileUrl& root);

    /// How many roots there are, in words.
    [[nodiscard]] std::string summary() const;

    /// In the order of the store.
    [[nodiscard]] std::vector<FolderRootRow> rows() const;

    /// What became of the last action; blank before the first.
    [[nodiscard]] const std::string& statusMessage() const { return statusMessage_; }

private:
    using Granted = FolderAccess::Result<std::vector<FileUrl>>;

    [[nodiscard]] Granted granted(FolderGrant grant);
    [[nodiscard]] std::string savedMessage(const std::vector<FileUrl>& folders) const;
    [[nodiscard]] bool isHome(const FileUrl& root) const;
    [[nodiscard]] bool isExternal(const FileUrl& root) const;
    [[nodiscard]] std::string displayName(const FileUrl& root) const;
    [[nodiscard]] std::string symbol(const FileUrl& root) const;
    void reload();

    Services services_;
    std::function<void()> changed_;
    std::vector<FileUrl> authorizedFolders_;
    std::string statusMessage_;
};

} // namespace blankwell
