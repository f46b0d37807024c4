#include "quickcreate/QuickCreatePanelView.h"
#include "support/Stage.h"
#include "updates/UpdateView.h"
#include "views/CreationGuideView.h"
#include "views/ExtensionPageView.h"
#include "views/HelpContent.h"
#include "views/HelpView.h"
#include "views/OnboardingView.h"
#include "widgets/WidgetTest.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>
#include <memory>

namespace blankwell {
namespace {

using testing::IsEmpty;

using View = std::unique_ptr<QWidget>;

struct Scene {
    const char* name;
    View (*make)(Stage& stage);
    /// The least that its window can be.
    QSize size;
};

void PrintTo(const Scene& scene, std::ostream* out) {
    *out << scene.name;
}

View mainWindow(Stage& stage) {
    for (const auto* const folder : {"/Users/u/Projects", "/Volumes/Backup"}) {
        EXPECT_TRUE(stage.store.saveBookmark(FileUrl(folder), FileUrl(folder)));
    }
    stage.settings.setShortcut(defaultQuickCreateShortcut, "md");
    auto view = std::make_unique<ContentView>(stage.contentServices());
    view->findChild<ShortcutSettingsView*>()->setShowsDirectShortcuts(true);
    return view;
}

/// With the list of shortcuts closed, as it is at first.
View newMainWindow(Stage& stage) {
    return std::make_unique<ContentView>(stage.contentServices());
}

View panel(Stage& stage) {
    return std::make_unique<QuickCreatePanelView>(
        QuickCreatePanelView::Services{.controller = stage.controller,
                                       .settings = stage.settings,
                                       .mainQueue = stage.mainQueue,
                                       .theme = stage.theme});
}

View onboarding(Stage& stage, int page) {
    auto view = std::make_unique<OnboardingView>(stage.theme, stage.settings, nullptr);
    for (auto* const button : view->findChildren<QAbstractButton*>()) {
        for (int shown = 1; button->text() == "Next" && shown < page; ++shown) {
            button->click();
        }
    }
    return view;
}

View help(Stage& stage) {
    return std::make_unique<HelpView>(stage.theme, helpContent("Version 1.0"));
}

View creationGuide(Stage& stage) {
    return std::make_unique<CreationGuideView>(stage.theme, stage.settings);
}

View extensionPage(Stage& stage) {
    stage.installation.withoutPackage = {FileManager::nautilus};
    stage.menus.turn(FileManager::thunar, true);
    return std::make_unique<ExtensionPageView>(stage.theme, stage.settings, stage.menus);
}

View updatePage(Stage& stage, const UpdateState& state) {
    auto view = std::make_unique<UpdateView>(stage.theme);
    view->show(pageFor(state, "1.0"), false);
    return view;
}

AppcastItem update() {
    return {.version = "110",
            .shortVersion = "1.1",
            .description = "<p>Quicker.</p><p>One long line, which does not end before the end of "
                           "what is shown of it in the window, wherever that is.</p>",
            .releaseNotesLink = "https://example.org/1.1"};
}

View foundUpdate(Stage& stage) {
    return updatePage(stage, UpdateFound{update()});
}

View downloadedUpdate(Stage& stage) {
    return updatePage(stage, DownloadingUpdate{update(), {1'000'000, 3'000'000, 200'000}});
}

View failedUpdate(Stage& stage) {
    return updatePage(stage, UpdateFailed{"The server of the updates could not be reached, and "
                                          "nothing of what is installed has changed."});
}

const std::vector<Scene>& scenes() {
    static const std::vector<Scene> all{
        {.name = "MainWindow", .make = mainWindow, .size = {720, 520}},
        {.name = "NewMainWindow", .make = newMainWindow, .size = {720, 520}},
        {.name = "Panel", .make = panel, .size = {520, 520}},
        {.name = "Help", .make = help, .size = {640, 480}},
        {.name = "CreationGuide", .make = creationGuide, .size = {560, 600}},
        {.name = "ExtensionPage", .make = extensionPage, .size = {400, 280}},
        {.name = "FoundUpdate", .make = foundUpdate, .size = {}},
        {.name = "DownloadedUpdate", .make = downloadedUpdate, .size = {}},
        {.name = "FailedUpdate", .make = failedUpdate, .size = {}},
        {.name = "FirstPage", .make = [](Stage& s) { return onboarding(s, 1); }, .size = {}},
        {.name = "SecondPage", .make = [](Stage& s) { return onboarding(s, 2); }, .size = {}},
        {.name = "ThirdPage", .make = [](Stage& s) { return onboarding(s, 3); }, .size = {}},
        {.name = "LastPage", .make = [](Stage& s) { return onboarding(s, 4); }, .size = {}},
    };
    return all;
}

std::string nameOf(const QWidget& widget) {
    auto name = std::string(widget.metaObject()->className());
    const auto text = widget.property("text").toString();
    return name + (text.isEmpty() ? "" : " \"" + text.toStdString() + '"');
}

std::string words(const QRect& place) {
    return QString("%1 x %2 at (%3, %4)")
        .arg(place.width())
        .arg(place.height())
        .arg(place.x())
        .arg(place.y())
        .toStdString();
}

bool isSmallerThanNeeded(const QWidget& widget) {
    const auto needed = widget.minimumSizeHint();
    const bool isCutOff =
        widget.hasHeightForWidth() && widget.height() < widget.heightForWidth(widget.width());
    return widget.width() < needed.width() || widget.height() < needed.height() || isCutOff;
}

bool reachesOut(const QWidget& widget) {
    const auto& parent = *widget.parentWidget();
    const auto* const area = qobject_cast<QAbstractScrollArea*>(parent.parentWidget());
    const bool isScrolled = area != nullptr && area->viewport() == &parent;
    const auto place = widget.geometry();
    return isScrolled ? place.width() > parent.width() : !parent.rect().contains(place);
}

/// Widgets with where they are.
using Places = std::vector<std::pair<std::string, QRect>>;

struct ViewFitTest : WidgetTest, testing::WithParamInterface<Scene> {
    ~ViewFitTest() override { QApplication::setLayoutDirection(Qt::LeftToRight); }

    void show() {
        view = GetParam().make(stage);
        if (!GetParam().size.isEmpty()) {
            view->resize(GetParam().size);
        }
        WidgetTest::show(*view);
        settle();
    }

    /// Layouts follow a change in turns of the event loop.
    void settle() {
        stage.mainQueue.run();
        Places before;
        for (int calm = 0; calm < 3; ++calm) {
            QTest::qWait(10);
            if (auto now = places(); now != before) {
                before = std::move(now);
                calm = 0;
            }
        }
    }

    std::vector<QWidget*> shown() const {
        auto widgets = view->findChildren<QWidget*>();
        widgets.removeIf([](const QWidget* widget) {
            return !widget->isVisible() || widget->isWindow() ||
                   qobject_cast<const QScrollBar*>(widget) != nullptr;
        });
        return {widgets.begin(), widgets.end()};
    }

    std::vector<std::string> misfits() const {
        std::vector<std::string> result;
        for (const auto* const widget : shown()) {
            if (isSmallerThanNeeded(*widget) || reachesOut(*widget)) {
                result.push_back(nameOf(*widget));
            }
        }
        return result;
    }

    /// Where everything stands, counted from where texts begin.
    Places places() const {
        Places result;
        for (const auto* const widget : shown()) {
            const QRect place(widget->mapTo(view.get(), QPoint()), widget->size());
            result.emplace_back(nameOf(*widget),
                                QStyle::visualRect(view->layoutDirection(), view->rect(), place));
        }
        return result;
    }

    /// What does not stand where it stood when `before` was taken.
    std::vector<std::string> different(const Places& before) const {
        std::vector<std::string> result;
        const auto now = places();
        EXPECT_EQ(now.size(), before.size());
        for (std::size_t i = 0; i < std::min(now.size(), before.size()); ++i) {
            if (now[i] != before[i]) {
                result.push_back(now[i].first + ": " + words(before[i].second) + " became " +
                                 words(now[i].second));
            }
        }
        return result;
    }

    Stage stage{ColorScheme::light};
    View view;
};

TEST_P(ViewFitTest, EverythingHasTheRoomThatItNeeds) {
    show();
    EXPECT_THAT(misfits(), IsEmpty());
}

TEST_P(ViewFitTest, ALargerFontFromTheStartFits) {
    enlargeFont(1.5);
    show();
    EXPECT_THAT(misfits(), IsEmpty());
}

TEST_P(ViewFitTest, AFontThatIsEnlargedWhileItIsShownFits) {
    show();
    enlargeFont(1.5);
    settle();
    EXPECT_THAT(misfits(), IsEmpty());
}

TEST_P(ViewFitTest, AFontThatIsEnlargedWhileItIsHiddenFits) {
    show();
    view->hide();
    settle();
    enlargeFont(1.5);
    settle();
    WidgetTest::show(*view);
    settle();
    EXPECT_THAT(misfits(), IsEmpty());
}

TEST_P(ViewFitTest, AfterAChangeOfTheFontItIsAsIfItHadBeenSo) {
    show();
    enlargeFont(1.5);
    settle();
    const auto changed = places();
    const auto size = view->size();
    view.reset();
    view = GetParam().make(stage);
    view->resize(size);
    WidgetTest::show(*view);
    settle();
    EXPECT_THAT(different(changed), IsEmpty());
}

TEST_P(ViewFitTest, WhereTextsRunFromRightToLeftItIsMirrored) {
    show();
    const auto usual = places();
    const auto size = view->size();
    QApplication::setLayoutDirection(Qt::RightToLeft);
    settle();
    EXPECT_THAT(different(usual), IsEmpty()) << "mirrored while it is shown";
    view.reset();
    view = GetParam().make(stage);
    view->resize(size);
    WidgetTest::show(*view);
    settle();
    EXPECT_THAT(different(usual), IsEmpty()) << "mirrored from the start";
}

struct HiddenRowsFitTest : ViewFitTest {};

TEST_P(HiddenRowsFitTest, RowsThatWereHiddenWhileTheFontWasEnlargedFit) {
    show();
    auto& settings = *view->findChild<ShortcutSettingsView*>();
    settings.setShowsDirectShortcuts(false);
    settle();
    enlargeFont(1.5);
    settle();
    settings.setShowsDirectShortcuts(true);
    settle();
    EXPECT_THAT(misfits(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(MainWindow, HiddenRowsFitTest,
                         testing::Values(Scene{
                             .name = "MainWindow", .make = mainWindow, .size = {720, 520}}));

INSTANTIATE_TEST_SUITE_P(Views, ViewFitTest, testing::ValuesIn(scenes()),
                         [](const auto& scene) { return scene.param.name; });

} // namespace
} // namespace blankwell
