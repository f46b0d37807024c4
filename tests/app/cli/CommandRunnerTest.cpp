#include "app/cli/CommandRunner.h"

#include "app/Version.h"
#include "support/FakeInstallation.h"
#include "support/FakeLoginItem.h"
#include "support/FakeRequestHandler.h"
#include "support/FakeSessionApplication.h"
#include "support/FakeUninstallation.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace blankwell::cli {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto request = "blankwellplus://create?type=md&directory=/front";

struct CommandRunnerTest : testing::Test, FakeRequestHandler {
    CommandRunnerTest() {
        files.addFolder("/Users/u/work");
        files.addFolder("/Users/u/Desktop");
        files.addFolder("/front");
        environment.variables.clear();
    }

    void letNoApplicationRun() {
        sessionApplication.failWith = {HandOverFailure::Request::notTaken, "It does not run."};
    }

    FakeFrontFolder frontFolder;
    FakeSessionApplication sessionApplication;
    FakeLoginItem loginItem;
    FakeInstallation installation;
    FakeUninstallation uninstallation;
    CreationDestination destination{account, folders, frontFolder};
    CommandRunner runner{{
        .folderAccess = access,
        .store = store,
        .destination = destination,
        .requestHandler = handler,
        .application = sessionApplication,
        .loginItem = loginItem,
        .installation = installation,
        .uninstallation = uninstallation,
        .currentFolder = FileUrl("/Users/u/work"),
    }};
};

