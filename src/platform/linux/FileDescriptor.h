#pragma once

#include <unistd.h>

#include <utility>

namespace blankwell {

/// An open file descriptor, closed at the end of this value's life.
class FileDescriptor {
public:
    FileDescriptor() = default;

    /// Takes `descriptor` over; a negative one, as a failed call returns, is none.
    explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}

    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, -1)) {}

    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) {
            reset();
            descriptor_ = std::exchange(other.descriptor_, -1);
        }
        return *this;
    }

    ~FileDescriptor() { reset(); }

    [[nodiscard]] int get() const { return descriptor_; }

    explicit operator bool() const { return descriptor_ >= 0; }

    /// Closes the descriptor now, if there is one.
    void reset() {
        if (descriptor_ >= 0) {
            ::close(std::exchange(descriptor_, -1));
        }
    }

private:
    int descriptor_ = -1;
};

} // namespace blankwell
