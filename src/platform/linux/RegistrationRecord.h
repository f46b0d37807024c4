#pragma once

#include "base/FileUrl.h"
#include "platform/Registrations.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

/// A line in the list of what is registered: enough to take it away again.
struct RegistrationRecord {
    /// In the order in which they are taken away.
    enum class Kind {
        file,
        link,
        entry,
        actions,
        place,
        /// A file that others write as well and that was not there before.
        madeFile,
        /// A folder that was not there before.
        madeFolder,
    };

    Kind kind;
    FileUrl url;
    /// Of an entry: group, key and value. Of a made file: what it began as, where it has that.
    std::vector<std::string> details;

    friend bool operator==(const RegistrationRecord&, const RegistrationRecord&) = default;
    friend auto operator<=>(const RegistrationRecord&, const RegistrationRecord&) = default;
};

/// What `registration` leaves behind for itself; see `madeFile` and `madeFolder` for what comes
/// with it.
[[nodiscard]] RegistrationRecord recordOf(const Registration& registration);

/// The record in one line of text.
[[nodiscard]] std::string text(const RegistrationRecord& record);

/// Reads what `text` wrote; nothing where it is something else.
[[nodiscard]] std::optional<RegistrationRecord> registrationRecord(std::string_view line);

} // namespace blankwell
