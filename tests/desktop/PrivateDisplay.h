#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace blankwell {

/// An X server without a screen that anybody sees, and without a window manager. While this value
/// lives, `DISPLAY` names it.
class PrivateDisplay {
public:
    /// Throws where the server does not start. `options` are further ones of Xvfb.
    explicit PrivateDisplay(const std::vector<std::string>& options = {});
    ~PrivateDisplay();

    PrivateDisplay(const PrivateDisplay&) = delete;
    PrivateDisplay& operator=(const PrivateDisplay&) = delete;

    /// Such as ":7".
    [[nodiscard]] const std::string& name() const { return name_; }

    /// Ends the server in the middle of whatever it does. Returns once it is gone.
    void crash();

private:
    void end(int signal);

    pid_t server_ = -1;
    std::string name_;
    std::string outerName_;
};

} // namespace blankwell
