#pragma once

#include <string>
#include <variant>

namespace blankwell {

/// What a pressed hot key does.
struct HotKeyAction {
    /// Create a file of a type at once.
    struct CreateFile {
        std::string fileTypeID;

        friend bool operator==(const CreateFile&, const CreateFile&) = default;
    };

    /// Open the Quick Create panel.
    struct QuickCreate {
        friend bool operator==(const QuickCreate&, const QuickCreate&) = default;
    };

    std::variant<CreateFile, QuickCreate> kind;

    friend bool operator==(const HotKeyAction&, const HotKeyAction&) = default;
};

} // namespace blankwell
