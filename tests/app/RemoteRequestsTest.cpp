#include "app/RemoteRequests.h"

#include "support/FakeApplicationPresence.h"
#include "support/FakeCreationController.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace blankwell {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

struct RemoteRequestsTest : testing::Test, FakeCreationController {
    RemoteRequestsTest() {
        // What starts with the handler is the application in front: it closes no windows.
        application.active = true;
    }

    /// The paths of the files that were created and shown.
    std::vector<std::string> revealed() const {
        std::vector<std::string> paths;
        for (const auto& event : events) {
            if (event.starts_with("reveal ")) {
                paths.push_back(event.substr(7));
            }
        }
        return paths;
    }

    FakeApplicationPresence presence{events};
    RemoteRequests requests{{
        .creation = controller,
        .requestHandler = handler,
        .presence = presence,
        .mainQueue = mainQueue,
        .log = log,
    }};
};

TEST_F(RemoteRequestsTest, NothingIsDoneInsideTheCall) {
    requests.activate();
    requests.open({"blankwellplus://create?type=md&directory=/Users/u/Desktop"});
    requests.activateAction("quick-create");
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(RemoteRequestsTest, ActivatingBringsUpTheMainWindow) {
    windows.titles.insert("Blankwell+");
    requests.activate();
    mainQueue.run();
    EXPECT_THAT(events, ElementsAre("front Blankwell+", "activate"));
}

TEST_F(RemoteRequestsTest, EveryOpenedUrlIsServedOnceInItsOrder) {
    requests.open({"blankwellplus://create?type=md&directory=/Users/u/Desktop",
                   "https://example.org",
                   "blankwellplus://create?type=txt&directory=/Users/u/Desktop"});
    mainQueue.run();
    EXPECT_THAT(revealed(),
                ElementsAre("/Users/u/Desktop/Untitled.md", "/Users/u/Desktop/Untitled.txt"));
}

TEST_F(RemoteRequestsTest, TheQuickCreateActionShowsThePanel) {
    requests.activateAction("quick-create");
    mainQueue.run();
    EXPECT_THAT(events, ElementsAre("place panel", "show panel", "activate"));
}

TEST_F(RemoteRequestsTest, ACreateActionCreatesAFileOfItsType) {
    requests.activateAction("create-json");
    mainQueue.run();
    EXPECT_THAT(revealed(), ElementsAre("/Users/u/Desktop/Untitled.json"));
}

TEST_F(RemoteRequestsTest, ACreateActionOfAnUnknownTypeIsLoggedAndCreatesNothing) {
    requests.activateAction("create-exe");
    mainQueue.run();
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(log.lines, Contains(FakeLog::Line{LogLevel::error, "DesktopCreation",
                                                  "Unknown file type shortcut requested: exe"}));
}

TEST_F(RemoteRequestsTest, TheQuitActionEndsTheApplicationAfterWhatWasAskedBefore) {
    requests.activateAction("create-json");
    requests.activateAction("quit");
    EXPECT_THAT(events, IsEmpty());
    mainQueue.run();
    EXPECT_THAT(revealed(), ElementsAre("/Users/u/Desktop/Untitled.json"));
    EXPECT_EQ(events.back(), "terminate");
}

TEST_F(RemoteRequestsTest, AnUnknownActionIsLoggedAndDoesNothing) {
    requests.activateAction("erase");
    mainQueue.run();
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(log.lines, ElementsAre(FakeLog::Line{LogLevel::error, "RemoteRequest",
                                                     "Unknown action requested: erase"}));
}

} // namespace
} // namespace blankwell
