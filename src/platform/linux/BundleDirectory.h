#pragma once

#include "platform/Bundle.h"
#include "platform/SystemError.h"
#include "platform/linux/PropertyList.h"

#include <expected>

namespace blankwell {

/// The bundle as a directory: programs in one folder, `Resources` and `Info.plist` beside it. The
/// build tree has the same shape.
class BundleDirectory : public Bundle {
public:
    /// The bundle of the programs in `programFolder`. Nothing is looked up before it is asked for.
    explicit BundleDirectory(const FileUrl& programFolder);

    /// The folder of the running program. Ask for it early: an update that replaces the bundle
    /// moves the program away under its feet. Error: the process file system is not there.
    [[nodiscard]] static std::expected<FileUrl, SystemError> folderOfRunningProgram();

    /// The bundle that the programs in `programFolder` are in; nothing where that is no bundle's,
    /// as in a build tree.
    [[nodiscard]] static std::optional<FileUrl> bundleOf(const FileUrl& programFolder);

    /// The programs stand in "Linux" in "Contents" in the bundle.
    [[nodiscard]] FileUrl url() const override;

    [[nodiscard]] std::optional<FileUrl> resource(std::string_view name,
                                                  std::string_view extension) const override;

    /// The file is read at the first call. Where it is missing or damaged it has no entries.
    [[nodiscard]] std::optional<std::string> infoString(std::string_view key) const override;

private:
    FileUrl programs_;
    FileUrl contents_;
    mutable std::optional<PropertyList> info_;
};

} // namespace blankwell
