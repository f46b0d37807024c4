#pragma once

#include <csignal>

namespace blankwell {

/// While this value lives, writing to a socket whose other end is gone is an error and not the
/// signal that ends the program; for libraries that cannot be told so. Concerns this thread alone.
class BrokenPipeShield {
public:
    BrokenPipeShield();
    ~BrokenPipeShield();

    BrokenPipeShield(const BrokenPipeShield&) = delete;
    BrokenPipeShield& operator=(const BrokenPipeShield&) = delete;

private:
    sigset_t previous_{};
    bool wasPending_ = false;
};

} // namespace blankwell
