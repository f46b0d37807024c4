#include "platform/linux/PropertyList.h"
#include "platform/linux/PropertyListText.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using blankwell::PropertyList;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Two lists that hold the same under the same keys, as far as values can be looked at.
void requireEqual(const PropertyList& one, const PropertyList& other) {
    const auto keys = one.keys("");
    require(keys == other.keys(""));
    for (const auto& key : keys) {
        const auto* const value = one.find(key);
        const auto* const otherValue = other.find(key);
        require((value == nullptr) == (otherValue == nullptr));
        require(value == nullptr || *value == *otherValue);
    }
}

/// What can be read must come back from what is written of it, unchanged by further rounds.
void requireRoundTrip(const PropertyList& list) {
    const auto document = list.xml();
    if (!document) {
        return; // larger than what may be read
    }
    const auto again = PropertyList::parse(*document);
    require(again.has_value());
    requireEqual(list, *again);
    require(again->xml() == document);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    require(blankwell::originalText(blankwell::storedText(input)) == input);

    auto list = PropertyList::parse(input);
    if (list) {
        requireRoundTrip(*list);
        list->set(input, std::string(input));
        requireRoundTrip(*list);
    }
    return 0;
}
