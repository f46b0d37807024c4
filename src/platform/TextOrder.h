#pragma once

#include <compare>
#include <string_view>

namespace blankwell {

/// Comparison of texts as the user reads them. Texts are UTF-8; bytes that are not stand for the
/// replacement character.
class TextOrder {
public:
    virtual ~TextOrder() = default;

    /// The file manager's order: runs of digits by value, letters before their case, so that
    /// `a < A < b` and `a2 < a10`. Equal only for equal texts.
    [[nodiscard]] virtual std::strong_ordering standardCompare(std::string_view left,
                                                               std::string_view right) const = 0;

    /// Whether `needle` stands in `text`, whatever the case of the letters; accents count. The
    /// empty needle stands nowhere.
    [[nodiscard]] virtual bool caseInsensitiveContains(std::string_view text,
                                                       std::string_view needle) const = 0;
};

} // namespace blankwell
