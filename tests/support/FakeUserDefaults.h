#pragma once

#include "platform/UserDefaults.h"

#include <map>
#include <set>

namespace blankwell {

/// A preference domain in memory.
class FakeUserDefaults : public UserDefaults {
public:
    std::optional<PropertyValue> value(std::string_view key) const override {
        ++reads;
        const auto found = values.find(key);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }

    std::vector<PropertyEntry> entries(std::string_view prefix) const override {
        ++reads;
        std::map<std::string, std::optional<PropertyValue>> all(values.begin(), values.end());
        for (const auto& key : foreignKeys) {
            all[key] = std::nullopt;
        }
        std::vector<PropertyEntry> found;
        for (const auto& [key, value] : all) {
            if (key.starts_with(prefix)) {
                found.push_back({key, value});
            }
        }
        return found;
    }

    std::expected<void, SystemError> set(std::string_view key, PropertyValue value) override {
        if (failWith) {
            return std::unexpected(*failWith);
        }
        foreignKeys.erase(std::string(key));
        values.insert_or_assign(std::string(key), std::move(value));
        written.emplace_back(key);
        return {};
    }

    std::expected<void, SystemError> remove(std::string_view key) override {
        if (failWith) {
            return std::unexpected(*failWith);
        }
        foreignKeys.erase(std::string(key));
        if (values.erase(std::string(key)) > 0) {
            written.emplace_back(key);
        }
        return {};
    }

    std::map<std::string, PropertyValue, std::less<>> values;
    /// Keys whose values have a form that the port does not know.
    std::set<std::string> foreignKeys;
    /// The key of each write that changed something.
    std::vector<std::string> written;
    std::optional<SystemError> failWith;
    mutable int reads = 0;
};

/// Two preference domains in memory: the group's and the application's own.
class FakePreferenceDomains : public PreferenceDomains {
public:
    UserDefaults* suite(std::string_view name) override {
        opened.emplace_back(name);
        return suiteOpens ? &group : nullptr;
    }

    UserDefaults& standard() override { return own; }

    FakeUserDefaults group;
    FakeUserDefaults own;
    bool suiteOpens = true;
    std::vector<std::string> opened;
};

} // namespace blankwell
