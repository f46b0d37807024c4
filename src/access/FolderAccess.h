#pragma once

#include "access/SecurityScopedFolderAccessError.h"
#include "base/FileUrl.h"
#include "filetypes/FileCreationError.h"
#include "platform/OpenPanel.h"

#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace blankwell {

class AccessScopes;
class Account;
class Application;
class Environment;
class FileCreator;
class FileSystem;
class SecurityScopedBookmarkStore;
class WellKnownFolders;
struct FileTypeDefinition;

/// Why `createWithFolderAccess` made no file.
using CreationError = std::variant<SecurityScopedFolderAccessError, FileCreationError>;

/// The text for the user.
[[nodiscard]] std::string description(const CreationError& error);

/// Whether the user may be asked for a folder.
enum class AccessPrompt { allowed, forbidden };

/// The only road by which files are created, and the flows by which the user grants folders.
///
/// In a sandbox a file is written inside the access scope of a granted root that covers its folder;
/// where there is none, the user is asked for one. Outside of a sandbox neither roots nor panels
/// are used for writing. Every scope is closed when a call returns. Belongs to the main thread;
/// panels are modal on it.
class FolderAccess {
public:
    /// What the flows use of the platform and of the other parts. All must outlive the object.
    struct Services {
        SecurityScopedBookmarkStore& store;
        const FileCreator& creator;
        const FileSystem& fileSystem;
        AccessScopes& scopes;
        OpenPanel& openPanel;
        Application& application;
        const Account& account;
        const Environment& environment;
        const WellKnownFolders& folders;
    };

    template <typename Value>
    using Result = std::expected<Value, SecurityScopedFolderAccessError>;

    explicit FolderAccess(const Services& services) : services_(services) {}

    /// Creates a file of `type` in `directory` and returns where it is. On an error no file was
    /// made; a folder that the user granted on the way stays granted.
    [[nodiscard]] std::expected<FileUrl, CreationError>
    createWithFolderAccess(const FileUrl& directory, AccessPrompt prompt,
                           const FileTypeDefinition& type);

    /// The root of the cloud storage that holds `target`, which is better asked for than the target
    /// itself; nothing elsewhere or without a home.
    [[nodiscard]] static std::optional<FileUrl> suggestedRoot(const FileUrl& target,
                                                              const std::optional<FileUrl>& home);

    /// Asks for `suggested`, or a folder that holds `target`, and saves what the user chose. The
    /// target is `suggested` where it is not given; the message likewise has a default. Errors:
    /// `AccessCancelled`, `WrongFolder`, `BookmarkCreationFailed`; nothing is saved then.
    [[nodiscard]] Result<FileUrl> requestAccess(const FileUrl& suggested,
                                                const std::optional<FileUrl>& target,
                                                std::string_view title,
                                                const std::optional<std::string>& message);

    /// Asks for the user's home folder.
    [[nodiscard]] Result<FileUrl> grantHomeFolder();

    /// Asks for each kind of cloud storage that there is. Folders granted before an error stay
    /// granted.
    [[nodiscard]] Result<std::vector<FileUrl>> grantCloudFolders();

    /// Asks for external volumes.
    [[nodiscard]] Result<std::vector<FileUrl>> grantExternalVolumes();

    /// Asks for any folders.
    [[nodiscard]] Result<std::vector<FileUrl>> grantOtherFolders();

    /// The panel of every flow, opening in `directory`.
    [[nodiscard]] static OpenPanelConfiguration makeAccessPanel(std::string title,
                                                                std::string message,
                                                                std::optional<FileUrl> directory,
                                                                bool allowsMultipleSelection);

private:
    [[nodiscard]] std::expected<FileUrl, CreationError>
    createInScope(const FileUrl& grant, const FileUrl& folder, const FileTypeDefinition& type);
    [[nodiscard]] Result<FileUrl> requestAccessToFolder(const FileUrl& folder);
    [[nodiscard]] std::string defaultMessage(const FileUrl& suggested, const FileUrl& target) const;
    [[nodiscard]] Result<std::vector<FileUrl>> save(const std::vector<FileUrl>& chosen);
    [[nodiscard]] Result<std::vector<FileUrl>> grantSeveral(const OpenPanelConfiguration& panel,
                                                            const FileUrl& askedFor);

    Services services_;
};

} // namespace blankwell
