#include "platform/linux/DisplayProtocol.h"

#include "support/FakeSurroundings.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace blankwell {
namespace {

DisplayProtocol protocolWith(std::map<std::string, std::string, std::less<>> variables) {
    FakeEnvironment environment;
    environment.variables = std::move(variables);
    return displayProtocol(environment);
}

TEST(DisplayProtocol, AnXServerAloneIsX11) {
    EXPECT_EQ(protocolWith({{"DISPLAY", ":0"}}), DisplayProtocol::x11);
    EXPECT_EQ(protocolWith({{"DISPLAY", ":0"}, {"XDG_SESSION_TYPE", "x11"}}), DisplayProtocol::x11);
    EXPECT_EQ(protocolWith({{"DISPLAY", ":0"}, {"XDG_SESSION_TYPE", "tty"}}), DisplayProtocol::x11);
}

TEST(DisplayProtocol, AnySignOfWaylandOutdoesTheXServer) {
    EXPECT_EQ(protocolWith({{"DISPLAY", ":0"}, {"WAYLAND_DISPLAY", "wayland-0"}}),
              DisplayProtocol::wayland);
    EXPECT_EQ(protocolWith({{"DISPLAY", ":0"}, {"XDG_SESSION_TYPE", "wayland"}}),
              DisplayProtocol::wayland);
    EXPECT_EQ(
        protocolWith({{"DISPLAY", ":0"}, {"WAYLAND_DISPLAY", "w"}, {"XDG_SESSION_TYPE", "x11"}}),
        DisplayProtocol::wayland);
}

TEST(DisplayProtocol, WaylandNeedsNoXServer) {
    EXPECT_EQ(protocolWith({{"WAYLAND_DISPLAY", "wayland-1"}}), DisplayProtocol::wayland);
}

TEST(DisplayProtocol, AnEmptyVariableSaysNothing) {
    EXPECT_EQ(protocolWith({{"DISPLAY", ":0"}, {"WAYLAND_DISPLAY", ""}}), DisplayProtocol::x11);
    EXPECT_EQ(protocolWith({{"DISPLAY", ""}}), DisplayProtocol::none);
}

TEST(DisplayProtocol, WithoutADisplayThereIsNone) {
    EXPECT_EQ(protocolWith({}), DisplayProtocol::none);
    EXPECT_EQ(protocolWith({{"XDG_SESSION_TYPE", "x11"}}), DisplayProtocol::none);
}

} // namespace
} // namespace blankwell
