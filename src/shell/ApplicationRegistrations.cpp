#include "shell/ApplicationRegistrations.h"

#include "base/Quoting.h"
#include "platform/Identifiers.h"

#include <fmt/core.h>

#include <string_view>

namespace blankwell {
namespace {

constexpr std::string_view placeholder = "@BLANKWELL_APPLICATION_PATH@";

std::string filledIn(std::string text, std::string_view program) {
    for (auto at = text.find(placeholder); at != std::string::npos;
         at = text.find(placeholder, at + program.size())) {
        text.replace(at, placeholder.size(), program);
    }
    return text;
}

} // namespace

std::vector<Registration> applicationRegistrations(const FileUrl& bundle, const UserPlaces& places,
                                                   const DesktopTemplates& templates) {
    const auto contents = bundle.appending("Contents");
    const auto resources = contents.appending("Resources");
    const auto& data = places.dataHome;
    const auto entry = fmt::format("{}.desktop", bundleIdentifier);
    const auto service = fmt::format("{}.service", bundleIdentifier);
    const auto icon = fmt::format("{}.svg", bundleIdentifier);
    const auto word = desktopEntryWord(contents.appending("Linux/blankwell-plus").path());
    const auto link = [&](const FileUrl& url, std::string_view resource) {
        return RegisteredLink{url, resources.appending(resource)};
    };
    return {
        RegisteredFile{.url = data.appending("applications").appending(entry),
                       .contents = filledIn(templates.desktopEntry,
                                            desktopEntryValue(withoutFieldCodes(word)))},
        RegisteredFile{.url = data.appending("dbus-1/services").appending(service),
                       .contents = filledIn(templates.service, desktopEntryValue(word))},
        RegisteredEntry{places.configHome.appending("mimeapps.list"), "Default Applications",
                        "x-scheme-handler/blankwellplus", entry},
        link(data.appending("icons/hicolor/scalable/apps").appending(icon), "icons/" + icon),
        RegisteredLink{places.home.appending(".local/bin/blankwell"),
                       contents.appending("Linux/blankwell")},
        link(data.appending("man/man1/blankwell.1"), "man/blankwell.1"),
        link(data.appending("bash-completion/completions/blankwell"), "completions/blankwell.bash"),
        link(data.appending("zsh/site-functions/_blankwell"), "completions/_blankwell"),
        link(data.appending("fish/vendor_completions.d/blankwell.fish"),
             "completions/blankwell.fish"),
    };
}

} // namespace blankwell
