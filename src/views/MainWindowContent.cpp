#include "views/MainWindowContent.h"

#include "platform/Bundle.h"

#include <algorithm>

namespace blankwell {

std::string versionText(const Bundle& bundle) {
    const auto version = bundle.infoString("CFBundleShortVersionString");
    return version ? "Version " + *version : "";
}

std::array<PresenceSegment, allAppPresences.size()> presenceSegments() {
    std::array<PresenceSegment, allAppPresences.size()> segments{};
    std::ranges::transform(allAppPresences, segments.begin(), [](AppPresence presence) {
        return PresenceSegment{
            .presence = presence, .title = title(presence), .description = description(presence)};
    });
    return segments;
}

} // namespace blankwell
