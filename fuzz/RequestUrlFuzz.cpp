#include "app/FinderRequest.h"
#include "base/Bytes.h"
#include "base/FileUrl.h"
#include "base/Text.h"
#include "base/UrlComponents.h"

#include <fmt/core.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

namespace blankwell {
namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

std::string percentEncoded(const std::string& text) {
    std::string encoded;
    for (const char byte : text) {
        encoded += fmt::format("%{:02X}", static_cast<unsigned char>(byte));
    }
    return encoded;
}

/// A request that was read names a usable folder, and reads the same when it is written again.
void checkRequest(const FinderRequest& request) {
    require(!request.typeID.empty());
    require(request.directoryPath.starts_with('/'));
    require(!request.directoryPath.contains('\0'));
    require(isUtf8(request.typeID) && isUtf8(request.directoryPath));
    const auto url =
        fmt::format("blankwellplus://create?type={}&directory={}", percentEncoded(request.typeID),
                    percentEncoded(request.directoryPath));
    require(parseFinderRequest(url) == request);

    const auto folder = FileUrl(request.directoryPath).standardized();
    require(folder.standardized() == folder);
    require(FileUrl(folder.path()).isStandardized());
    require(covers(folder, folder));
}

} // namespace
} // namespace blankwell

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace blankwell;
    const auto url = textOf(std::as_bytes(std::span(data, size)));
    if (const auto components = parseUrl(url)) {
        require(!components->scheme.empty());
    }
    if (const auto request = parseFinderRequest(url)) {
        checkRequest(*request);
    }
    return 0;
}
