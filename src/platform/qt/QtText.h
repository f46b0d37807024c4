#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace blankwell {

/// `text`, which is UTF-8, for Qt; bytes that are not become replacement characters.
[[nodiscard]] inline QString qtText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Qt's text as UTF-8.
[[nodiscard]] inline std::string utf8(const QString& text) {
    return text.toStdString();
}

} // namespace blankwell
