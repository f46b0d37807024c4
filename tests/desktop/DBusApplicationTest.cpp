#include "platform/linux/DBusApplication.h"

#include "contract/SessionApplicationContract.h"
#include "desktop/Desktop.h"
#include "desktop/PrivateBus.h"
#include "desktop/ServedApplication.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <optional>

namespace blankwell {
namespace {

using Manners = ServedApplication::Manners;
using Request = HandOverFailure::Request;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr auto name = "app.blankwell.Test-1";
constexpr DBusApplication::Patience shortly{
    .running = milliseconds(300), .starting = milliseconds(3'000), .quitting = milliseconds(300)};

/// A bus on which nothing can be started.
struct PrivateSession {
    void run() { served.emplace(name); }

    void hang() { hung.emplace(name); }

    [[nodiscard]] std::vector<std::string> received() { return served->received(); }

    PrivateBus bus;
    std::optional<ServedApplication> served;
    std::optional<HungFileManager> hung;
    DBusApplication application{name, shortly};
};

INSTANTIATE_TYPED_TEST_SUITE_P(DBus, SessionApplicationContract, PrivateSession);

struct DBusApplicationTest : testing::Test {
    /// Asks, and returns what became of the request; nothing where it was taken.
    std::optional<Request> ask() {
        const auto start = std::chrono::steady_clock::now();
        const auto taken = application.open({"x:a"});
        time = std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - start);
        if (taken) {
            return std::nullopt;
        }
        description = taken.error().description;
        return taken.error().request;
    }

    DBusApplication application{name, shortly};
    milliseconds time{};
    std::string description;
};

TEST_F(DBusApplicationTest, OneThatHangsIsWaitedForNoLongerThanTold) {
    const PrivateBus bus;
    const HungFileManager hung(name);
    EXPECT_EQ(ask(), Request::unknown);
    EXPECT_GE(time, milliseconds(290));
    EXPECT_LT(time, milliseconds(1'500));
    EXPECT_THAT(description, HasSubstr("does not answer"));
}

TEST_F(DBusApplicationTest, ABusThatHangsTakesNothing) {
    const PrivateBus bus;
    bus.hang();
    EXPECT_EQ(ask(), Request::notTaken);
    EXPECT_LT(time, milliseconds(1'500));
}

TEST_F(DBusApplicationTest, WithoutASessionBusNothingIsTaken) {
    const PrivateBus restoresTheEnvironment;
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere", 1);
    EXPECT_EQ(ask(), Request::notTaken);
    EXPECT_THAT(description, HasSubstr("The session bus cannot be reached"));
}

TEST_F(DBusApplicationTest, WhatOneThatEndsInsteadOfAnAnswerHasDoneIsUnknown) {
    const PrivateBus bus;
    const ServedApplication ending(name, Manners::ending);
    EXPECT_EQ(ask(), Request::unknown);
}

TEST_F(DBusApplicationTest, AProgramWithoutTheMethodTakesNothing) {
    const PrivateBus bus;
    const ServedApplication ignorant(name, Manners::ignorant);
    EXPECT_EQ(ask(), Request::notTaken);
}

TEST_F(DBusApplicationTest, WithoutASessionBusThereIsNoneToQuit) {
    const PrivateBus restoresTheEnvironment;
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere", 1);
    EXPECT_TRUE(application.quit());
}

TEST_F(DBusApplicationTest, OneThatKnowsNoQuittingIsToldToRunStill) {
    const PrivateBus bus;
    const ServedApplication ignorant(name, Manners::ignorant);
    EXPECT_FALSE(application.quit());
}

TEST_F(DBusApplicationTest, AUrlThatTheBusCannotCarryIsNotTaken) {
    const PrivateBus bus;
    ServedApplication served(name);
    const auto taken = application.open({"x:\xff"});
    ASSERT_FALSE(taken);
    EXPECT_EQ(taken.error().request, Request::notTaken);
    EXPECT_THAT(served.received(), ElementsAre());
}

TEST_F(DBusApplicationTest, AnApplicationThatFailsToStartHasTakenNothing) {
    const auto services = makeFolder(".local/share/dbus-1/services");
    std::ofstream(services.appending(std::string(name) + ".service").path())
        << "[D-BUS Service]\nName=" << name << "\nExec=/bin/false\n";
    outputOf({"busctl", "--user", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus",
              "org.freedesktop.DBus", "ReloadConfig"});
    EXPECT_EQ(ask(), Request::notTaken);
    EXPECT_THAT(description, HasSubstr("could not be started"));
}

} // namespace
} // namespace blankwell
