#pragma once

#include "base/FileUrl.h"

#include <string_view>

namespace blankwell {

/// The desktop as a place to show things in.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Shows `url` selected in the file manager. A failure is logged and changes nothing else.
    virtual void reveal(const FileUrl& url) = 0;

    /// Hands `url` to the program that the user opens such URLs with, without waiting for it. False
    /// where `url` is no URL, or no program for it could be started.
    [[nodiscard]] virtual bool open(std::string_view url) = 0;
};

} // namespace blankwell
