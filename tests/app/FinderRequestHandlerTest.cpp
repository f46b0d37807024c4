#include "app/FinderRequestHandler.h"

#include "support/FakeRequestHandler.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

struct FinderRequestHandlerTest : testing::Test, FakeRequestHandler {
    FinderRequestHandlerTest() {
        files.addFolder("/tmp/x");
        EXPECT_TRUE(store.saveBookmark(FileUrl("/tmp"), FileUrl("/tmp")));
    }

    /// Opens `url` and lets the main queue have its next turn.
    void open(std::string_view url) {
        handler.openUrl(url);
        mainQueue.run();
    }
};

TEST_F(FinderRequestHandlerTest, CreatesRevealsAndClosesTheWindowThatTheDeliveryBrought) {
    open("blankwellplus://create?type=md&directory=/tmp/x");
    EXPECT_EQ(files.contents("/tmp/x/Untitled.md"), "");
    EXPECT_THAT(events, ElementsAre("cannot start /tmp", "cannot start /tmp/x",
                                    "write /tmp/x/Untitled.md", "reveal /tmp/x/Untitled.md",
                                    "close windows Blankwell+", "close windows Blankwell+"));
    EXPECT_THAT(log.lines,
                ElementsAre(FakeLog::Line{LogLevel::notice, "CreateFileRequest",
                                          "Creating file from Finder request: type=md dir=/tmp/x"},
                            FakeLog::Line{LogLevel::notice, "CreateFileRequest",
                                          "Created file from Finder request: /tmp/x/Untitled.md"}));
}

TEST_F(FinderRequestHandlerTest, WindowsAreClosedAtOnceAndOnTheNextTurn) {
    handler.openUrl("blankwellplus://create?type=md&directory=/tmp/x");
    EXPECT_EQ(std::ranges::count(events, "close windows Blankwell+"), 1);
    mainQueue.run();
    EXPECT_EQ(std::ranges::count(events, "close windows Blankwell+"), 2);
}

TEST_F(FinderRequestHandlerTest, TheWindowsOfAnActiveApplicationStay) {
    application.active = true;
    open("blankwellplus://create?type=md&directory=/tmp/x");
    EXPECT_THAT(events, Contains("reveal /tmp/x/Untitled.md"));
    EXPECT_THAT(events, Not(Contains("close windows Blankwell+")));
}

TEST_F(FinderRequestHandlerTest, WasItActiveIsAskedBeforeTheRequest) {
    open("blankwellplus://create?type=exe&directory=/tmp/x");
    EXPECT_TRUE(application.active); // the alert brought it to the front
    EXPECT_THAT(events, Contains("close windows Blankwell+"));
}

TEST_F(FinderRequestHandlerTest, AForeignSchemeIsIgnored) {
    for (const auto* url : {"http://create?type=md&directory=/tmp/x",
                            "BLANKWELLPLUS://create?type=md&directory=/tmp/x", "", "create"}) {
        open(url);
    }
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(FinderRequestHandlerTest, AUrlThatAsksForNothingOnlyActivates) {
    for (const auto* url :
         {"blankwellplus://open?type=md&directory=/tmp", "blankwellplus://create?type=md",
          "blankwellplus://create?directory=/tmp", "blankwellplus://create?type=md&directory",
          "blankwellplus://create?type=md&directory=", "blankwellplus:"}) {
        events.clear();
        application.active = false;
        open(url);
        EXPECT_THAT(events, ElementsAre("activate")) << url;
    }
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(FinderRequestHandlerTest, AnUnknownTypeIsLoggedAndShown) {
    open("blankwellplus://create?type=exe&directory=/tmp/x");
    EXPECT_THAT(alert.shown,
                ElementsAre(AlertContent{
                    .style = AlertContent::Style::warning,
                    .messageText = "Could not create file",
                    .informativeText = "Blankwell+ does not know how to create this file type.",
                }));
    EXPECT_THAT(log.lines, ElementsAre(FakeLog::Line{LogLevel::error, "CreateFileRequest",
                                                     "Unknown file type requested: exe"}));
    EXPECT_EQ(events.at(0), "activate");
    EXPECT_EQ(events.at(1), "alert Could not create file");
    EXPECT_THAT(files.files, IsEmpty());
}

TEST_F(FinderRequestHandlerTest, ACancelledPanelIsShownInTheErrorsOwnWords) {
    openPanel.willCancel();
    open("blankwellplus://create?type=md&directory=/Users/u/Docs");
    constexpr auto text = "Blankwell+ needs access to Docs before it can create files there.";
    EXPECT_THAT(alert.shown, ElementsAre(AlertContent{AlertContent::Style::warning,
                                                      "Could not create file", text}));
    EXPECT_EQ(log.lines.back(), (FakeLog::Line{LogLevel::error, "CreateFileRequest",
                                               "Create request failed: " + std::string(text)}));
    EXPECT_THAT(events, Not(Contains(testing::StartsWith("reveal"))));
}

TEST_F(FinderRequestHandlerTest, AFailedWriteIsShownAndNothingIsRevealed) {
    files.failWritingWith = SystemError{SystemError::Domain::cocoa, 640, "disk full"};
    open("blankwellplus://create?type=md&directory=/tmp/x");
    EXPECT_EQ(alert.shown.at(0).informativeText, "disk full");
    EXPECT_EQ(log.lines.back().message, "Create request failed: disk full");
    EXPECT_THAT(events, Not(Contains(testing::StartsWith("reveal"))));
}

TEST_F(FinderRequestHandlerTest, TheFirstTypeCounts) {
    open("blankwellplus://create?type=csv&type=md&directory=/tmp/x");
    EXPECT_THAT(events, Contains("reveal /tmp/x/Untitled.csv"));
}

} // namespace
} // namespace blankwell
