#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

extern "C" struct sd_bus_message;

namespace blankwell {

/// A method of an object on the bus.
struct BusMethod {
    /// The well-known or unique name of the program that is asked.
    std::string destination;
    std::string path;
    std::string interface;
    std::string member;
};

/// A call or an answer on the session bus: values are appended to the one and read from the other,
/// in order. Releases the message when it goes.
class BusMessage {
public:
    using StringLists = std::map<std::string, std::vector<std::string>>;

    /// Takes over the reference to `message`.
    explicit BusMessage(sd_bus_message* message);

    BusMessage& append(const std::string& value);
    BusMessage& append(const std::vector<std::string>& values);
    /// An array without elements, which would be of the type `contents`.
    BusMessage& appendEmptyArray(const char* contents);

    /// The next value, D-Bus type `b`; nothing, as below, if the next value is of another type.
    std::optional<bool> readBool();
    /// Type `u`.
    std::optional<std::uint32_t> readUnsigned();
    /// Type `as`.
    std::optional<std::vector<std::string>> readStrings();
    /// Type `v` holding `a{sas}`.
    std::optional<StringLists> readVariantOfStringLists();

    /// The result of what was appended: 0, or the negative `errno` value of the first failure.
    [[nodiscard]] int status() const { return status_; }

    [[nodiscard]] sd_bus_message* get() const { return message_.get(); }

private:
    struct Release {
        void operator()(sd_bus_message* message) const;
    };

    std::unique_ptr<sd_bus_message, Release> message_;
    int status_ = 0;
};

} // namespace blankwell
