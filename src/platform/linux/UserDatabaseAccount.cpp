#include "platform/linux/UserDatabaseAccount.h"

#include "platform/Environment.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace blankwell {
namespace {

/// Calls `reader` with the entry of the current user, if there is one. The entry lives as long as
/// the call.
void readEntry(const std::function<void(const passwd&)>& reader) {
    std::vector<char> buffer(1024);
    passwd entry{};
    passwd* found = nullptr;
    while (true) {
        const int error = ::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found);
        if (error == ERANGE) {
            buffer.resize(buffer.size() * 2);
        } else if (error != EINTR) {
            break;
        }
    }
    if (found != nullptr) {
        reader(*found);
    }
}

} // namespace

AccountRecord accountRecord(const passwd& entry) {
    if (entry.pw_dir == nullptr || !std::string_view(entry.pw_dir).starts_with('/')) {
        return {};
    }
    return {.home = FileUrl(entry.pw_dir)};
}

std::optional<AccountRecord> UserDatabaseAccount::record() const {
    std::optional<AccountRecord> result;
    readEntry([&](const passwd& entry) { result = accountRecord(entry); });
    return result;
}

FileUrl UserDatabaseAccount::processHome() const {
    if (auto home = environment_.variable("HOME"); home && home->starts_with('/')) {
        return FileUrl(*std::move(home));
    }
    return record().value_or(AccountRecord{}).home.value_or(FileUrl("/"));
}

std::optional<std::string> UserDatabaseAccount::userName() const {
    std::optional<std::string> result;
    readEntry([&](const passwd& entry) { result = entry.pw_name; });
    return result;
}

} // namespace blankwell
