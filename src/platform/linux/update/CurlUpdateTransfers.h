#pragma once

#include "platform/UpdateTransfers.h"

#include <chrono>
#include <string>

namespace blankwell {

/// Transfers by libcurl.
class CurlUpdateTransfers : public UpdateTransfers {
public:
    struct Limits {
        std::chrono::seconds fetch{30};
        std::chrono::seconds download{std::chrono::hours{2}};
        /// How long hardly a byte may come in.
        std::chrono::seconds stall{30};
    };

    /// `certificates` is the file of the certificates to trust; empty: the system's.
    explicit CurlUpdateTransfers(std::string certificates);
    CurlUpdateTransfers(std::string certificates, Limits limits);

    [[nodiscard]] std::expected<std::string, UpdateFailure>
    fetch(const std::string& url, std::size_t largest, std::stop_token stop) override;

    [[nodiscard]] std::expected<void, UpdateFailure>
    download(const std::string& url, std::uint64_t length, const FileUrl& file,
             const std::function<void(const TransferProgress&)>& progress,
             std::stop_token stop) override;

private:
    std::string certificates_;
    Limits limits_;
};

} // namespace blankwell
