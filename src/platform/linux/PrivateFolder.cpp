#include "platform/linux/PrivateFolder.h"

#include <sys/stat.h>

#include <cerrno>

namespace blankwell {
namespace {

std::expected<void, int> makeFolder(const std::string& path) {
    if (::mkdir(path.c_str(), S_IRWXU) == 0 || errno == EEXIST) {
        return {};
    }
    return std::unexpected(errno);
}

} // namespace

std::expected<void, int> makePrivateFolder(const std::string& path) {
    const auto made = makeFolder(path);
    const auto slash = path.find_last_of('/');
    if (made || made.error() != ENOENT || slash == 0 || slash == std::string::npos) {
        return made;
    }
    const auto above = makePrivateFolder(path.substr(0, slash));
    return above ? makeFolder(path) : above;
}

} // namespace blankwell
