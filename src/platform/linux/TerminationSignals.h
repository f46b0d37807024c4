#pragma once

#include "platform/SystemError.h"
#include "platform/linux/FileDescriptor.h"

#include <expected>
#include <utility>

namespace blankwell {

/// The signals by which a session asks a program to end: SIGTERM, SIGINT and SIGHUP. For any event
/// loop: they make a descriptor readable instead of ending the process, once for good. A second
/// signal ends the process as usual, so that one that hangs can be ended.
class TerminationSignals {
public:
    /// Takes the signals over for the rest of the process's life. To be called once.
    [[nodiscard]] static std::expected<TerminationSignals, SystemError> take();

    /// Readable when the program is to end. Belongs to this object.
    [[nodiscard]] int descriptor() const { return readable_.get(); }

private:
    explicit TerminationSignals(FileDescriptor readable) : readable_(std::move(readable)) {}

    FileDescriptor readable_;
};

} // namespace blankwell
