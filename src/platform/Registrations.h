#pragma once

#include "base/FileUrl.h"
#include "platform/SystemError.h"

#include <expected>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace blankwell {

/// A file that is the application's alone. Its contents name the bundle identifier.
struct RegisteredFile {
    FileUrl url;
    std::string contents;
    bool isProgram = false;

    friend bool operator==(const RegisteredFile&, const RegisteredFile&) = default;
};

/// A link that is the application's alone and leads into its bundle.
struct RegisteredLink {
    FileUrl url;
    FileUrl target;

    friend bool operator==(const RegisteredLink&, const RegisteredLink&) = default;
};

/// A line `key=value` under the heading `[group]` of a file that others write as well.
struct RegisteredEntry {
    FileUrl url;
    std::string group;
    std::string key;
    std::string value;

    friend bool operator==(const RegisteredEntry&, const RegisteredEntry&) = default;
};

/// An item that a file manager offers on folders.
struct CustomAction {
    /// Begins with the bundle identifier, by which the application's own are told from others.
    std::string id;
    std::string name;
    std::string description;
    std::string icon;
    std::string submenu;
    /// As a shell takes it; `%f` stands for the folder, `%%` for a percent sign.
    std::string command;

    friend bool operator==(const CustomAction&, const CustomAction&) = default;
};

/// Actions in a list, in XML, that the user and the file manager write as well.
struct RegisteredActions {
    FileUrl url;
    /// The list for all users, which holds as long as `url` is missing. It need not exist.
    FileUrl usual;
    std::vector<CustomAction> actions;

    friend bool operator==(const RegisteredActions&, const RegisteredActions&) = default;
};

/// Something that the application puts there by itself, for which only the folders are made.
struct RegisteredPlace {
    FileUrl url;

    friend bool operator==(const RegisteredPlace&, const RegisteredPlace&) = default;
};

/// One thing in the user's folders by which other programs learn of the application.
using Registration = std::variant<RegisteredFile, RegisteredLink, RegisteredEntry,
                                  RegisteredActions, RegisteredPlace>;

/// What the application has put into the user's folders, in groups that come and go as a whole. A
/// list of it is kept, which is never shorter than the truth, whenever the process ends.
class Registrations {
public:
    virtual ~Registrations() = default;

    /// Makes `registrations` all that is registered under `group`: writes what is missing or
    /// differs, and takes away what was there before. A file or link that somebody else made is
    /// not replaced, which is an error. On errors all else is done; the first of them is returned.
    virtual std::expected<void, SystemError>
    set(std::string_view group, const std::vector<Registration>& registrations) = 0;

    /// Takes away what is registered under `group`, and the folders that were made for it as far as
    /// they are empty. What fails stays on the list; the first error is returned.
    virtual std::expected<void, SystemError> clear(std::string_view group) = 0;

    /// The groups of which something is registered, in ascending order.
    [[nodiscard]] virtual std::vector<std::string> groups() const = 0;
};

} // namespace blankwell
