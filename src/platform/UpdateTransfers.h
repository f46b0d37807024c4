#pragma once

#include "base/FileUrl.h"
#include "platform/UpdateFailure.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <functional>
#include <stop_token>
#include <string>

namespace blankwell {

/// How far a download has come.
struct TransferProgress {
    std::uint64_t received = 0;
    std::uint64_t expected = 0;
    /// The speed of the last seconds.
    std::uint64_t bytesPerSecond = 0;

    friend bool operator==(const TransferProgress&, const TransferProgress&) = default;
};

/// Fetches what updates are made of from the web: over HTTPS alone, also after redirections, from
/// servers that the system's certificates vouch for, and telling them nothing about the user.
///
/// Every call blocks until it is through, so it belongs on a thread of its own; it ends within half
/// a second of a request to stop.
class UpdateTransfers {
public:
    virtual ~UpdateTransfers() = default;

    /// The text at `url`, of `largest` bytes at most.
    [[nodiscard]] virtual std::expected<std::string, UpdateFailure>
    fetch(const std::string& url, std::size_t largest, std::stop_token stop) = 0;

    /// Fetches the `length` bytes at `url` into `file`. What `file` holds already is taken for the
    /// beginning of an earlier attempt, and only the rest is asked for; after a failure it keeps
    /// what has come, for the next attempt. A file longer than `length`, or one that the server
    /// does not continue, is begun anew. `progress` is called on the calling thread, a few times a
    /// second.
    [[nodiscard]] virtual std::expected<void, UpdateFailure>
    download(const std::string& url, std::uint64_t length, const FileUrl& file,
             const std::function<void(const TransferProgress&)>& progress,
             std::stop_token stop) = 0;
};

} // namespace blankwell
