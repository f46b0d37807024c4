#pragma once

#include "app/services/DesktopServices.h"
#include "base/FileUrl.h"

#include <memory>
#include <utility>

namespace blankwell {

/// The desktop services out of the module that stands in a program's folder, loaded at first use.
class ModuleLoader {
public:
    explicit ModuleLoader(FileUrl programFolder) : programFolder_(std::move(programFolder)) {}

    /// The services, which live as long as this object. Ends the process with a message on standard
    /// error and status 1 where the module cannot be loaded: the installation is damaged.
    [[nodiscard]] DesktopServices& services();

private:
    FileUrl programFolder_;
    std::unique_ptr<DesktopServices> services_;
};

} // namespace blankwell
