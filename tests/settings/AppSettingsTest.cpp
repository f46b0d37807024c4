#include "settings/AppSettings.h"

#include "filetypes/FileTypeCatalog.h"
#include "support/FakeLog.h"
#include "support/FakeUserDefaults.h"

#include <gmock/gmock.h>

#include <memory>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;
using Strings = std::vector<std::string>;

constexpr QuickCreateShortcut commandJ{38, 0x100};
constexpr QuickCreateShortcut commandK{40, 0x100};

Bytes data(std::string_view text) {
    const auto bytes = bytesOf(text);
    return {bytes.begin(), bytes.end()};
}

Strings orderStartingWith(Strings order) {
    for (const auto& id : FileTypeCatalog::defaultOrder()) {
        if (std::ranges::find(order, id) == order.end()) {
            order.push_back(id);
        }
    }
    return order;
}

struct AppSettingsTest : testing::Test {
    /// Settings of a process that starts now.
    AppSettings& load() {
        settings = std::make_unique<AppSettings>(defaults, log);
        return *settings;
    }

    /// Settings of a process that started some time ago, in a domain that is as it left it.
    AppSettings& loadAndForgetWrites() {
        load();
        defaults.written.clear();
        return *settings;
    }

    void store(std::string_view key, PropertyValue value) {
        defaults.values.insert_or_assign(std::string(key), std::move(value));
    }

    template <typename Form>
    std::optional<Form> stored(std::string_view key) const {
        return defaults.read<Form>(key);
    }

    FakeUserDefaults defaults;
    FakeLog log;
    std::unique_ptr<AppSettings> settings;
};

TEST_F(AppSettingsTest, AnEmptyDomainYieldsTheDefaultsAndThenHoldsThePresenceAlone) {
    load();
    EXPECT_EQ(settings->enabledFileTypeIDs.get(), FileTypeCatalog::defaultEnabledIDs());
    EXPECT_EQ(settings->fileTypeOrder.get(), FileTypeCatalog::defaultOrder());
    EXPECT_EQ(settings->appPresence.get(), AppPresence::dockOnly);
    EXPECT_EQ(settings->quickCreateShortcut.get(), (QuickCreateShortcut{45, 0x1800}));
    EXPECT_THAT(settings->fileTypeShortcuts.get(), IsEmpty());
    EXPECT_EQ(settings->directShortcutDestination.get(), CreationDestinationMode::desktop);
    EXPECT_FALSE(settings->hasCompletedOnboarding.get());
    EXPECT_THAT(defaults.values,
                ElementsAre(Pair("appPresence", PropertyValue(std::string("dockOnly")))));
}

TEST_F(AppSettingsTest, AStoredOrderLosesUnknownIdsAndGainsTheOthers) {
    store("fileTypeOrder", Strings{"json", "exe", "txt"});
    EXPECT_EQ(load().fileTypeOrder.get(), orderStartingWith({"json", "txt"}));
    EXPECT_EQ(stored<Strings>("fileTypeOrder"), (Strings{"json", "exe", "txt"}));
}

TEST_F(AppSettingsTest, RepeatedIdsOfAStoredOrderAreKept) {
    store("fileTypeOrder", Strings{"md", "md"});
    EXPECT_EQ(load().fileTypeOrder.get(), orderStartingWith({"md", "md"}));
}

TEST_F(AppSettingsTest, AnEmptyStoredOrderIsTheDefaultOrder) {
    store("fileTypeOrder", Strings{});
    EXPECT_EQ(load().fileTypeOrder.get(), FileTypeCatalog::defaultOrder());
}

TEST_F(AppSettingsTest, AnEmptyStoredSetMeansThatNoTypeIsEnabled) {
    store("enabledFileTypeIDs", Strings{});
    EXPECT_THAT(load().enabledFileTypeIDs.get(), IsEmpty());
    EXPECT_THAT(settings->enabledFileTypes(), IsEmpty());
}

TEST_F(AppSettingsTest, EnabledIdsAreNotCheckedAndDoublesCollapse) {
    store("enabledFileTypeIDs", Strings{"md", "exe", "md"});
    EXPECT_THAT(load().enabledFileTypeIDs.get(), ElementsAre("exe", "md"));
}

