#include "platform/linux/SessionAddress.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace blankwell {
namespace {

using namespace std::string_literals;

TEST(SessionAddressTest, IsReadFromTheEnvironment) {
    EXPECT_EQ(SessionAddress::parse("A=1\0DISPLAY=:7\0XDISPLAY=no\0WAYLAND_DISPLAY=wayland-1\0"
                                    "DBUS_SESSION_BUS_ADDRESS=unix:path=/b\0"s),
              (SessionAddress{"unix:path=/b", ":7", "wayland-1"}));
}

TEST(SessionAddressTest, TheBussIdAndTheScreenDoNotMatter) {
    EXPECT_EQ(SessionAddress::parse("DBUS_SESSION_BUS_ADDRESS=unix:path=/b,guid=12\0"
                                    "DISPLAY=my.host:7.1"s),
              (SessionAddress{"unix:path=/b", "my.host:7", ""}));
}

TEST(SessionAddressTest, WithoutAnAddressTheBusIsInTheRuntimeFolder) {
    EXPECT_EQ(SessionAddress::parse("XDG_RUNTIME_DIR=/run/user/7\0"s).bus,
              "unix:path=/run/user/7/bus");
    EXPECT_EQ(SessionAddress::parse("").bus, "");
    EXPECT_EQ(SessionAddress::parse("\0\0"s).bus, "");
}

TEST(SessionAddressTest, TheOwnIsThatOfTheEnvironmentNow) {
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/now", 1);
    EXPECT_EQ(SessionAddress::own().bus, "unix:path=/now");
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

TEST(SessionAddressTest, OneSessionHasOneBusAndNoContradictingDisplays) {
    const SessionAddress own{"bus", ":1", ""};
    EXPECT_TRUE(own.isSameSession({"bus", ":1", ""}));
    EXPECT_TRUE(own.isSameSession({"bus", "", "wayland-0"}));
    EXPECT_FALSE(own.isSameSession({"bus", ":2", ""}));
    EXPECT_FALSE(own.isSameSession({"other", ":1", ""}));
    EXPECT_FALSE(own.isSameSession({"", ":1", ""}));
    EXPECT_FALSE(SessionAddress{}.isSameSession({}));
    EXPECT_FALSE((SessionAddress{"bus", "", "wayland-0"}).isSameSession({"bus", "", "wayland-1"}));
}

} // namespace
} // namespace blankwell
