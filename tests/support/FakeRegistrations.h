#pragma once

#include "platform/InstalledPrograms.h"
#include "platform/Registrations.h"

#include <map>
#include <optional>
#include <set>

namespace blankwell {

/// Registrations that are no more than remembered.
class FakeRegistrations : public Registrations {
public:
    std::expected<void, SystemError> set(std::string_view group,
                                         const std::vector<Registration>& registrations) override {
        if (failWith) {
            return std::unexpected(*failWith);
        }
        if (registrations.empty()) {
            return clear(group);
        }
        held[std::string(group)] = registrations;
        return {};
    }

    std::expected<void, SystemError> clear(std::string_view group) override {
        if (failWith) {
            return std::unexpected(*failWith);
        }
        held.erase(std::string(group));
        return {};
    }

    std::vector<std::string> groups() const override {
        std::vector<std::string> names;
        for (const auto& [name, registrations] : held) {
            names.push_back(name);
        }
        return names;
    }

    std::map<std::string, std::vector<Registration>> held;
    std::optional<SystemError> failWith;
};

/// A system with the programs that a test names.
class FakeInstalledPrograms : public InstalledPrograms {
public:
    bool has(std::string_view program) const override { return names.contains(program); }

    bool nautilusTakesPython() const override { return takesPython; }

    bool hasExtension(std::string_view program) const override {
        return extended.contains(program);
    }

    std::set<std::string, std::less<>> names;
    /// Those with the application's own extension.
    std::set<std::string, std::less<>> extended;
    bool takesPython = true;
};

} // namespace blankwell
