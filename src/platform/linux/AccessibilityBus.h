#pragma once

#include "platform/linux/Accessible.h"
#include "platform/linux/Deadline.h"
#include "platform/linux/SessionBus.h"

#include <cstdint>
#include <optional>
#include <string>

namespace blankwell {

/// The bus on which programs describe their windows to assistive technologies, asked until a
/// deadline. Nothing is started for it.
class AccessibilityBus {
public:
    /// Nothing where accessibility is off. `deadline` must outlive the result.
    [[nodiscard]] static std::optional<AccessibilityBus> connect(const Deadline& deadline);

    /// The windows titled `title` of the program with this process id. They must not outlive this
    /// object. Nothing where an answer is missing.
    [[nodiscard]] std::optional<Accessible::Children> windows(std::uint32_t processId,
                                                              const std::string& title);

private:
    AccessibilityBus(SessionBus bus, const Deadline& deadline)
        : bus_(std::move(bus)), deadline_(deadline) {}

    SessionBus bus_;
    const Deadline& deadline_;
};

} // namespace blankwell
