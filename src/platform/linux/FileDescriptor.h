#pragma once

#include <unistd.h>

#include <utility>

namespace blankwell {

/// An open file descriptor, closed at the end of its life. Negative means none.
class FileDescriptor {
public:
    FileDescriptor() = default;

    explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}

    ~FileDescriptor() { reset(); }

    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, -1)) {}

    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        reset(std::exchange(other.descriptor_, -1));
        return *this;
    }

    [[nodiscard]] int get() const { return descriptor_; }

    explicit operator bool() const { return descriptor_ >= 0; }

    /// Gives the descriptor up without closing it.
    [[nodiscard]] int release() { return std::exchange(descriptor_, -1); }

    /// Closes the descriptor, and takes `other` in its place.
    void reset(int other = -1) {
        if (const int previous = std::exchange(descriptor_, other); previous >= 0) {
            ::close(previous);
        }
    }

private:
    int descriptor_ = -1;
};

} // namespace blankwell
