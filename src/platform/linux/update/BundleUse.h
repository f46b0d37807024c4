#pragma once

#include "base/FileUrl.h"
#include "platform/linux/FileDescriptor.h"

namespace blankwell {

/// The mark that a process runs from a bundle, on the bundle's folder itself, so that it stays with
/// the folder when an update moves it away. Lasts as long as this value, and never longer than the
/// process.
class BundleUse {
public:
    /// Marks the bundle at `bundle`. Where there is no such folder there is nothing to mark.
    explicit BundleUse(FileUrl bundle);

    /// Where the bundle was when it was marked.
    [[nodiscard]] const FileUrl& bundle() const { return bundle_; }

    /// Whether the folder that was marked is still there, and no other in its place.
    [[nodiscard]] bool isInPlace() const;

    /// Whether a process runs from the bundle at `bundle`, this one included. Where that cannot be
    /// told it is yes.
    [[nodiscard]] static bool isUsed(const FileUrl& bundle);

private:
    FileUrl bundle_;
    FileDescriptor folder_;
};

} // namespace blankwell
