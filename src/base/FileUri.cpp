#include "base/FileUri.h"

#include "base/PercentEncoding.h"

namespace blankwell {
namespace {

constexpr std::string_view prefix = "file://";

} // namespace

std::string fileUri(const FileUrl& url) {
    return std::string(prefix) + percentEncoded(url.path(), "/-._~!$&'()*+,:;=@[]");
}

std::optional<FileUrl> fileOfUri(std::string_view uri) {
    if (!uri.starts_with(prefix)) {
        return std::nullopt;
    }
    const auto encoded = uri.substr(prefix.size());
    if (!encoded.starts_with('/') || encoded.find_first_of("?#") != std::string_view::npos) {
        return std::nullopt;
    }
    auto path = percentDecoded(encoded);
    if (!path || path->contains('\0')) {
        return std::nullopt;
    }
    return FileUrl(*std::move(path));
}

} // namespace blankwell
