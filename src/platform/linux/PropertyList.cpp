#include "platform/linux/PropertyList.h"

#include "platform/linux/PropertyListMarkup.h"
#include "platform/linux/PropertyListText.h"
#include "platform/linux/SystemErrors.h"

#include <plist/plist.h>

#include <cerrno>
#include <clocale>
#include <cstdlib>
#include <limits>
#include <optional>
#include <utility>

namespace blankwell {
namespace {

static_assert(PropertyList::largestSize < std::numeric_limits<std::uint32_t>::max(),
              "libplist counts bytes in 32 bits");

struct NodeDeleter {
    void operator()(void* node) const { plist_free(node); }
};

/// The owner of a libplist tree.
using Node = std::unique_ptr<void, NodeDeleter>;

struct Deallocator {
    void operator()(void* memory) const { std::free(memory); }
};

/// The owner of what libplist allocated.
template <typename Type>
using Allocated = std::unique_ptr<Type, Deallocator>;

/// Lets this thread read and write numbers with a decimal point, as long as it lives: libplist goes
/// by the locale, and would read "0.5" as 0 where the user writes "0,5".
class PointAsDecimalMark {
public:
    PointAsDecimalMark() : previous_(uselocale(plainLocale())) {}

    PointAsDecimalMark(const PointAsDecimalMark&) = delete;
    PointAsDecimalMark& operator=(const PointAsDecimalMark&) = delete;

    ~PointAsDecimalMark() { uselocale(previous_); }

private:
    static locale_t plainLocale() {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }

    locale_t previous_;
};

std::unexpected<SystemError> corrupt() {
    return std::unexpected(
        cocoaError(CocoaCode::fileReadCorruptFile, "The data is not a property list."));
}

std::string_view stringOf(plist_t node) {
    std::uint64_t length = 0;
    const char* const text = plist_get_string_ptr(node, &length);
    return text == nullptr ? std::string_view() : std::string_view(text, length);
}

/// Calls `visit` with each item of the array `node` until it returns false; whether it never did.
template <typename Visitor>
bool allItems(plist_t node, Visitor visit) {
    plist_array_iter made = nullptr;
    plist_array_new_iter(node, &made);
    const Allocated<void> iterator(made);
    for (plist_t item = nullptr;; item = nullptr) {
        plist_array_next_item(node, iterator.get(), &item);
        if (item == nullptr || !visit(item)) {
            return item == nullptr;
        }
    }
}

/// Calls `visit` with each key and value of the dictionary `node` until it returns false; whether
/// it never did.
template <typename Visitor>
bool allPairs(plist_t node, Visitor visit) {
    plist_dict_iter made = nullptr;
    plist_dict_new_iter(node, &made);
    const Allocated<void> iterator(made);
    while (true) {
        char* key = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(node, iterator.get(), &key, &value);
        const Allocated<char> owner(key);
        if (key == nullptr || value == nullptr || !visit(std::string_view(key), value)) {
            return value == nullptr;
        }
    }
}

/// Whether all text in `node` may be written again: libplist takes text that is not XML's, and
/// writes what nobody can read.
bool isWritable(plist_t node) {
    switch (plist_get_node_type(node)) {
    case PLIST_STRING:
        return isXmlText(stringOf(node));
    case PLIST_ARRAY:
        return allItems(node, isWritable);
    case PLIST_DICT:
        return allPairs(node, [](std::string_view key, plist_t value) {
            return isXmlText(key) && isWritable(value);
        });
    default:
        return true;
    }
}

bool boolOf(plist_t node) {
    std::uint8_t value = 0;
    plist_get_bool_val(node, &value);
    return value != 0;
}

Bytes dataOf(plist_t node) {
    std::uint64_t length = 0;
    const char* const data = plist_get_data_ptr(node, &length);
    if (data == nullptr) {
        return {};
    }
    const auto bytes = bytesOf({data, length});
    return {bytes.begin(), bytes.end()};
}

std::optional<std::vector<std::string>> stringsOf(plist_t node) {
    std::vector<std::string> strings;
    const bool complete = allItems(node, [&](plist_t item) {
        if (plist_get_node_type(item) != PLIST_STRING) {
            return false;
        }
        strings.push_back(originalText(stringOf(item)));
        return true;
    });
    return complete ? std::optional(std::move(strings)) : std::nullopt;
}

std::optional<PropertyValue> valueOf(plist_t node) {
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
        return boolOf(node);
    case PLIST_STRING:
        return originalText(stringOf(node));
    case PLIST_DATA:
        return dataOf(node);
    case PLIST_ARRAY:
        return stringsOf(node);
    default:
        return std::nullopt;
    }
}

/// Makes the node of a value; the caller owns it.
struct NodeMaker {
    plist_t operator()(bool value) const { return plist_new_bool(value ? 1 : 0); }

