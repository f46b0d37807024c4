#pragma once

#include "base/FileUrl.h"
#include "platform/UpdateFailure.h"

#include <expected>
#include <memory>
#include <stop_token>
#include <string>
#include <string_view>

namespace blankwell {

class Bundle;

/// A bundle that was unpacked and waits to be put in place of the running one. Gone from the disk
/// with this value, unless it was installed.
class StagedBundle {
public:
    virtual ~StagedBundle() = default;

    [[nodiscard]] virtual const Bundle& bundle() const = 0;

    /// Puts it in place of the running application's bundle in one step: at any moment, also in a
    /// crash, there is one whole bundle. What runs goes on running, and its bundle is kept until it
    /// has ended. On an error nothing has changed.
    [[nodiscard]] virtual std::expected<void, UpdateFailure> install() = 0;
};

/// The place where one update is made ready, held against everybody else as long as this value
/// lives. What it makes must not outlive it.
class UpdateStaging {
public:
    virtual ~UpdateStaging() = default;

    /// Where the archive called `name` (a plain file name) is to be downloaded to. Archives of
    /// other names are removed.
    [[nodiscard]] virtual FileUrl archive(std::string_view name) = 0;

    /// Unpacks `archive` after its bytes have proved to be signed: `signature` is the base64 of an
    /// Ed25519 signature over all of them, `key` the base64 of the public key. Of an archive that
    /// is not signed, nothing is looked at. The archive is removed unless this was stopped.
    [[nodiscard]] virtual std::expected<std::unique_ptr<StagedBundle>, UpdateFailure>
    unpack(const FileUrl& archive, const std::string& signature, const std::string& key,
           std::stop_token stop) = 0;
};

/// Puts updates in place of the running application. The calls block, so they belong on a thread of
/// their own.
class UpdateInstaller {
public:
    virtual ~UpdateInstaller() = default;

    /// Errors: the place cannot be made, or another process updates the application right now.
    [[nodiscard]] virtual std::expected<std::unique_ptr<UpdateStaging>, UpdateFailure> begin() = 0;
};

} // namespace blankwell
