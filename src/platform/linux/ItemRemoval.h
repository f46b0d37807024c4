#pragma once

#include "platform/linux/FileDescriptor.h"

#include <string>
#include <vector>

namespace blankwell {

/// Removes items of one folder, as far as they can be removed. A link goes itself; where it leads
/// stays. So does what is mounted below the folder.
class ItemRemoval {
public:
    /// The items in the folder `path`, to which a link may lead. Where there is none, nothing
    /// stands in it.
    explicit ItemRemoval(const std::string& path);

    /// What stands there now, in no order.
    [[nodiscard]] std::vector<std::string> names() const;

    /// Removes the item, if it is no folder.
    void removeFile(const std::string& name) const;

    /// Removes the item with everything in it.
    void removeTree(const std::string& name) const;

private:
    explicit ItemRemoval(FileDescriptor folder) : folder_(std::move(folder)) {}

    FileDescriptor folder_;
};

} // namespace blankwell
