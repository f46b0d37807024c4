#include "platform/linux/LinuxInstallationTraces.h"

#include "platform/linux/FileName.h"
#include "platform/linux/ItemRemoval.h"

#include <fmt/core.h>

#include <string>
#include <utility>

namespace blankwell {
namespace {

bool isDamagedCopy(std::string_view item, std::string_view file) {
    constexpr std::string_view mark = ".damaged-";
    if (!item.starts_with(file) || !item.substr(file.size()).starts_with(mark)) {
        return false;
    }
    const auto number = item.substr(file.size() + mark.size());
    return !number.empty() && number.find_first_not_of("0123456789") == std::string_view::npos;
}

} // namespace

LinuxInstallationTraces::LinuxInstallationTraces(FileUrl preferences, FileUrl dataHome,
                                                 std::vector<Undo> registrations)
    : preferences_(std::move(preferences)),
      dataHome_(std::move(dataHome)),
      registrations_(std::move(registrations)) {}

void LinuxInstallationTraces::removePersistentDomain(std::string_view name) {
    if (!isFileName(name)) {
        return;
    }
    const ItemRemoval folder(preferences_.path());
    const auto file = fmt::format("{}.plist", name);
    folder.removeFile(file + ".tmp");
    folder.removeFile(file);
    for (const auto& item : folder.names()) {
        if (isDamagedCopy(item, file)) {
            folder.removeFile(item);
        }
    }
    folder.removeFile(file + ".lock");
}

void LinuxInstallationTraces::removeGroupContainer(std::string_view group) {
    if (isFileName(group)) {
        ItemRemoval(dataHome_.path()).removeTree(std::string(group));
    }
}

void LinuxInstallationTraces::removeRegistrations() {
    for (const auto& undo : registrations_) {
        undo();
    }
}

} // namespace blankwell