    plist_t operator()(const std::string& value) const {
        return plist_new_string(storedText(value).c_str());
    }

    plist_t operator()(const Bytes& value) const {
        return plist_new_data(value.empty() ? "" : textOf(value).data(), value.size());
    }

    plist_t operator()(const std::vector<std::string>& values) const {
        plist_t array = plist_new_array();
        for (const auto& value : values) {
            plist_array_append_item(array, (*this)(value));
        }
        return array;
    }
};

} // namespace

PropertyList::Entry PropertyList::entryOf(void* node) {
    if (auto value = valueOf(node)) {
        return *std::move(value);
    }
    return ForeignValue(plist_copy(node), plist_free);
}

void* PropertyList::newNode(const Entry& entry) {
    if (const auto* const value = std::get_if<PropertyValue>(&entry)) {
        return std::visit(NodeMaker{}, *value);
    }
    return plist_copy(std::get<ForeignValue>(entry).get());
}

std::expected<PropertyList, SystemError> PropertyList::parse(std::string_view document) {
    const auto text = document.size() > largestSize ? "" : parsableRoot(document);
    const PointAsDecimalMark decimalMark;
    plist_t parsed = nullptr;
    plist_from_xml(text.data(), static_cast<std::uint32_t>(text.size()), &parsed);
    const Node root(parsed);
    if (!root || plist_get_node_type(root.get()) != PLIST_DICT || !isWritable(root.get())) {
        return corrupt();
    }
    PropertyList list;
    allPairs(root.get(), [&](std::string_view key, plist_t value) {
        list.entries_.insert_or_assign(originalText(key), entryOf(value));
        return true;
    });
    return list;
}

std::expected<std::string, SystemError> PropertyList::xml() const {
    const Node root(plist_new_dict());
    for (const auto& [key, entry] : entries_) {
        plist_dict_set_item(root.get(), storedText(key).c_str(), newNode(entry));
    }
    const PointAsDecimalMark decimalMark;
    char* written = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(root.get(), &written, &length);
    const Allocated<char> owner(written);
    if (!owner || length > largestSize) {
        return std::unexpected(posixError(EFBIG, "Could not write the property list"));
    }
    return std::string(owner.get(), length);
}

const PropertyValue* PropertyList::find(std::string_view key) const {
    const auto found = entries_.find(key);
    return found == entries_.end() ? nullptr : std::get_if<PropertyValue>(&found->second);
}

std::vector<PropertyEntry> PropertyList::entries(std::string_view prefix) const {
    std::vector<PropertyEntry> found;
    for (auto entry = entries_.lower_bound(prefix);
         entry != entries_.end() && entry->first.starts_with(prefix); ++entry) {
        const auto* const value = std::get_if<PropertyValue>(&entry->second);
        found.push_back({entry->first, value == nullptr ? std::nullopt : std::optional(*value)});
    }
    return found;
}

void PropertyList::set(std::string_view key, PropertyValue value) {
    entries_.insert_or_assign(std::string(key), std::move(value));
}

void PropertyList::remove(std::string_view key) {
    if (const auto found = entries_.find(key); found != entries_.end()) {
        entries_.erase(found);
    }
}

} // namespace blankwell
