#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace blankwell {

/// One object of what a program tells assistive technologies of its windows. Every question gives
/// nothing where no answer comes.
class Accessible {
public:
    using Children = std::vector<std::unique_ptr<Accessible>>;

    /// The roles that matter here, in AT-SPI's numbers.
    enum class Role : std::uint32_t {
        checkBox = 7,
        filler = 20,
        frame = 23,
        panel = 39,
        splitPane = 53,
        text = 61,
        toggleButton = 62,
        toolBar = 63,
        entry = 79,
    };

    /// The states that matter here, as AT-SPI's numbers of their bits.
    enum class State : std::uint8_t { checked = 4, focused = 12, showing = 25 };

    virtual ~Accessible() = default;

    /// Can be a number that `Role` has no name for.
    [[nodiscard]] virtual std::optional<Role> role() = 0;
    [[nodiscard]] virtual std::optional<std::string> name() = 0;
    [[nodiscard]] virtual std::optional<bool> is(State state) = 0;
    /// What a text field holds.
    [[nodiscard]] virtual std::optional<std::string> text() = 0;
    [[nodiscard]] virtual std::optional<Children> children() = 0;
};

} // namespace blankwell