TEST_F(AppSettingsTest, AnArrayThatIsNotAllStringsFallsBack) {
    defaults.foreignKeys = {"enabledFileTypeIDs", "fileTypeOrder"};
    load();
    EXPECT_EQ(settings->enabledFileTypeIDs.get(), FileTypeCatalog::defaultEnabledIDs());
    EXPECT_EQ(settings->fileTypeOrder.get(), FileTypeCatalog::defaultOrder());
}

TEST_F(AppSettingsTest, ThePresenceWithBothIsNotRestored) {
    store("appPresence", std::string("dockAndMenuBar"));
    EXPECT_EQ(load().appPresence.get(), AppPresence::dockOnly);
    EXPECT_EQ(stored<std::string>("appPresence"), "dockOnly");
}

TEST_F(AppSettingsTest, AnUnknownPresenceIsTheDockAndIsRewritten) {
    for (const PropertyValue& value :
         {PropertyValue(std::string("everywhere")), PropertyValue(std::string("MenuBarOnly")),
          PropertyValue(true)}) {
        store("appPresence", value);
        EXPECT_EQ(load().appPresence.get(), AppPresence::dockOnly);
        EXPECT_EQ(stored<std::string>("appPresence"), "dockOnly");
    }
}

TEST_F(AppSettingsTest, APresenceThatIsStoredAsItIsIsNotWritten) {
    for (const auto* value : {"dockOnly", "menuBarOnly"}) {
        store("appPresence", std::string(value));
        EXPECT_EQ(rawValue(load().appPresence.get()), value);
    }
    EXPECT_THAT(defaults.written, IsEmpty());
}

TEST_F(AppSettingsTest, AStoredShortcutThatIsNotUsableIsTheDefault) {
    for (const auto* text :
         {R"({"keyCode":38,"carbonModifiers":0})",
          R"({"keyCode":4294967295,"carbonModifiers":256})", R"({"keyCode":38})", "{", "\xFF"}) {
        store("quickCreateShortcut", data(text));
        EXPECT_EQ(load().quickCreateShortcut.get(), defaultQuickCreateShortcut) << text;
        EXPECT_EQ(stored<Bytes>("quickCreateShortcut"), data(text));
    }
    store("quickCreateShortcut", std::string(R"({"keyCode":38,"carbonModifiers":256})"));
    EXPECT_EQ(load().quickCreateShortcut.get(), defaultQuickCreateShortcut);
}

TEST_F(AppSettingsTest, TheStoredShortcutsComeBack) {
    store("quickCreateShortcut", data(R"({"keyCode":38,"carbonModifiers":256})"));
    store("fileTypeShortcuts", data(R"({"md":{"keyCode":40,"carbonModifiers":256}})"));
    load();
    EXPECT_EQ(settings->quickCreateShortcut.get(), commandJ);
    EXPECT_THAT(settings->fileTypeShortcuts.get(), ElementsAre(Pair("md", commandK)));
}

TEST_F(AppSettingsTest, StoredEntriesThatCannotBeUsedAreLostWithTheNextChangeOnly) {
    const auto before = data(R"({"exe":{"keyCode":1,"carbonModifiers":256},)"
                             R"("md":{"keyCode":40,"carbonModifiers":256},)"
                             R"("txt":{"keyCode":2,"carbonModifiers":0}})");
    store("fileTypeShortcuts", before);
    EXPECT_THAT(load().fileTypeShortcuts.get(), ElementsAre(Pair("md", commandK)));
    EXPECT_EQ(stored<Bytes>("fileTypeShortcuts"), before);

    settings->setShortcut(commandJ, "json");
    EXPECT_EQ(stored<Bytes>("fileTypeShortcuts"),
              data(R"({"json":{"carbonModifiers":256,"keyCode":38},)"
                   R"("md":{"carbonModifiers":256,"keyCode":40}})"));
}

TEST_F(AppSettingsTest, AShortcutMapThatDoesNotDecodeIsEmptyAndTheRestStays) {
    store("quickCreateShortcut", data(R"({"keyCode":38,"carbonModifiers":256})"));
    for (const auto* text : {R"({"md":{"keyCode":40},"txt":{"keyCode":2,"carbonModifiers":256}})",
                             "[]", "null", R"({"md":1})"}) {
        store("fileTypeShortcuts", data(text));
        EXPECT_THAT(load().fileTypeShortcuts.get(), IsEmpty()) << text;
        EXPECT_EQ(settings->quickCreateShortcut.get(), commandJ);
    }
}

