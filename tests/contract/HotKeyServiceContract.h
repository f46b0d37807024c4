#pragma once

#include "platform/HotKeyService.h"
#include "settings/QuickCreateShortcut.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace blankwell {

/// What every `HotKeyService` that works does. `World` has a `service()` and a keyboard:
/// `press(keyCode, carbonModifiers)` returns when the press has arrived wherever it goes.
template <typename World>
struct HotKeyServiceContract : testing::Test {
    static constexpr std::uint32_t keyN = 45;
    static constexpr std::uint32_t keyM = 46;
    static constexpr std::uint32_t controlOption = carbon::controlKey | carbon::optionKey;

    HotKeyService& service() { return world.service(); }

    HotKeyService::HandlerReference installHandler() {
        return service()
            .installHandler([this](const HotKeyEvent& event) {
                pressed.push_back(event.hotKeyID().value());
                return noErr;
            })
            .value();
    }

    /// Takes a key with Control and Option.
    auto take(std::uint32_t keyCode, EventHotKeyID id) {
        return service().registerHotKey(keyCode, controlOption, id);
    }

    World world;
    std::vector<EventHotKeyID> pressed;
};

TYPED_TEST_SUITE_P(HotKeyServiceContract);

TYPED_TEST_P(HotKeyServiceContract, EachPressArrivesWithTheIdOfItsHotKey) {
    this->installHandler();
    ASSERT_TRUE(this->take(this->keyN, {7, 1}));
    ASSERT_TRUE(this->take(this->keyM, {7, 100}));
    this->world.press(this->keyN, this->controlOption);
    this->world.press(this->keyM, this->controlOption);
    this->world.press(this->keyN, this->controlOption);
    EXPECT_THAT(this->pressed, testing::ElementsAre(EventHotKeyID{7, 1}, EventHotKeyID{7, 100},
                                                    EventHotKeyID{7, 1}));
}

TYPED_TEST_P(HotKeyServiceContract, AnotherKeyOrOtherModifiersReachNoHandler) {
    this->installHandler();
    ASSERT_TRUE(this->take(this->keyN, {7, 1}));
    this->world.press(this->keyM, this->controlOption);
    this->world.press(this->keyN, carbon::controlKey);
    this->world.press(this->keyN, this->controlOption | carbon::shiftKey);
    EXPECT_THAT(this->pressed, testing::IsEmpty());
}

TYPED_TEST_P(HotKeyServiceContract, TheSameKeyWithOtherModifiersIsAnotherHotKey) {
    this->installHandler();
    ASSERT_TRUE(this->take(this->keyN, {7, 1}));
    ASSERT_TRUE(this->service().registerHotKey(this->keyN, carbon::cmdKey, {7, 2}));
    this->world.press(this->keyN, carbon::cmdKey);
    EXPECT_THAT(this->pressed, testing::ElementsAre(EventHotKeyID{7, 2}));
}

TYPED_TEST_P(HotKeyServiceContract, ACombinationIsTakenOnlyOnce) {
    this->installHandler();
    ASSERT_TRUE(this->take(this->keyN, {7, 1}));
    EXPECT_EQ(this->take(this->keyN, {7, 2}), std::unexpected(eventHotKeyExistsErr));
    this->world.press(this->keyN, this->controlOption);
    EXPECT_THAT(this->pressed, testing::ElementsAre(EventHotKeyID{7, 1}));
}

TYPED_TEST_P(HotKeyServiceContract, WhatIsNoKeyCannotBeTaken) {
    EXPECT_EQ(this->take(0xFFFFFFFF, {7, 1}), std::unexpected(eventHotKeyInvalidErr));
}

TYPED_TEST_P(HotKeyServiceContract, AKeyThatWasGivenBackIsFree) {
    this->installHandler();
    const auto first = this->take(this->keyN, {7, 1});
    ASSERT_TRUE(first);
    EXPECT_EQ(this->service().unregisterHotKey(*first), noErr);
    this->world.press(this->keyN, this->controlOption);
    EXPECT_THAT(this->pressed, testing::IsEmpty());

    ASSERT_TRUE(this->take(this->keyN, {7, 2}));
    this->world.press(this->keyN, this->controlOption);
    EXPECT_THAT(this->pressed, testing::ElementsAre(EventHotKeyID{7, 2}));
}

TYPED_TEST_P(HotKeyServiceContract, GivingBackTwiceTellsSo) {
    const auto reference = this->take(this->keyN, {7, 1});
    ASSERT_TRUE(reference);
    EXPECT_EQ(this->service().unregisterHotKey(*reference), noErr);
    EXPECT_EQ(this->service().unregisterHotKey(*reference), eventHotKeyInvalidErr);
}

TYPED_TEST_P(HotKeyServiceContract, ARemovedHandlerIsCalledNoMore) {
    const auto removed = this->installHandler();
    this->installHandler();
    ASSERT_TRUE(this->take(this->keyN, {7, 1}));
    this->service().removeHandler(removed);
    this->world.press(this->keyN, this->controlOption);
    EXPECT_THAT(this->pressed, testing::ElementsAre(EventHotKeyID{7, 1}));
}

REGISTER_TYPED_TEST_SUITE_P(HotKeyServiceContract, EachPressArrivesWithTheIdOfItsHotKey,
                            AnotherKeyOrOtherModifiersReachNoHandler,
                            TheSameKeyWithOtherModifiersIsAnotherHotKey,
                            ACombinationIsTakenOnlyOnce, WhatIsNoKeyCannotBeTaken,
                            AKeyThatWasGivenBackIsFree, GivingBackTwiceTellsSo,
                            ARemovedHandlerIsCalledNoMore);

} // namespace blankwell
