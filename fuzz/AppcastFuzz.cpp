#include "base/Text.h"
#include "updates/Appcast.h"
#include "updates/UpdateChoice.h"
#include "updates/UpdatePage.h"
#include "updates/VersionOrder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace blankwell {
namespace {

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void requireText(std::string_view text) {
    require(isUtf8(text) && trimmed(text) == text);
}

/// What is shown of an item is text, and leads to the web if anywhere.
void requireShowable(const AppcastItem& item) {
    for (const auto& text :
         {item.version, item.shortVersion, item.url, item.signature, item.operatingSystem,
          item.minimumSystemVersion, item.maximumSystemVersion, item.channel, item.criticalBefore,
          item.description, item.descriptionFormat, item.releaseNotesLink}) {
        requireText(text);
    }
    const auto page = pageFor(UpdateFound{item, isCritical(item, "1.0")}, "1.0");
    require(isUtf8(page.notes));
    require(!page.notesLink || (page.notesLink->url.front() | 0x20) == 'h');
}

void requireOrder(const AppcastItem& one, const AppcastItem& other) {
    const auto order = compareVersions(one.version, other.version);
    require(compareVersions(other.version, one.version) == 0 <=> order);
    require(compareVersions(one.version, one.version) == 0);
}

/// Of a feed that announces anything at all, what is offered can be fetched and verified, and is
/// news.
void requireUsable(const AppcastItem& item) {
    require(isNewer(item.version, "1.0") && !isNewer("1.0", item.version));
    require(item.url.size() > std::string_view("https://").size());
    require(item.length.value_or(0) > 0 && !item.signature.empty() && item.channel.empty());
}

} // namespace
} // namespace blankwell

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace blankwell;
    const auto feed = parseAppcast({reinterpret_cast<const char*>(data), size});
    if (!feed) {
        require(!feed.error().empty());
        return 0;
    }
    require(size <= AppcastLimits::size && feed->size() <= AppcastLimits::items);
    std::ranges::for_each(*feed, requireShowable);
    for (std::size_t i = 1; i < feed->size(); ++i) {
        requireOrder((*feed)[i - 1], (*feed)[i]);
    }
    if (const auto chosen = chooseUpdate(*feed, {.version = "1.0", .systemVersion = "6.1"})) {
        requireUsable(*chosen);
    }
    return 0;
}
