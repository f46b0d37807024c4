#pragma once

#include "platform/UpdateFailure.h"
#include "platform/UpdateTransfers.h"
#include "updates/Appcast.h"
#include "updates/UpdateChoice.h"

#include <cstdint>
#include <expected>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>

namespace blankwell {

class Bundle;
class UpdateInstaller;

/// The two long pieces of an update, which block until they are through and know nothing of the
/// user. What they refer to must outlive them.
class UpdateJob {
public:
    /// The largest archive that is fetched, in bytes.
    static constexpr std::uint64_t largestArchive = std::uint64_t{256} << 20U;

    UpdateJob(UpdateTransfers& transfers, UpdateInstaller& installer)
        : transfers_(transfers), installer_(installer) {}

    /// The update that the feed at `url` has for `target`, if any.
    [[nodiscard]] std::expected<std::optional<AppcastItem>, UpdateFailure>
    check(const std::string& url, const UpdateTarget& target, const std::stop_token& stop) const;

    /// How far `install` has come.
    struct Observer {
        std::function<void(const TransferProgress&)> downloaded;
        std::function<void()> willUnpack;
    };

    /// Downloads and verifies `item` and puts it in place of `running`. On an error nothing of
    /// `running` has changed.
    [[nodiscard]] std::expected<void, UpdateFailure> install(const AppcastItem& item,
                                                             const Bundle& running,
                                                             const Observer& observer,
                                                             const std::stop_token& stop) const;

private:
    UpdateTransfers& transfers_;
    UpdateInstaller& installer_;
};

} // namespace blankwell
