#include "views/OnboardingPages.h"

#include <fmt/format.h>

namespace blankwell {
namespace {

OnboardingPage welcomePage() {
    return {
        .symbol = "doc.badge.plus",
        .title = "Welcome to Blankwell+",
        .text = "Create new blank files anywhere on your Mac — from Finder, the menu bar, or a "
                "keyboard shortcut. Here are the three ways to use it.",
        .elements = {},
    };
}

OnboardingPage rightClickPage() {
    return {
        .symbol = "filemenu.and.cursorarrow",
        .title = "Right-click in Finder",
        .text = "The fastest way — in the folders macOS allows.",
        .elements =
            {
                FinderMenuIllustration{
                    .entries = {"New Folder", "Get Info", "Create File"},
                    .submenuSymbol = "chevron.right",
                    .folderName = "Documents",
                },
                GuideRow{"checkmark.circle.fill",
                         "Works in **Dropbox**, **Downloads**, and **your own folders**."},
                GuideRow{"info.circle.fill",
                         "Right-click an empty spot in a folder → **Create File** → choose a type. "
                         "The new file appears right there."},
            },
    };
}

OnboardingPage everywherePage(std::string_view shortcut) {
    return {
        .symbol = "macwindow.on.rectangle",
        .title = "OneDrive, iCloud, Desktop & Documents",
        .text = "macOS blocks the right-click menu here — but two easy ways still work everywhere.",
        .elements =
            {
                OnboardingStep{"1.circle.fill", "1. Add the Finder toolbar button",
                               "In Finder, choose **View ▸ Customize Toolbar…**, then drag the "
                               "**Create File** button into the toolbar. It then works in every "
                               "folder, including cloud and system folders."},
                OnboardingStep{"2.circle.fill", "Or press the Quick Create shortcut",
                               fmt::format("Press {} anytime to open Quick Create — it works in "
                                           "every folder too.",
                                           shortcut)},
            },
    };
}

OnboardingPage shortcutPage(std::string_view shortcut) {
    return {
        .symbol = "keyboard",
        .title = "Quick Create shortcut",
        .text = "Create a file from anywhere — no Finder window needed.",
        .elements =
            {
                OnboardingShortcutLine{"Press", std::string(shortcut),
                                       "anytime to open Quick Create:"},
                QuickCreateIllustration{
                    .destinations = {{"Desktop", "desktopcomputer"}, {"Finder Folder", "folder"}},
                    .searchPlaceholder = "Search file types",
                    .tiles = {{"Markdown", ".md", "doc.richtext"},
                              {"JSON", ".json", "curlybraces"},
                              {"Word", ".docx", "doc.text"}},
                },
                GuideRow{"rectangle.2.swap", "Choose a destination: **Desktop**, or the **front "
                                             "Finder folder** you're viewing."},
                GuideRow{"magnifyingglass", "Type to filter, then click a file type — it's created "
                                            "instantly and revealed in Finder."},
            },
    };
}

} // namespace

std::vector<OnboardingPage> onboardingPages(std::string_view shortcut) {
    return {welcomePage(), rightClickPage(), everywherePage(shortcut), shortcutPage(shortcut)};
}

} // namespace blankwell
