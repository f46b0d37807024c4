#pragma once

#include "base/FileUrl.h"
#include "platform/SystemError.h"

#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <variant>

namespace blankwell {

/// Where an item is in the Trash; nothing where the system does not tell.
using TrashLocation = std::optional<FileUrl>;

/// Why the file manager did not do what a script asked of it.
struct FileManagerScriptFailure {
    /// The request could not even be put together.
    struct NotPrepared {
        friend bool operator==(const NotPrepared&, const NotPrepared&) = default;
    };

    /// The file manager refused, with its words as far as there are any.
    struct Refused {
        std::optional<std::string> localizedDescription;
        std::optional<std::string> scriptErrorMessage;

        friend bool operator==(const Refused&, const Refused&) = default;
    };

    std::variant<NotPrepared, Refused> reason;

    friend bool operator==(const FileManagerScriptFailure&,
                           const FileManagerScriptFailure&) = default;
};

/// The system's three ways to the user's Trash. None of them ever removes an item for good.
///
/// A success is what the service says. Whether the item is gone, the caller sees at its path.
/// Belongs to the main thread.
class Trash {
public:
    virtual ~Trash() = default;

    /// Moves the item at `url` there, by the file services.
    [[nodiscard]] virtual std::expected<TrashLocation, SystemError>
    trashItem(const FileUrl& url) = 0;

    using Completion = std::move_only_function<void(std::expected<TrashLocation, SystemError>)>;

    /// Lets the desktop move the item there. Returns at once; `completion` is called later, once,
    /// on the main thread.
    virtual void recycle(const FileUrl& url, Completion completion) = 0;

    /// Lets the file manager move the item there, and waits for its answer for a bounded time.
    [[nodiscard]] virtual std::expected<void, FileManagerScriptFailure>
    deleteWithFileManager(const FileUrl& url) = 0;
};

} // namespace blankwell
