#include "platform/linux/AccessibilityBus.h"

#include <systemd/sd-bus.h>

#include <array>
#include <utility>

namespace blankwell {
namespace {

constexpr auto accessibleInterface = "org.a11y.atspi.Accessible";

/// An object on the bus, asked until a deadline.
class BusAccessible : public Accessible {
public:
    using Reference = std::pair<std::string, std::string>;

    BusAccessible(SessionBus& bus, const Deadline& deadline, std::string program, std::string path)
        : bus_(bus), deadline_(deadline), program_(std::move(program)), path_(std::move(path)) {}

    /// The children by the names of their programs on the bus and their paths.
    std::optional<std::vector<Reference>> programsAndPaths() {
        auto answer = ask(accessibleInterface, "GetChildren");
        if (!answer ||
            sd_bus_message_enter_container(answer->get(), SD_BUS_TYPE_ARRAY, "(so)") <= 0) {
            return std::nullopt;
        }
        std::vector<Reference> references;
        const char* program = nullptr;
        const char* path = nullptr;
        while (sd_bus_message_read(answer->get(), "(so)", &program, &path) > 0) {
            references.emplace_back(program, path);
        }
        return references;
    }

    std::optional<Role> role() override {
        auto answer = ask(accessibleInterface, "GetRole");
        std::uint32_t role = 0;
        if (!answer || sd_bus_message_read_basic(answer->get(), SD_BUS_TYPE_UINT32, &role) <= 0) {
            return std::nullopt;
        }
        return static_cast<Role>(role);
    }

    std::optional<std::string> name() override {
        auto request = makeRequest("org.freedesktop.DBus.Properties", "Get");
        if (!request) {
            return std::nullopt;
        }
        request->append(accessibleInterface).append("Name");
        auto answer = bus_.call(*request, deadline_);
        if (!answer ||
            sd_bus_message_enter_container(answer->get(), SD_BUS_TYPE_VARIANT, "s") <= 0) {
            return std::nullopt;
        }
        return readText(*answer);
    }

    std::optional<bool> is(State state) override {
        if (!states_) {
            states_ = readStates();
        }
        return states_ ? std::optional(((*states_ >> static_cast<unsigned>(state)) & 1U) != 0)
                       : std::nullopt;
    }

    std::optional<std::string> text() override {
        auto request = makeRequest("org.a11y.atspi.Text", "GetText");
        if (!request) {
            return std::nullopt;
        }
        constexpr std::int32_t begin = 0;
        constexpr std::int32_t end = -1;
        sd_bus_message_append_basic(request->get(), SD_BUS_TYPE_INT32, &begin);
        sd_bus_message_append_basic(request->get(), SD_BUS_TYPE_INT32, &end);
        auto answer = bus_.call(*request, deadline_);
        return answer ? readText(*answer) : std::nullopt;
    }

    std::optional<Children> children() override {
        auto objects = programsAndPaths();
        if (!objects) {
            return std::nullopt;
        }
        Children children;
        for (auto& [program, path] : *objects) {
            children.push_back(std::make_unique<BusAccessible>(bus_, deadline_, std::move(program),
                                                               std::move(path)));
        }
        return children;
    }

private:
    [[nodiscard]] std::expected<BusMessage, SystemError> makeRequest(const char* interface,
                                                                     const char* member) const {
        return bus_.request(
            {.destination = program_, .path = path_, .interface = interface, .member = member});
    }

    std::optional<BusMessage> ask(const char* interface, const char* member) {
        const auto request = makeRequest(interface, member);
        auto answer = request ? bus_.call(*request, deadline_) : std::unexpected(request.error());
        return answer ? std::optional(*std::move(answer)) : std::nullopt;
    }

    static std::optional<std::string> readText(BusMessage& answer) {
        const char* value = nullptr;
        if (sd_bus_message_read_basic(answer.get(), SD_BUS_TYPE_STRING,
                                      static_cast<void*>(&value)) <= 0) {
            return std::nullopt;
        }
        return value;
    }

    /// All states in one number.
    std::optional<std::uint64_t> readStates() {
        auto answer = ask(accessibleInterface, "GetState");
        const void* words = nullptr;
        std::size_t size = 0;
        if (!answer ||
            sd_bus_message_read_array(answer->get(), SD_BUS_TYPE_UINT32, &words, &size) <= 0) {
            return std::nullopt;
        }
        const auto* const bits = static_cast<const std::uint32_t*>(words);
        return size < sizeof(std::uint32_t) ? std::nullopt : std::optional<std::uint64_t>(bits[0]);
    }

    SessionBus& bus_;
    const Deadline& deadline_;
    std::string program_;
    std::string path_;
    std::optional<std::uint64_t> states_;
};

std::optional<std::string> busAddress(const Deadline& deadline) {
    auto bus = SessionBus::connect(deadline);
    auto request = bus ? bus->request({.destination = "org.a11y.Bus",
                                       .path = "/org/a11y/bus",
                                       .interface = "org.a11y.Bus",
                                       .member = "GetAddress"})
                       : std::unexpected(bus.error());
    auto answer = request ? bus->call(*request, deadline) : std::unexpected(request.error());
    const char* address = nullptr;
    if (!answer || sd_bus_message_read_basic(answer->get(), SD_BUS_TYPE_STRING,
                                             static_cast<void*>(&address)) <= 0) {
        return std::nullopt;
    }
    return address;
}

} // namespace

std::optional<AccessibilityBus> AccessibilityBus::connect(const Deadline& deadline) {
    const auto address = busAddress(deadline);
    if (!address) {
        return std::nullopt;
    }
    auto bus = SessionBus::connectTo(*address, deadline);
    return bus ? std::optional(AccessibilityBus(*std::move(bus), deadline)) : std::nullopt;
}

std::optional<Accessible::Children> AccessibilityBus::windows(std::uint32_t processId,
                                                              const std::string& title) {
    BusAccessible registry(bus_, deadline_, "org.a11y.atspi.Registry",
                           "/org/a11y/atspi/accessible/root");
    const auto programs = registry.programsAndPaths();
    if (!programs || processId == 0) {
        return std::nullopt;
    }
    Accessible::Children titled;
    for (const auto& program : *programs) {
        if (bus_.processOf(program.first, deadline_) != processId) {
            continue;
        }
        auto windows = BusAccessible(bus_, deadline_, program.first, program.second).children();
        if (!windows) {
            return std::nullopt;
        }
        for (auto& window : *windows) {
            const auto windowName = window->name();
            if (!windowName) {
                return std::nullopt;
            }
            if (*windowName == title) {
                titled.push_back(std::move(window));
            }
        }
    }
    return titled;
}

} // namespace blankwell
