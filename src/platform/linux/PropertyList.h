#pragma once

#include "platform/UserDefaults.h"

#include <expected>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace blankwell {

/// A property list whose root is a dictionary, as XML property lists hold it (their document type
/// is Apple's PropertyList-1.0.dtd).
///
/// Keys and strings may be any bytes (see `storedText()`). Values of a form that `PropertyValue`
/// does not have (numbers, dates, dictionaries, mixed arrays) are kept and written back, but cannot
/// be looked at. Copies share those.
class PropertyList {
public:
    /// No list larger than this many bytes is read or written.
    static constexpr std::size_t largestSize = 8U << 20U;

    /// Reads `document`. Whatever is not an XML property list with a dictionary as its root is a
    /// `fileReadCorruptFile`; so is a binary one, which a few bytes can make huge.
    [[nodiscard]] static std::expected<PropertyList, SystemError> parse(std::string_view document);

    /// This list as an XML document. Fails (EFBIG) if it would be larger than `largestSize`.
    [[nodiscard]] std::expected<std::string, SystemError> xml() const;

    /// The value under `key`, valid until the next change; nullptr if there is none, or one of
    /// another form.
    [[nodiscard]] const PropertyValue* find(std::string_view key) const;

    /// Whether there is a value of any form under `key`.
    [[nodiscard]] bool contains(std::string_view key) const { return entries_.contains(key); }

    /// The entries whose keys begin with `prefix`, in ascending byte order of the keys.
    [[nodiscard]] std::vector<PropertyEntry> entries(std::string_view prefix) const;

    void set(std::string_view key, PropertyValue value);

    void remove(std::string_view key);

private:
    /// A libplist node, never changed.
    using ForeignValue = std::shared_ptr<void>;
    using Entry = std::variant<PropertyValue, ForeignValue>;

    static Entry entryOf(void* node);
    static void* newNode(const Entry& entry);

    std::map<std::string, Entry, std::less<>> entries_;
};

} // namespace blankwell
