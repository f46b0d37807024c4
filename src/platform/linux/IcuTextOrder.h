#pragma once

#include "platform/SystemError.h"
#include "platform/TextOrder.h"

#include <expected>
#include <memory>
#include <string>

struct UCollator;

namespace blankwell {

class Environment;

/// The locale whose order of letters the user chose: `LC_ALL`, `LC_COLLATE`, `LANG`, the first that
/// is not empty (POSIX, section 8.2). Empty, which is the root locale, where it is "C" or none is
/// set.
[[nodiscard]] std::string collationLocale(const Environment& environment);

/// The order and the folding of Unicode, as ICU implements them.
///
/// Texts are ordered by their letters and accents first, punctuation included and runs of digits by
/// value; then the shorter of two runs of the same value stands first; then lower case; and what is
/// still alike, by UTF-16 code units and at last by bytes.
class IcuTextOrder : public TextOrder {
public:
    /// The order of `locale` (an ICU or POSIX name); of the root locale, where ICU has no rules of
    /// its own for it. Error: ICU cannot load its data, or the name asks for an impossible order.
    [[nodiscard]] static std::expected<IcuTextOrder, SystemError>
    forLocale(const std::string& locale);

    [[nodiscard]] std::strong_ordering standardCompare(std::string_view left,
                                                       std::string_view right) const override;

    /// Compares by full case folding (ß is ss), composed and decomposed letters alike. A letter is
    /// not found where it carries marks that the needle has not.
    [[nodiscard]] bool caseInsensitiveContains(std::string_view text,
                                               std::string_view needle) const override;

private:
    struct CloseCollator {
        void operator()(UCollator* collator) const;
    };

    using Collator = std::unique_ptr<UCollator, CloseCollator>;

    IcuTextOrder(Collator letters, Collator cases);

    static std::expected<Collator, SystemError> openCollator(const std::string& locale);

    Collator letters_;
    Collator cases_;
};

} // namespace blankwell
