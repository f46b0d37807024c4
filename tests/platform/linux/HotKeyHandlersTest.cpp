#include "platform/linux/HotKeyHandlers.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace blankwell {
namespace {

using testing::ElementsAre;

struct HotKeyHandlersTest : testing::Test {
    /// A handler that notes that it was called.
    HotKeyHandlers::Reference installNoting(std::string name) {
        return handlers.install([this, name](const HotKeyEvent&) {
            called.push_back(name);
            return noErr;
        });
    }

    void press() { handlers.call({.signature = 1, .id = 2}); }

    HotKeyHandlers handlers;
    std::vector<std::string> called;
};

TEST_F(HotKeyHandlersTest, EachIsToldWhichKeyWasPressed) {
    std::vector<std::uint32_t> ids;
    handlers.install([&](const HotKeyEvent& event) {
        ids.push_back(event.hotKeyID()->id);
        return noErr;
    });
    installNoting("second");
    press();
    EXPECT_THAT(ids, ElementsAre(2U));
    EXPECT_THAT(called, ElementsAre("second"));
}

TEST_F(HotKeyHandlersTest, OneThatAnotherRemovesDuringThePressIsNotCalled) {
    HotKeyHandlers::Reference second{};
    handlers.install([&](const HotKeyEvent&) {
        handlers.remove(second);
        return noErr;
    });
    second = installNoting("second");
    installNoting("third");
    press();
    EXPECT_THAT(called, ElementsAre("third"));
}

TEST_F(HotKeyHandlersTest, OneThatRemovesItselfIsCalledOnce) {
    HotKeyHandlers::Reference own{};
    own = handlers.install([&](const HotKeyEvent&) {
        handlers.remove(own);
        called.emplace_back("own");
        return noErr;
    });
    press();
    press();
    EXPECT_THAT(called, ElementsAre("own"));
}

TEST_F(HotKeyHandlersTest, OneThatIsInstalledDuringThePressHearsOfTheNext) {
    handlers.install([&](const HotKeyEvent&) {
        if (called.empty()) {
            called.emplace_back("first");
            installNoting("new");
        }
        return noErr;
    });
    press();
    EXPECT_THAT(called, ElementsAre("first"));
    press();
    EXPECT_THAT(called, ElementsAre("first", "new"));
}

} // namespace
} // namespace blankwell
