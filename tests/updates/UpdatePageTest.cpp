#include "updates/UpdatePage.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const AppcastItem item{
    .version = "2", .shortVersion = "1.2", .description = "<p>Faster</p><p>Smaller</p>"};

UpdatePage page(const UpdateState& state) {
    return pageFor(state, "1.1");
}

std::vector<UpdateAnswer> answers(const UpdateState& state) {
    std::vector<UpdateAnswer> result;
    for (const auto& button : page(state).buttons) {
        result.push_back(button.answer);
    }
    return result;
}

TEST(UpdatePageTest, AnUpdateIsOfferedWithItsNotesAsPlainText) {
    const auto found = page(UpdateFound{item});
    EXPECT_EQ(found.text, "Blankwell+ 1.2 is available; you have 1.1. Would you like to install it "
                          "now?");
    EXPECT_EQ(found.notes, "Faster\nSmaller");
    EXPECT_TRUE(found.offersAutomaticChecks);
    EXPECT_THAT(answers(UpdateFound{item}),
                ElementsAre(UpdateAnswer::install, UpdateAnswer::close, UpdateAnswer::skipVersion));
    EXPECT_TRUE(found.buttons.front().isDefault);
}

TEST(UpdatePageTest, NotesInPlainTextStayAsTheyAre) {
    auto plain = item;
    plain.descriptionFormat = "plain-text";
    plain.description = "a < b";
    EXPECT_EQ(page(UpdateFound{plain}).notes, "a < b");
}

TEST(UpdatePageTest, NotesOnTheWebAreLinkedTo) {
    auto linked = item;
    EXPECT_EQ(page(UpdateFound{linked}).notesLink, std::nullopt);
    linked.releaseNotesLink = "https://example.org/notes?version=1.2";
    EXPECT_EQ(
        page(UpdateFound{linked}).notesLink,
        (UpdatePage::Link{"Read the Release Notes", "https://example.org/notes?version=1.2"}));
    EXPECT_EQ(page(UpdateFound{linked}).notes, "Faster\nSmaller");
    linked.description = "";
    EXPECT_EQ(page(UpdateFound{linked}).notes, "");
    EXPECT_EQ(unopenedLinkText("https://example.org"),
              "No program could open https://example.org.");
}

TEST(UpdatePageTest, AFeedLeadsNowhereButToTheWeb) {
    const auto hasLink = [](const char* address) {
        auto linked = item;
        linked.releaseNotesLink = address;
        return page(UpdateFound{linked}).notesLink.has_value();
    };
    EXPECT_TRUE(hasLink("http://example.org"));
    EXPECT_TRUE(hasLink("HTTPS://example.org/notes"));
    for (const auto* const address :
         {"file:///etc/passwd", "blankwellplus://create?type=md&directory=/", "notes.html",
          "https:notes.html", "https://", "httpss://example.org", "mailto:a@example.org",
          "//example.org/notes", "https://example.org/?%zz"}) {
        EXPECT_FALSE(hasLink(address)) << address;
    }
}

TEST(UpdatePageTest, ACriticalUpdateSaysSoAndCannotBeSkipped) {
    EXPECT_THAT(page(UpdateFound{item, true}).text, HasSubstr("important for your security"));
    EXPECT_THAT(answers(UpdateFound{item, true}),
                ElementsAre(UpdateAnswer::install, UpdateAnswer::close));
}

TEST(UpdatePageTest, ADownloadTellsHowFarAndHowFast) {
    const auto progress =
        page(DownloadingUpdate{item, {12'300'000, 49'200'000, 2'100'000}}).progress;
    EXPECT_EQ(progress->fraction, 0.25);
    EXPECT_EQ(progress->text, "12.3 MB of 49.2 MB (2.1 MB per second)");
    EXPECT_EQ(page(DownloadingUpdate{item, {0, 49'200'000, 0}}).progress->text,
              "0.0 MB of 49.2 MB");
    EXPECT_THAT(answers(DownloadingUpdate{item, {}}), ElementsAre(UpdateAnswer::close));
}

TEST(UpdatePageTest, WhatTakesUnknownTimeHasProgressWithoutAFraction) {
    for (const UpdateState& state :
         {UpdateState(CheckingForUpdate{}), UpdateState(InstallingUpdate{item})}) {
        ASSERT_TRUE(page(state).progress);
        EXPECT_EQ(page(state).progress->fraction, std::nullopt);
        EXPECT_THAT(answers(state), ElementsAre(UpdateAnswer::close));
    }
}

TEST(UpdatePageTest, AnInstalledUpdateAsksWhetherToRelaunch) {
    EXPECT_EQ(page(UpdateReady{item}).title, "Blankwell+ 1.2 is installed");
    EXPECT_THAT(answers(UpdateReady{item}),
                ElementsAre(UpdateAnswer::relaunch, UpdateAnswer::close));
}

TEST(UpdatePageTest, AFailureSaysWhyAndCanBeTriedAgain) {
    EXPECT_EQ(page(UpdateFailed{"No server."}).text, "No server.");
    EXPECT_THAT(answers(UpdateFailed{""}),
                ElementsAre(UpdateAnswer::tryAgain, UpdateAnswer::close));
}

TEST(UpdatePageTest, OtherEndsOnlyNeedToBeTakenNoteOf) {
    EXPECT_EQ(page(NoUpdateFound{}).text, "Blankwell+ 1.1 is the newest version.");
    EXPECT_TRUE(page(NoUpdateFound{}).offersAutomaticChecks);
    EXPECT_THAT(answers(NoUpdateFound{}), ElementsAre(UpdateAnswer::close));
    EXPECT_EQ(page(UpdatedElsewhere{"By others."}).text, "By others.");
    EXPECT_THAT(answers(UpdatedElsewhere{""}), ElementsAre(UpdateAnswer::close));
}

} // namespace
} // namespace blankwell