TEST_F(CommandRunnerTest, CreatePrintsThePathAndNothingElse) {
    EXPECT_EQ(runner.run(CreateCommand{"md"}), (Outcome{.output = "/Users/u/work/Untitled.md\n"}));
    EXPECT_EQ(runner.run(CreateCommand{"md"}),
              (Outcome{.output = "/Users/u/work/Untitled 2.md\n"}));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(CommandRunnerTest, CreateTakesAFolderAbsoluteOrFromHere) {
    EXPECT_EQ(runner.run(CreateCommand{"md", "/front/"}).output, "/front/Untitled.md\n");
    EXPECT_EQ(runner.run(CreateCommand{"md", "../Desktop"}).output,
              "/Users/u/Desktop/Untitled.md\n");
    EXPECT_EQ(runner.run(CreateCommand{"md", "."}).output, "/Users/u/work/Untitled.md\n");
}

TEST_F(CommandRunnerTest, CreateTakesTheDestinations) {
    EXPECT_EQ(runner.run(CreateCommand{"md", CreationDestinationMode::desktop}).output,
              "/Users/u/Desktop/Untitled.md\n");
    frontFolder.answer = "/front";
    EXPECT_EQ(runner.run(CreateCommand{"md", CreationDestinationMode::frontFinderFolder}).output,
              "/front/Untitled.md\n");
    frontFolder.answer.reset();
    EXPECT_EQ(runner.run(CreateCommand{"md", CreationDestinationMode::frontFinderFolder}).output,
              "/Users/u/Desktop/Untitled 2.md\n");
}

TEST_F(CommandRunnerTest, CreateNeverAsksForAFolder) {
    environment.variables["APP_SANDBOX_CONTAINER_ID"] = "x";
    EXPECT_EQ(runner.run(CreateCommand{"md"}),
              (Outcome{.status = Outcome::failed,
                       .errors = "Blankwell+ does not have saved access to work.\n"}));
    EXPECT_THAT(openPanel.shown, IsEmpty());
}

TEST_F(CommandRunnerTest, AFailureIsItsDescriptionExactly) {
    files.failWritingWith = SystemError{SystemError::Domain::cocoa, 640, "The disk is full."};
    EXPECT_EQ(runner.run(CreateCommand{"md"}),
              (Outcome{.status = Outcome::failed, .errors = "The disk is full.\n"}));
}

TEST_F(CommandRunnerTest, AnUnknownTypeIsWrongUsage) {
    const auto outcome = runner.run(CreateCommand{"exe"});
    EXPECT_EQ(outcome.status, Outcome::wrongUsage);
    EXPECT_EQ(outcome.errors, "blankwell: no file type 'exe'; 'blankwell types' lists them\n");
}

TEST_F(CommandRunnerTest, CreateIsNeverHandedOver) {
    EXPECT_EQ(runner.run(CreateCommand{"md"}).output, "/Users/u/work/Untitled.md\n");
    EXPECT_THAT(sessionApplication.taken, IsEmpty());
}

TEST_F(CommandRunnerTest, OpenHandsTheRequestOverAndDoesNothingItself) {
    EXPECT_EQ(runner.run(OpenCommand{request}), Outcome{});
    EXPECT_THAT(sessionApplication.taken, ElementsAre("open " + std::string(request)));
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(files.contents("/front/Untitled.md"), "(none)");
}

TEST_F(CommandRunnerTest, OpenCreatesNothingWhereTheApplicationMayDoItYet) {
    sessionApplication.failWith = {HandOverFailure::Request::unknown, "It does not answer."};
    EXPECT_EQ(runner.run(OpenCommand{request}),
              (Outcome{.status = Outcome::failed, .errors = "It does not answer.\n"}));
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(files.contents("/front/Untitled.md"), "(none)");
}

TEST_F(CommandRunnerTest, OpenHandlesTheRequestItselfWhereNoApplicationCan) {
    letNoApplicationRun();
    EXPECT_EQ(runner.run(OpenCommand{request}), Outcome{});
    EXPECT_EQ(files.contents("/front/Untitled.md"), "");
    EXPECT_THAT(events, testing::Contains("reveal /front/Untitled.md"));
}

TEST_F(CommandRunnerTest, OpenTellsOfAnUnknownTypeHereWhetherOrNotTheApplicationRuns) {
    for (const bool runs : {true, false}) {
        if (!runs) {
            letNoApplicationRun();
        }
        EXPECT_EQ(runner.run(OpenCommand{"blankwellplus://create?type=exe&directory=/front"}),
                  Outcome{});
    }
    EXPECT_EQ(alert.shown.size(), 2U);
    EXPECT_THAT(sessionApplication.taken, IsEmpty());
}

TEST_F(CommandRunnerTest, OpenMakesTheRequestOfATypeAndAFolder) {
    EXPECT_EQ(runner.run(RequestCommand{"md", "/a b/%41&c=d#é"}), Outcome{});
    EXPECT_EQ(runner.run(RequestCommand{"md", "sub"}), Outcome{});
    EXPECT_EQ(runner.run(RequestCommand{"md", "file:///a%20b"}), Outcome{});
    EXPECT_THAT(
        sessionApplication.taken,
        ElementsAre("open blankwellplus://create?type=md&directory=/a%20b/%2541%26c%3Dd%23%C3%A9",
                    "open blankwellplus://create?type=md&directory=/Users/u/work/sub",
                    "open blankwellplus://create?type=md&directory=/a%20b"));
}

TEST_F(CommandRunnerTest, OpenTellsOfWhatCannotBeRequested) {
    EXPECT_EQ(runner.run(RequestCommand{"exe", "/front"}).status, Outcome::wrongUsage);
    EXPECT_EQ(runner.run(RequestCommand{"md", "/a/\xff"}),
              (Outcome{.status = Outcome::failed,
                       .errors = "A request cannot name \"\xff\", which is not UTF-8.\n"}));
    EXPECT_THAT(sessionApplication.taken, IsEmpty());
}

TEST_F(CommandRunnerTest, InstallPrintsWhereTheBundleIs) {
    EXPECT_EQ(runner.run(InstallCommand{}).output, "/Users/u/Applications/Blankwell+.app\n");
    EXPECT_EQ(runner.run(InstallCommand{"sub"}).output, "/Users/u/work/sub/Blankwell+.app\n");
}

TEST_F(CommandRunnerTest, UnregisterTakesEverythingBack) {
    EXPECT_EQ(runner.run(UnregisterCommand{}), Outcome{});
    EXPECT_TRUE(installation.isUnregistered);
}

TEST_F(CommandRunnerTest, MenusListsTheFileManagers) {
    EXPECT_EQ(runner.run(MenusCommand{}).output, "nautilus    not installed\n"
                                                 "dolphin     on\n"
                                                 "thunar      off\n"
                                                 "nemo        not installed\n"
                                                 "caja        not installed\n"
                                                 "pcmanfm-qt  not installed\n");
}

TEST_F(CommandRunnerTest, MenusTurnsThoseThatAreNamed) {
    using enum MenusCommand::Change;
    EXPECT_EQ(runner.run(MenusCommand{off, {"dolphin"}}), Outcome{});
    EXPECT_THAT(installation.turned, ElementsAre(std::pair(FileManager::dolphin, false)));
    EXPECT_EQ(runner.run(MenusCommand{on, {"dolphin", "explorer"}}).status, Outcome::wrongUsage);
    EXPECT_EQ(installation.turned.size(), 1U);
}

TEST_F(CommandRunnerTest, MenusWithoutNamesTurnsOnWhatCanBeAndOffEverything) {
    using enum MenusCommand::Change;
    EXPECT_EQ(runner.run(MenusCommand{on, {}}), Outcome{});
    EXPECT_THAT(installation.turned, ElementsAre(std::pair(FileManager::dolphin, true),
                                                 std::pair(FileManager::thunar, true)));
    EXPECT_EQ(runner.run(MenusCommand{off, {}}), Outcome{});
    EXPECT_EQ(installation.turned.size(), 8U);
}

TEST_F(CommandRunnerTest, AnInstallationThatFailsIsTold) {
    installation.failWith = SystemError{SystemError::Domain::posix, 28, "The disk is full."};
    const Outcome full{.status = Outcome::failed, .errors = "The disk is full.\n"};
    EXPECT_EQ(runner.run(InstallCommand{}), full);
    EXPECT_EQ(runner.run(UnregisterCommand{}), full);
    EXPECT_EQ(runner.run(MenusCommand{MenusCommand::Change::on, {"thunar"}}), full);
}

TEST_F(CommandRunnerTest, QuickCreateAsksForThePanel) {
    EXPECT_EQ(runner.run(QuickCreateCommand{}), Outcome{});
    EXPECT_THAT(sessionApplication.taken, ElementsAre("action quick-create"));
}

TEST_F(CommandRunnerTest, QuickCreateWithoutAnApplicationFails) {
    letNoApplicationRun();
    EXPECT_EQ(runner.run(QuickCreateCommand{}),
              (Outcome{.status = Outcome::failed, .errors = "It does not run.\n"}));
}

TEST_F(CommandRunnerTest, OpenRefusesWhatIsNoRequest) {
    for (const auto* url : {"http://create?type=md&directory=/front", "blankwellplus://create",
                            "Blankwellplus://create?type=md&directory=/front"}) {
        EXPECT_EQ(runner.run(OpenCommand{url}),
                  (Outcome{.status = Outcome::wrongUsage,
                           .errors = "blankwell: not a request URL: " + std::string(url) + "\n"}));
    }
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(sessionApplication.taken, IsEmpty());
}

TEST_F(CommandRunnerTest, AutostartTellsAndTurns) {
    using Change = AutostartCommand::Change;
    EXPECT_EQ(runner.run(AutostartCommand{}), (Outcome{.output = "off\n"}));
    EXPECT_EQ(runner.run(AutostartCommand{Change::on}), Outcome{});
    EXPECT_TRUE(loginItem.on);
    EXPECT_EQ(runner.run(AutostartCommand{}), (Outcome{.output = "on\n"}));
    EXPECT_EQ(runner.run(AutostartCommand{Change::off}), Outcome{});
    EXPECT_FALSE(loginItem.on);
}

TEST_F(CommandRunnerTest, AutostartTellsItsFailures) {
    using Change = AutostartCommand::Change;
    loginItem.failWith = SystemError{SystemError::Domain::posix, 13, "Not allowed."};
    const Outcome failed{.status = Outcome::failed, .errors = "Not allowed.\n"};
    for (const auto& command :
         {AutostartCommand{}, AutostartCommand{Change::on}, AutostartCommand{Change::off}}) {
        EXPECT_EQ(runner.run(command), failed);
    }
}

TEST_F(CommandRunnerTest, UninstallTellsHowItEnded) {
    using enum Uninstallation::Consent;
    using enum Uninstallation::Ending;
    EXPECT_EQ(runner.run(UninstallCommand{}), Outcome{});
    EXPECT_EQ(runner.run(UninstallCommand{.isConfirmed = true}), Outcome{});
    EXPECT_THAT(uninstallation.consents, ElementsAre(wanted, given));
    uninstallation.ending = declined;
    EXPECT_EQ(runner.run(UninstallCommand{}),
              (Outcome{.status = Outcome::failed, .errors = "Nothing was removed.\n"}));
    uninstallation.ending = Uninstallation::Ending::failed; // which an alert has told
    EXPECT_EQ(runner.run(UninstallCommand{}), (Outcome{.status = Outcome::failed}));
    uninstallation.refuseWith = SystemError{SystemError::Domain::posix, 1, "Others remove it."};
    EXPECT_EQ(runner.run(UninstallCommand{}),
              (Outcome{.status = Outcome::failed, .errors = "Others remove it.\n"}));
}

TEST_F(CommandRunnerTest, TypesListsTheCatalogInOrder) {
    const auto text = runner.run(TypesCommand{}).output;
    EXPECT_TRUE(text.starts_with("txt    txt    Text                      Plain Text\n"
                                 "md     md     Markdown                  Plain Text\n"));
    EXPECT_TRUE(text.ends_with("pptx   pptx   PowerPoint Presentation   Office\n"));
    EXPECT_EQ(std::ranges::count(text, '\n'), 16);

    const auto json = nlohmann::json::parse(runner.run(TypesCommand{ListFormat::json}).output);
    EXPECT_EQ(json.size(), 16U);
    EXPECT_EQ(json[11]["id"], "py");
    EXPECT_EQ(json[11]["category"], "Code");
}

TEST_F(CommandRunnerTest, FoldersAreAddedListedAndForgotten) {
    EXPECT_EQ(runner.run(AddFolderCommand{"/Users/u/b 10/"}), Outcome{});
    EXPECT_EQ(runner.run(AddFolderCommand{"../b 2"}), Outcome{});
    EXPECT_EQ(runner.run(FoldersCommand{}).output, "/Users/u/b 2\n/Users/u/b 10\n");
    EXPECT_EQ(nlohmann::json::parse(runner.run(FoldersCommand{ListFormat::json}).output),
              nlohmann::json({"/Users/u/b 2", "/Users/u/b 10"}));

    EXPECT_EQ(runner.run(ForgetFolderCommand{"/Users/u/b 2"}), Outcome{});
    EXPECT_EQ(runner.run(FoldersCommand{}).output, "/Users/u/b 10\n");
}

TEST_F(CommandRunnerTest, NoFoldersAreAnEmptyList) {
    EXPECT_EQ(runner.run(FoldersCommand{}), Outcome{});
    EXPECT_EQ(runner.run(FoldersCommand{ListFormat::json}).output, "[]\n");
}

TEST_F(CommandRunnerTest, AFolderThatCannotBeSavedIsAFailure) {
    bookmarks.failFor.insert("/gone");
    EXPECT_EQ(runner.run(AddFolderCommand{"/gone"}),
              (Outcome{.status = Outcome::failed, .errors = "no bookmark of /gone\n"}));
    domains.group.failWith = SystemError{SystemError::Domain::cocoa, 640, "The disk is full."};
    EXPECT_EQ(runner.run(ForgetFolderCommand{"/gone"}),
              (Outcome{.status = Outcome::failed, .errors = "The disk is full.\n"}));
}

TEST_F(CommandRunnerTest, APathThatIsNotUtf8IsListedAllTheSame) {
    EXPECT_EQ(runner.run(AddFolderCommand{"/x\xFF"}), Outcome{});
    EXPECT_EQ(runner.run(FoldersCommand{}).output, "/x\xFF\n");
    EXPECT_EQ(runner.run(FoldersCommand{ListFormat::json}).output, "[\n  \"/x\xEF\xBF\xBD\"\n]\n");
}

TEST_F(CommandRunnerTest, HelpNamesEveryCommandAndVersionTheVersion) {
    const auto help = runner.run(HelpCommand{}).output;
    for (const auto* command : {"create TYPE", "open URL", "types [--json]", "folders [--json]",
                                "folders add", "folders forget", "--version", "--help"}) {
        EXPECT_THAT(help, testing::HasSubstr(command));
    }
    EXPECT_EQ(runner.run(VersionCommand{}).output, "blankwell " + std::string(version) + "\n");
}

} // namespace
} // namespace blankwell::cli
