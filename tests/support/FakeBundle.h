#pragma once

#include "platform/Bundle.h"

#include <map>

namespace blankwell {

/// A bundle of the resources and Info.plist entries that a test puts in.
class FakeBundle : public Bundle {
public:
    FileUrl url() const override { return location; }

    std::optional<FileUrl> resource(std::string_view name,
                                    std::string_view extension) const override {
        const auto found = resources.find(std::string(name) + "." + std::string(extension));
        return found == resources.end() ? std::nullopt : std::optional(found->second);
    }

    std::optional<std::string> infoString(std::string_view key) const override {
        const auto found = info.find(std::string(key));
        return found == info.end() ? std::nullopt : std::optional(found->second);
    }

    FileUrl location{"/Applications/Blankwell+.app"};
    std::map<std::string, FileUrl> resources;
    std::map<std::string, std::string> info;
};

} // namespace blankwell