TEST_F(AppSettingsTest, TheDestinationAndTheFlagComeBackOrFallBack) {
    store("directShortcutDestination", std::string("frontFinderFolder"));
    store("hasCompletedOnboarding", true);
    load();
    EXPECT_EQ(settings->directShortcutDestination.get(),
              CreationDestinationMode::frontFinderFolder);
    EXPECT_TRUE(settings->hasCompletedOnboarding.get());

    store("directShortcutDestination", std::string("Desktop"));
    store("hasCompletedOnboarding", std::string("perhaps"));
    load();
    EXPECT_EQ(settings->directShortcutDestination.get(), CreationDestinationMode::desktop);
    EXPECT_FALSE(settings->hasCompletedOnboarding.get());
}

TEST_F(AppSettingsTest, EachAssignmentWritesItsKeyInItsForm) {
    loadAndForgetWrites();
    settings->enabledFileTypeIDs.set({"md", "txt"});
    settings->fileTypeOrder.set({"txt", "md"});
    settings->appPresence.set(AppPresence::dockAndMenuBar);
    settings->quickCreateShortcut.set(commandJ);
    settings->fileTypeShortcuts.set({{"md", commandK}});
    settings->directShortcutDestination.set(CreationDestinationMode::frontFinderFolder);
    settings->hasCompletedOnboarding.set(true);

    EXPECT_THAT(defaults.written,
                ElementsAre("enabledFileTypeIDs", "fileTypeOrder", "appPresence",
                            "quickCreateShortcut", "fileTypeShortcuts", "directShortcutDestination",
                            "hasCompletedOnboarding"));
    EXPECT_THAT(*stored<Strings>("enabledFileTypeIDs"), UnorderedElementsAre("md", "txt"));
    EXPECT_THAT(*stored<Strings>("fileTypeOrder"), ElementsAre("txt", "md"));
    EXPECT_EQ(stored<std::string>("appPresence"), "dockAndMenuBar");
    EXPECT_EQ(stored<Bytes>("quickCreateShortcut"),
              data(R"({"carbonModifiers":256,"keyCode":38})"));
    EXPECT_EQ(stored<Bytes>("fileTypeShortcuts"),
              data(R"({"md":{"carbonModifiers":256,"keyCode":40}})"));
    EXPECT_EQ(stored<std::string>("directShortcutDestination"), "frontFinderFolder");
    EXPECT_EQ(stored<bool>("hasCompletedOnboarding"), true);
}

TEST_F(AppSettingsTest, AnAssignmentIsAnnouncedThenHeldThenWritten) {
    loadAndForgetWrites();
    Strings order;
    const auto object =
        settings->objectWillChange().observeChanges([&] { order.push_back("object will change"); });
    const auto property = settings->hasCompletedOnboarding.observeChanges([&](bool announced) {
        EXPECT_TRUE(announced);
        EXPECT_FALSE(settings->hasCompletedOnboarding.get());
        EXPECT_THAT(defaults.written, IsEmpty());
        order.push_back("announced");
    });
    settings->hasCompletedOnboarding.set(true);
    EXPECT_THAT(order, ElementsAre("object will change", "announced"));
    EXPECT_THAT(defaults.written, ElementsAre("hasCompletedOnboarding"));
}

TEST_F(AppSettingsTest, AnEqualAssignmentIsWrittenToo) {
    loadAndForgetWrites();
    settings->hasCompletedOnboarding.set(false);
    EXPECT_THAT(defaults.written, ElementsAre("hasCompletedOnboarding"));
}

TEST_F(AppSettingsTest, AWriteThatFailsIsLoggedAndTheValueIsHeld) {
    load();
    defaults.failWith = SystemError{SystemError::Domain::cocoa, 640, "disk full"};
    settings->appPresence.set(AppPresence::menuBarOnly);
    EXPECT_EQ(settings->appPresence.get(), AppPresence::menuBarOnly);
    EXPECT_THAT(log.lines, ElementsAre(FakeLog::Line{LogLevel::error, "AppSettings",
                                                     "Failed to store appPresence: disk full"}));

    settings->reloadFromStore();
    EXPECT_EQ(settings->appPresence.get(), AppPresence::menuBarOnly);
}

