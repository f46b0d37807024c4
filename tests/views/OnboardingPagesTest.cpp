#include "views/OnboardingPages.h"

#include "base/Overloaded.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

using Lines = std::vector<std::string>;

Lines linesOf(const QuickCreateIllustration& illustration) {
    Lines lines;
    for (const auto& destination : illustration.destinations) {
        lines.insert(lines.end(), {destination.title, destination.symbol});
    }
    lines.push_back(illustration.searchPlaceholder);
    for (const auto& tile : illustration.tiles) {
        lines.insert(lines.end(), {tile.title, tile.fileExtension, tile.symbol});
    }
    return lines;
}

Lines linesOf(const FinderMenuIllustration& illustration) {
    auto lines = illustration.entries;
    lines.insert(lines.end(), {illustration.submenuSymbol, illustration.folderName});
    return lines;
}

Lines linesOf(const OnboardingElement& element) {
    return std::visit(Overloaded{
                          [](const OnboardingShortcutLine& line) -> Lines {
                              return {line.before, line.shortcut, line.after};
                          },
                          [](const GuideRow& row) -> Lines { return {row.symbol, row.text}; },
                          [](const OnboardingStep& step) -> Lines {
                              return {step.symbol, step.title, step.text};
                          },
                          [](const auto& illustration) { return linesOf(illustration); },
                      },
                      element);
}

/// Everything that the page with this number, from 1, shows, in its order.
Lines transcript(std::size_t number) {
    const auto page = onboardingPages("⌘ + M").at(number - 1);
    Lines all{page.symbol, page.title, page.text};
    for (const auto& element : page.elements) {
        const auto lines = linesOf(element);
        all.insert(all.end(), lines.begin(), lines.end());
    }
    return all;
}

TEST(OnboardingPagesTest, ThereAreFour) {
    EXPECT_EQ(onboardingPages("⌘ + M").size(), 4U);
    EXPECT_EQ(onboardingPageCount, 4U);
}

TEST(OnboardingPagesTest, TheFirstWelcomes) {
    const Lines expected{"doc.badge.plus", "Welcome to Blankwell+",
                         "Create new blank files anywhere on your Mac — from Finder, the menu bar, "
                         "or a keyboard shortcut. Here are the three ways to use it."};
    EXPECT_EQ(transcript(1), expected);
}

TEST(OnboardingPagesTest, TheSecondTellsOfTheFileManagersMenu) {
    const Lines expected{"filemenu.and.cursorarrow",
                         "Right-click in Finder",
                         "The fastest way — in the folders macOS allows.",
                         "New Folder",
                         "Get Info",
                         "Create File",
                         "chevron.right",
                         "Documents",
                         "checkmark.circle.fill",
                         "Works in **Dropbox**, **Downloads**, and **your own folders**.",
                         "info.circle.fill",
                         "Right-click an empty spot in a folder → **Create File** → choose a type. "
                         "The new file appears right there."};
    EXPECT_EQ(transcript(2), expected);
}

TEST(OnboardingPagesTest, TheThirdTellsOfFoldersWithoutTheMenu) {
    const Lines expected{
        "macwindow.on.rectangle",
        "OneDrive, iCloud, Desktop & Documents",
        "macOS blocks the right-click menu here — but two easy ways still work everywhere.",
        "1.circle.fill",
        "1. Add the Finder toolbar button",
        "In Finder, choose **View ▸ Customize Toolbar…**, then drag the **Create File** button "
        "into the toolbar. It then works in every folder, including cloud and system folders.",
        "2.circle.fill",
        "Or press the Quick Create shortcut",
        "Press ⌘ + M anytime to open Quick Create — it works in every folder too."};
    EXPECT_EQ(transcript(3), expected);
}

TEST(OnboardingPagesTest, TheFourthTellsOfTheShortcut) {
    const Lines expected{
        "keyboard",
        "Quick Create shortcut",
        "Create a file from anywhere — no Finder window needed.",
        "Press",
        "⌘ + M",
        "anytime to open Quick Create:",
        "Desktop",
        "desktopcomputer",
        "Finder Folder",
        "folder",
        "Search file types",
        "Markdown",
        ".md",
        "doc.richtext",
        "JSON",
        ".json",
        "curlybraces",
        "Word",
        ".docx",
        "doc.text",
        "rectangle.2.swap",
        "Choose a destination: **Desktop**, or the **front Finder folder** you're viewing.",
        "magnifyingglass",
        "Type to filter, then click a file type — it's created instantly and revealed in Finder."};
    EXPECT_EQ(transcript(4), expected);
}

} // namespace
} // namespace blankwell
