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

/// What can be read must come back from what is written of it, unchanged by further rounds.
void requireRoundTrip(const PropertyList& list) {
    const auto document = list.xml();
    if (!document) {
        return; // larger than what may be read
    }
    const auto again = PropertyList::parse(*document);
    require(again.has_value());
    require(list.entries("") == again->entries(""));
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