TEST_F(AppSettingsTest, AShortcutMapThatCannotBeEncodedIsNotWritten) {
    loadAndForgetWrites();
    settings->fileTypeShortcuts.set({{"\xFF", commandJ}});
    EXPECT_THAT(defaults.written, IsEmpty());
    EXPECT_THAT(log.lines, IsEmpty());
    EXPECT_EQ(settings->fileTypeShortcuts.get().size(), 1U);
}

TEST_F(AppSettingsTest, TypesStandInTheUsersOrder) {
    load();
    settings->fileTypeOrder.set({"py", "exe", "txt"});
    settings->enabledFileTypeIDs.set({"txt", "exe", "md"});
    EXPECT_THAT(settings->orderedFileTypes(), ElementsAre(*FileTypeCatalog::definition("py"),
                                                          *FileTypeCatalog::definition("txt")));
    EXPECT_THAT(settings->enabledFileTypes(), ElementsAre(*FileTypeCatalog::definition("txt")));
}

TEST_F(AppSettingsTest, ATypeIsSwitchedOnAndOff) {
    loadAndForgetWrites();
    settings->enabledFileTypeIDs.set({"md"});
    settings->setEnabled(true, "txt");
    EXPECT_THAT(settings->enabledFileTypeIDs.get(), ElementsAre("md", "txt"));
    settings->setEnabled(false, "md");
    EXPECT_THAT(*stored<Strings>("enabledFileTypeIDs"), ElementsAre("txt"));
}

TEST_F(AppSettingsTest, AShortcutIsSetReplacedAndTakenAway) {
    load();
    settings->setShortcut(commandJ, "md");
    settings->setShortcut(commandK, "md");
    EXPECT_THAT(settings->fileTypeShortcuts.get(), ElementsAre(Pair("md", commandK)));
    settings->setShortcut(QuickCreateShortcut{40, 0}, "md");
    EXPECT_THAT(settings->fileTypeShortcuts.get(), IsEmpty());
    settings->setShortcut(commandJ, "md");
    settings->setShortcut(std::nullopt, "md");
    EXPECT_THAT(settings->fileTypeShortcuts.get(), IsEmpty());
}

TEST_F(AppSettingsTest, TakingAwayAShortcutThatIsNotThereIsWritten) {
    loadAndForgetWrites();
    settings->setShortcut(std::nullopt, "md");
    EXPECT_THAT(defaults.written, ElementsAre("fileTypeShortcuts"));
    EXPECT_EQ(stored<Bytes>("fileTypeShortcuts"), data("{}"));
}

TEST_F(AppSettingsTest, AShortcutForAnUnknownTypeIsIgnored) {
    loadAndForgetWrites();
    settings->setShortcut(commandJ, "exe");
    EXPECT_THAT(defaults.written, IsEmpty());
    EXPECT_THAT(settings->fileTypeShortcuts.get(), IsEmpty());
}

TEST_F(AppSettingsTest, TheQuickCreateShortcutConflictsFirst) {
    load();
    settings->quickCreateShortcut.set(commandJ);
    settings->setShortcut(commandJ, "txt");
    EXPECT_EQ(settings->shortcutConflictMessage(commandJ, "md"), "Conflicts with Quick Create");
    EXPECT_EQ(settings->shortcutConflictMessage(commandJ, "txt"), "Conflicts with Quick Create");
}

TEST_F(AppSettingsTest, OfTwoConflictsTheOneThatIsFirstInTheUsersOrderIsNamed) {
    load();
    settings->setShortcut(commandK, "txt");
    settings->setShortcut(commandK, "docx");
    EXPECT_EQ(settings->shortcutConflictMessage(commandK, "md"), "Conflicts with Text");
    settings->fileTypeOrder.set(orderStartingWith({"docx"}));
    EXPECT_EQ(settings->shortcutConflictMessage(commandK, "md"), "Conflicts with Word Document");
}

