#pragma once

#include "base/FileUrl.h"

namespace blankwell {

/// The file manager as a place to show things in.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Shows `url` selected in the file manager. A failure is logged and changes nothing else.
    virtual void reveal(const FileUrl& url) = 0;
};

} // namespace blankwell
