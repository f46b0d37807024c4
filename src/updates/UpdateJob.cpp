#include "updates/UpdateJob.h"

#include "platform/Bundle.h"
#include "platform/UpdateInstaller.h"
#include "updates/UpdateRefusal.h"

#include <algorithm>
#include <utility>

namespace blankwell {
namespace {

using Reason = UpdateFailure::Reason;

bool isBase64Letter(char character) {
    const auto lowered = static_cast<char>(character | 0x20);
    return (lowered >= 'a' && lowered <= 'z') || (character >= '0' && character <= '9') ||
           character == '_';
}

/// A name for the archive that another archive does not have.
std::string archiveName(const AppcastItem& item) {
    constexpr std::size_t length = 32;
    auto name = item.signature.substr(0, length);
    std::ranges::replace(name, '+', '_');
    std::ranges::replace_if(name, [](char character) { return !isBase64Letter(character); }, '-');
    return name;
}

} // namespace

std::expected<std::optional<AppcastItem>, UpdateFailure>
UpdateJob::check(const std::string& url, const UpdateTarget& target,
                 const std::stop_token& stop) const {
    const auto text = transfers_.fetch(url, AppcastLimits::size, stop);
    if (!text) {
        return std::unexpected(text.error());
    }
    const auto feed = parseAppcast(*text);
    if (!feed) {
        return std::unexpected(UpdateFailure{Reason::refused, feed.error()});
    }
    return chooseUpdate(*feed, target);
}

std::expected<void, UpdateFailure> UpdateJob::install(const AppcastItem& item,
                                                      const Bundle& running,
                                                      const Observer& observer,
                                                      const std::stop_token& stop) const {
    const auto length = item.length.value_or(0);
    if (length > largestArchive) {
        return std::unexpected(UpdateFailure{Reason::tooLarge, "The update is too large."});
    }
    const auto staging = installer_.begin();
    if (!staging) {
        return std::unexpected(staging.error());
    }
    const auto archive = (*staging)->archive(archiveName(item));
    if (auto done = transfers_.download(item.url, length, archive, observer.downloaded, stop);
        !done) {
        return done;
    }
    observer.willUnpack();
    const auto key = running.infoString("SUPublicEDKey").value_or("");
    const auto update = (*staging)->unpack(archive, item.signature, key, stop);
    if (!update) {
        return std::unexpected(update.error());
    }
    if (auto refusal = refusalOf((*update)->bundle(), running, item.version)) {
        return std::unexpected(*std::move(refusal));
    }
    if (stop.stop_requested()) {
        return std::unexpected(UpdateFailure{Reason::cancelled, "The update was cancelled."});
    }
    return (*update)->install();
}

} // namespace blankwell