TEST_F(AppSettingsTest, ATypeDoesNotConflictWithItselfButWithOnesThatAreSwitchedOff) {
    load();
    settings->setShortcut(commandK, "txt");
    settings->setEnabled(false, "txt");
    EXPECT_EQ(settings->shortcutConflictMessage(commandK, "txt"), std::nullopt);
    EXPECT_EQ(settings->shortcutConflictMessage(commandK, "md"), "Conflicts with Text");
    EXPECT_EQ(settings->shortcutConflictMessage(commandJ, "md"), std::nullopt);
    EXPECT_EQ(settings->shortcutConflictMessage({40, 0x300}, "md"), std::nullopt);
}

TEST_F(AppSettingsTest, WhatAnotherProcessStoredIsPublishedWithoutAWrite) {
    loadAndForgetWrites();
    Strings heard;
    const auto presence = settings->appPresence.observeChanges(
        [&](AppPresence value) { heard.emplace_back(rawValue(value)); });
    const auto onboarding =
        settings->hasCompletedOnboarding.observeChanges([&](bool) { heard.push_back("flag"); });
    store("appPresence", std::string("menuBarOnly"));
    settings->reloadFromStore();
    settings->reloadFromStore();
    EXPECT_EQ(settings->appPresence.get(), AppPresence::menuBarOnly);
    EXPECT_THAT(heard, ElementsAre("menuBarOnly"));
    EXPECT_THAT(defaults.written, IsEmpty());
}

TEST_F(AppSettingsTest, EveryPropertyIsReloaded) {
    loadAndForgetWrites();
    AppSettings other(defaults, log);
    other.enabledFileTypeIDs.set({"md"});
    other.fileTypeOrder.set(orderStartingWith({"json"}));
    other.appPresence.set(AppPresence::menuBarOnly);
    other.quickCreateShortcut.set(commandJ);
    other.fileTypeShortcuts.set({{"md", commandK}});
    other.directShortcutDestination.set(CreationDestinationMode::frontFinderFolder);
    other.hasCompletedOnboarding.set(true);

    settings->reloadFromStore();
    EXPECT_EQ(settings->enabledFileTypeIDs.get(), other.enabledFileTypeIDs.get());
    EXPECT_EQ(settings->fileTypeOrder.get(), other.fileTypeOrder.get());
    EXPECT_EQ(settings->appPresence.get(), other.appPresence.get());
    EXPECT_EQ(settings->quickCreateShortcut.get(), commandJ);
    EXPECT_EQ(settings->fileTypeShortcuts.get(), other.fileTypeShortcuts.get());
    EXPECT_EQ(settings->directShortcutDestination.get(),
              CreationDestinationMode::frontFinderFolder);
    EXPECT_TRUE(settings->hasCompletedOnboarding.get());
}

TEST_F(AppSettingsTest, ReloadingAfterAnOwnWriteChangesNothing) {
    load();
    settings->appPresence.set(AppPresence::dockAndMenuBar); // would not be loaded as such
    settings->fileTypeOrder.set({"md"});                    // would be completed by loading
    int announced = 0;
    const auto changes = settings->objectWillChange().observeChanges([&] { ++announced; });
    settings->reloadFromStore();
    EXPECT_EQ(announced, 0);
    EXPECT_EQ(settings->appPresence.get(), AppPresence::dockAndMenuBar);
    EXPECT_THAT(settings->fileTypeOrder.get(), ElementsAre("md"));
}

TEST_F(AppSettingsTest, ReloadingRewritesAPresenceAsLoadingDoes) {
    store("appPresence", std::string("menuBarOnly"));
    loadAndForgetWrites();
    store("appPresence", std::string("dockAndMenuBar"));
    settings->reloadFromStore();
    EXPECT_EQ(settings->appPresence.get(), AppPresence::dockOnly);
    EXPECT_EQ(stored<std::string>("appPresence"), "dockOnly");
    EXPECT_THAT(defaults.written, ElementsAre("appPresence"));
}

TEST_F(AppSettingsTest, ReloadingWhatIsGoneGivesTheDefault) {
    store("hasCompletedOnboarding", true);
    loadAndForgetWrites();
    defaults.values.erase("hasCompletedOnboarding");
    settings->reloadFromStore();
    EXPECT_FALSE(settings->hasCompletedOnboarding.get());
    EXPECT_THAT(defaults.written, IsEmpty());
}

} // namespace
} // namespace blankwell
