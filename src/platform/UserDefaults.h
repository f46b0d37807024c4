#pragma once

#include "base/Bytes.h"
#include "platform/SystemError.h"

#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace blankwell {

/// What a preference domain holds under a key. Each form comes back as it was stored.
using PropertyValue = std::variant<bool, std::string, Bytes, std::vector<std::string>>;

/// A key of a preference domain, and its value if that has a form of `PropertyValue`.
struct PropertyEntry {
    std::string key;
    std::optional<PropertyValue> value;

    friend bool operator==(const PropertyEntry&, const PropertyEntry&) = default;
};

/// One preference domain: typed values under keys, shared with every process that opens the domain.
///
/// A read sees what any process wrote last. A value of a form that `PropertyValue` does not have
/// (put there by somebody else) reads as absent and survives every write of another key.
/// Belongs to the main thread.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    [[nodiscard]] virtual std::optional<PropertyValue> value(std::string_view key) const = 0;

    /// What the domain holds at one moment under the keys that begin with `prefix`, in ascending
    /// byte order of the keys.
    [[nodiscard]] virtual std::vector<PropertyEntry> entries(std::string_view prefix) const = 0;

    /// Stores `value` under `key`. On an error the domain is as it was.
    virtual std::expected<void, SystemError> set(std::string_view key, PropertyValue value) = 0;

    /// Takes `key` out; succeeds without a write if it is absent. On an error the domain is as it
    /// was.
    virtual std::expected<void, SystemError> remove(std::string_view key) = 0;

    /// The keys of `entries(prefix)`.
    [[nodiscard]] std::vector<std::string> keys(std::string_view prefix) const;

    /// The value under `key` if it has the form `Form`.
    template <typename Form>
    [[nodiscard]] std::optional<Form> read(std::string_view key) const {
        auto stored = value(key);
        if (!stored || !std::holds_alternative<Form>(*stored)) {
            return std::nullopt;
        }
        return std::get<Form>(*std::move(stored));
    }
};

/// Opens preference domains.
class PreferenceDomains {
public:
    virtual ~PreferenceDomains() = default;

    /// The domain called `name`, or nullptr where it cannot be opened. Lives as long as this
    /// object.
    [[nodiscard]] virtual UserDefaults* suite(std::string_view name) = 0;

    /// The application's own domain. Lives as long as this object.
    [[nodiscard]] virtual UserDefaults& standard() = 0;
};

/// The app group's domain, or the application's own where that cannot be opened.
[[nodiscard]] UserDefaults& sharedDefaults(PreferenceDomains& domains);

} // namespace blankwell
