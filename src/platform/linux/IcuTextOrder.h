#pragma once

#include "platform/TextOrder.h"

#include <memory>
#include <optional>
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
///
/// The rules of a language are loaded by the first comparison. One thread at a time.
class IcuTextOrder : public TextOrder {
public:
    /// The order of `locale`, an ICU or POSIX name; the root locale's, where ICU has no rules of
    /// its own for it or the name asks for an impossible order.
    explicit IcuTextOrder(std::string locale);

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

    struct Collators {
        Collator letters;
        Collator cases;
    };

    static Collator openCollator(const std::string& locale);
    static Collators openCollators(const std::string& locale);
    const Collators& collators() const;

    std::string locale_;
    mutable std::optional<Collators> collators_;
};

} // namespace blankwell
