#pragma once

#include "base/FileUrl.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace blankwell {

class Account;
class FrontFolder;
class WellKnownFolders;

/// Where a file goes that no file manager request asked for.
enum class CreationDestinationMode { desktop, frontFinderFolder };

/// Every mode, in the order of pickers.
inline constexpr std::array allCreationDestinationModes{
    CreationDestinationMode::desktop,
    CreationDestinationMode::frontFinderFolder,
};

/// The form stored in settings: "desktop" or "frontFinderFolder".
[[nodiscard]] std::string_view rawValue(CreationDestinationMode mode);

/// The mode whose raw value is exactly `rawValue`.
[[nodiscard]] std::optional<CreationDestinationMode>
creationDestinationMode(std::string_view rawValue);

/// The text in pickers.
[[nodiscard]] std::string_view title(CreationDestinationMode mode);

/// What a mode came to at the moment of a creation.
struct ResolvedCreationDestination {
    /// What was asked for, also where the fallback was used.
    CreationDestinationMode mode;
    /// The folder to create in, standardized.
    FileUrl url;
    /// The front folder was asked for and could not be read, so `url` is the Desktop.
    bool usedFallback = false;

    /// The folder's name for status texts.
    [[nodiscard]] std::string destinationName() const;

    friend bool operator==(const ResolvedCreationDestination&,
                           const ResolvedCreationDestination&) = default;
};

/// Finds the folder that a destination mode means now. Nothing is kept: the front folder is asked
/// for anew each time.
class CreationDestination {
public:
    /// All must outlive this object.
    CreationDestination(const Account& account, const WellKnownFolders& folders,
                        FrontFolder& frontFolder)
        : account_(account), folders_(folders), frontFolder_(frontFolder) {}

    /// The Desktop of the user's real home, never a sandbox's; it need not exist.
    [[nodiscard]] FileUrl desktopFolderURL() const;

    /// The folder of the front file manager window, standardized; nothing where there is none.
    [[nodiscard]] std::optional<FileUrl> frontFinderFolderURL() const;

    [[nodiscard]] ResolvedCreationDestination resolve(CreationDestinationMode mode) const;

private:
    const Account& account_;
    const WellKnownFolders& folders_;
    FrontFolder& frontFolder_;
};

/// The script that asks a scriptable file manager for the folder of its front window: its result is
/// the folder's path, or blank without a window.
[[nodiscard]] std::string_view frontFinderFolderScript();

} // namespace blankwell
