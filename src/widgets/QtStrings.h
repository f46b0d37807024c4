#pragma once

#include <QString>

#include <string_view>

namespace blankwell {

/// `text`, which is UTF-8, for Qt; bytes that are not become replacement characters.
[[nodiscard]] inline QString qString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace blankwell
