#pragma once

#include "platform/linux/FileDescriptor.h"

#include <sys/stat.h>

#include <expected>
#include <string>
#include <string_view>

namespace blankwell {

/// New contents for a file, written beside it and put in its place in one step, so that a reader,
/// a crash or a power cut finds either the old contents or the new.
///
/// The temporary is called as the file with ".tmp" at the end. Whoever replaces files must hold a
/// lock, for one left by a process that was killed is removed by the next. Errors are `errno`
/// values; after one the file is as it was and the temporary is gone.
class FileReplacement {
public:
    /// Writes `contents` beside the file `path`, down to the disk, with the permissions `mode`: for
    /// this user alone where it says nothing else.
    [[nodiscard]] static std::expected<FileReplacement, int>
    prepare(const std::string& path, std::string_view contents, mode_t mode = S_IRUSR | S_IWUSR);

    FileReplacement(FileReplacement&&) = default;
    FileReplacement& operator=(FileReplacement&&) = delete;

    /// Removes the temporary if it was not put in place.
    ~FileReplacement();

    /// Puts the new contents in place.
    [[nodiscard]] std::expected<void, int> commit();

private:
    FileReplacement(FileDescriptor folder, std::string name);

    std::expected<void, int> write(std::string_view contents, mode_t mode) const;

    /// Empty once there is no temporary to remove.
    FileDescriptor folder_;
    std::string name_;
    std::string temporary_;
};

} // namespace blankwell
