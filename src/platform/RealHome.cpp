#include "platform/RealHome.h"

#include "platform/Account.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace blankwell {

std::optional<FileUrl> realHomeFolder(const Account& account) {
    const auto record = account.record();
    if (!record) {
        return std::nullopt;
    }
    if (!record->home) {
        std::fputs("The user's account record names no home folder.\n", stderr);
        std::abort();
    }
    return record->home->standardized();
}

FileUrl homeFolder(const Account& account) {
    auto home = realHomeFolder(account);
    return home ? *std::move(home) : account.processHome();
}

} // namespace blankwell
