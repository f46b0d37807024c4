#include "settings/ShortcutRecorderControl.h"

#include "settings/KeySender.h"
#include "widgets/WidgetTest.h"

#include <QAction>
#include <QVBoxLayout>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr QuickCreateShortcut controlOptionN{.keyCode = 45, .carbonModifiers = 0x1800};

struct ShortcutRecorderControlTest : WidgetTest {
    ShortcutRecorderControlTest() {
        control.setOnChange([this](const auto& shortcut) { recorded.push_back(shortcut); });
        auto* const layout = new QVBoxLayout(&window);
        for (auto* const widget : {&before, static_cast<QWidget*>(&control), &after}) {
            layout->addWidget(widget);
        }
        layout->addWidget(&ground, 1);
        before.setFocusPolicy(Qt::TabFocus);
        after.setFocusPolicy(Qt::TabFocus);
        window.resize(400, 300);
        show(window);
    }

    // The window does not own what stands in it.
    ~ShortcutRecorderControlTest() override {
        for (auto* const widget : {&before, static_cast<QWidget*>(&control), &after, &ground}) {
            widget->setParent(nullptr);
        }
    }

    void startByMouse() { QTest::mouseClick(&control, Qt::LeftButton); }

    void startByKeyboardFocus() { control.setFocus(Qt::TabFocusReason); }

    bool press(const SentKey& key, Qt::KeyboardModifiers modifiers = {}) {
        return KeySender::press(control, key, modifiers);
    }

    std::string text() { return control.appearance().text; }

    CountedRecorderServices counted;
    std::vector<QuickCreateShortcut> recorded;
    QWidget window;
    QWidget before;
    ShortcutRecorderControl control{theme, "Quick Create Shortcut", counted.services};
    QWidget after;
    QWidget ground;
};

TEST_F(ShortcutRecorderControlTest, ItShowsTheDefaultShortcutAtFirst) {
    EXPECT_EQ(control.shortcut(), controlOptionN);
    EXPECT_EQ(text(), "⌃ + ⌥ + N");
    EXPECT_FALSE(control.isRecording());
}

TEST_F(ShortcutRecorderControlTest, AClickTakesTheKeyboardAndWaitsForACombination) {
    startByMouse();
    EXPECT_TRUE(control.hasFocus());
    EXPECT_TRUE(control.isRecording());
    EXPECT_EQ(text(), "Press shortcut");
    EXPECT_TRUE(press(keys::m, Qt::MetaModifier));
    EXPECT_THAT(recorded, ElementsAre(QuickCreateShortcut{46, 0x100}));
    EXPECT_FALSE(control.isRecording());
    EXPECT_EQ(text(), "⌘ + M");
}

TEST_F(ShortcutRecorderControlTest, OtherMouseButtonsDoNothing) {
    QTest::mouseClick(&control, Qt::RightButton);
    EXPECT_FALSE(control.isRecording());
    EXPECT_FALSE(control.hasFocus());
}

TEST_F(ShortcutRecorderControlTest, EveryModifierIsTheOneOfItsPlaceAndOthersDoNotCount) {
    const std::vector<std::pair<Qt::KeyboardModifiers, std::uint32_t>> masks{
        {Qt::MetaModifier, 0x100},
        {Qt::ShiftModifier, 0x200},
        {Qt::AltModifier, 0x800},
        {Qt::ControlModifier, 0x1000},
        {Qt::ControlModifier | Qt::KeypadModifier | Qt::GroupSwitchModifier, 0x1000},
        {Qt::MetaModifier | Qt::ShiftModifier | Qt::AltModifier | Qt::ControlModifier, 0x1B00},
    };
    for (const auto& [modifiers, mask] : masks) {
        startByMouse();
        press(keys::a, modifiers);
        EXPECT_EQ(control.shortcut(), (QuickCreateShortcut{0, mask}));
    }
}

TEST_F(ShortcutRecorderControlTest, KeysThatTheToolkitUsesAreTakenLikeAnyOther) {
    const std::vector<SentKey> all{
        keys::tab,
        keys::backtab,
        keys::space,
        keys::backspace,
        {Qt::Key_Return, 36},
        {Qt::Key_Enter, 76},
        {Qt::Key_Left, 123},
        {Qt::Key_Right, 124},
        {Qt::Key_Down, 125},
        {Qt::Key_Up, 126},
        {Qt::Key_Home, 115},
        {Qt::Key_PageUp, 116},
        {Qt::Key_Delete, 117},
        {Qt::Key_F1, 122},
        {Qt::Key_F10, 109},
    };
    for (const auto& key : all) {
        startByMouse();
        EXPECT_TRUE(KeySender::send(control, QEvent::ShortcutOverride, key, Qt::ShiftModifier));
        EXPECT_TRUE(press(key, Qt::ShiftModifier));
        EXPECT_EQ(control.shortcut(), (QuickCreateShortcut{key.keyCode, 0x200}));
        EXPECT_TRUE(control.hasFocus());
    }
}

TEST_F(ShortcutRecorderControlTest, AShortcutOfAMenuIsRecordedWhileWaitingAndElseItsOwn) {
    QAction close;
    close.setShortcut(QKeySequence("Ctrl+W"));
    int closes = 0;
    QObject::connect(&close, &QAction::triggered, [&] { ++closes; });
    window.addAction(&close);
    startByMouse();
    QTest::keyClick(&control, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(closes, 0);
    press(keys::w, Qt::ControlModifier);
    EXPECT_EQ(control.shortcut(), (QuickCreateShortcut{13, 0x1000}));
    QTest::keyClick(&control, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(closes, 1);
}

TEST_F(ShortcutRecorderControlTest, EscapeEndsTheWaitAndChangesNothing) {
    startByMouse();
    EXPECT_TRUE(press(keys::escape, Qt::ShiftModifier));
    EXPECT_FALSE(control.isRecording());
    EXPECT_EQ(control.shortcut(), controlOptionN);
    EXPECT_THAT(recorded, IsEmpty());
    EXPECT_EQ(counted.beeps, 0);
}

TEST_F(ShortcutRecorderControlTest, AKeyWithoutModifierBeepsAndShowsTheHintAndWaitsOn) {
    startByMouse();
    EXPECT_TRUE(press(keys::backspace));
    EXPECT_EQ(counted.beeps, 1);
    EXPECT_EQ(text(), "Add ⌘, ⌃, ⌥, or ⇧");
    EXPECT_TRUE(control.isRecording());
    press(keys::backspace, Qt::MetaModifier);
    EXPECT_THAT(recorded, ElementsAre(QuickCreateShortcut{51, 0x100}));
}

TEST_F(ShortcutRecorderControlTest, ModifiersAloneAreNoKeys) {
    startByMouse();
    for (const auto& key :
         {SentKey{Qt::Key_Control, 59}, SentKey{Qt::Key_Meta, 55}, SentKey{Qt::Key_Alt, 58},
          SentKey{Qt::Key_Shift, 56}, SentKey{Qt::Key_AltGr, 61}, SentKey{Qt::Key_CapsLock, 57},
          // A layout may give them other meanings.
          SentKey{Qt::Key_Multi_key, 62}, SentKey{Qt::Key_Control, 0}}) {
        EXPECT_TRUE(press(key, Qt::ControlModifier));
    }
    EXPECT_EQ(counted.beeps, 0);
    EXPECT_THAT(recorded, IsEmpty());
    EXPECT_EQ(text(), "Press shortcut");
}

TEST_F(ShortcutRecorderControlTest, AKeyThatTheMacintoshDoesNotHaveBeepsAndIsNotRecorded) {
    constexpr std::uint32_t printScreen = 107;
    startByMouse();
    EXPECT_TRUE(KeySender::sendScanCode(control, QEvent::KeyPress, Qt::Key_Print, printScreen,
                                        Qt::ControlModifier));
    EXPECT_EQ(counted.beeps, 1);
    EXPECT_TRUE(control.isRecording());
    EXPECT_THAT(recorded, IsEmpty());
}

TEST_F(ShortcutRecorderControlTest, AHeldKeyCountsOnce) {
    startByMouse();
    press(keys::m, Qt::MetaModifier);
    EXPECT_TRUE(KeySender::send(control, QEvent::KeyPress, keys::m, Qt::MetaModifier,
                                KeySender::Repeat::yes));
    EXPECT_EQ(recorded.size(), 1U);
}

TEST_F(ShortcutRecorderControlTest, AClickElsewhereEndsTheWaitAlsoWhereNothingTakesTheKeyboard) {
    for (auto* const place : {&ground, &before}) {
        startByMouse();
        QTest::mouseClick(place, Qt::LeftButton);
        EXPECT_FALSE(control.isRecording());
        EXPECT_FALSE(control.hasFocus());
    }
    EXPECT_EQ(control.shortcut(), controlOptionN);
    EXPECT_THAT(recorded, IsEmpty());
}

TEST_F(ShortcutRecorderControlTest, LosingTheKeyboardEndsTheWait) {
    startByMouse();
    press(keys::a);
    after.setFocus();
    EXPECT_FALSE(control.isRecording());
    EXPECT_EQ(text(), "⌃ + ⌥ + N");
}

TEST_F(ShortcutRecorderControlTest, TabLeavesItUnlessItWaits) {
    startByKeyboardFocus();
    press(keys::tab);
    EXPECT_TRUE(after.hasFocus());
    startByKeyboardFocus();
    press(keys::backtab, Qt::ShiftModifier);
    EXPECT_TRUE(before.hasFocus());
    EXPECT_THAT(recorded, IsEmpty());

    startByMouse();
    press(keys::tab);
    EXPECT_TRUE(control.hasFocus());
    EXPECT_EQ(text(), "Add ⌘, ⌃, ⌥, or ⇧");
    press(keys::escape);
    press(keys::tab);
    EXPECT_TRUE(after.hasFocus());
}

TEST_F(ShortcutRecorderControlTest, WithTheKeyboardItRecordsAlsoWithoutAClick) {
    startByKeyboardFocus();
    EXPECT_FALSE(control.isRecording());
    press(keys::tab, Qt::ControlModifier);
    press(keys::m, Qt::AltModifier);
    EXPECT_THAT(recorded,
                ElementsAre(QuickCreateShortcut{48, 0x1000}, QuickCreateShortcut{46, 0x800}));
}

TEST_F(ShortcutRecorderControlTest, WithTheKeyboardAnyKeyShowsTheHint) {
    startByKeyboardFocus();
    EXPECT_TRUE(press(keys::space));
    EXPECT_TRUE(control.isRecording());
    EXPECT_EQ(text(), "Add ⌘, ⌃, ⌥, or ⇧");
    EXPECT_EQ(counted.beeps, 1);
}

TEST_F(ShortcutRecorderControlTest, TheHotKeysAreGivenBackUntilTheRecordedKeyIsUp) {
    startByMouse();
    EXPECT_EQ(counted.lasting, 1);
    press(keys::m, Qt::MetaModifier);
    EXPECT_FALSE(control.isRecording());
    EXPECT_EQ(counted.lasting, 1);
    KeySender::send(control, QEvent::KeyRelease, keys::m, Qt::MetaModifier, KeySender::Repeat::yes);
    EXPECT_EQ(counted.lasting, 1) << "a repetition is no release";
    KeySender::release(control, keys::m, Qt::MetaModifier);
    EXPECT_EQ(counted.lasting, 0);
    EXPECT_EQ(counted.suspensions, 1);
}

TEST_F(ShortcutRecorderControlTest, AKeyRecordedWithoutAClickDoesNotActWhileItIsDown) {
    startByKeyboardFocus();
    EXPECT_EQ(counted.lasting, 0);
    int lastingAtChange = 0;
    control.setOnChange([&](const auto&) { lastingAtChange = counted.lasting; });
    press(keys::m, Qt::MetaModifier);
    EXPECT_EQ(lastingAtChange, 1);
    EXPECT_EQ(counted.lasting, 1);
    KeySender::release(control, keys::m, Qt::MetaModifier);
    EXPECT_EQ(counted.lasting, 0);
}

TEST_F(ShortcutRecorderControlTest, EveryEndOfTheWaitTakesTheHotKeysAgain) {
    startByMouse();
    KeySender::click(control, keys::escape);
    EXPECT_EQ(counted.lasting, 0);
    startByMouse();
    press(keys::a);
    after.setFocus();
    EXPECT_EQ(counted.lasting, 0);
    {
        ShortcutRecorderControl other(theme, "Other", counted.services, &window);
        other.beginRecording(Qt::MouseFocusReason);
        EXPECT_EQ(counted.lasting, 1);
    }
    EXPECT_EQ(counted.lasting, 0);
}

TEST_F(ShortcutRecorderControlTest, ScreenReadersSeeAButtonWithTheTextAsItsDescription) {
    auto& interface = accessible(control);
    EXPECT_EQ(interface.role(), QAccessible::Button);
    EXPECT_EQ(accessibleName(control), "Quick Create Shortcut");
    EXPECT_EQ(interface.text(QAccessible::Description), "⌃ + ⌥ + N");
    EXPECT_EQ(interface.text(QAccessible::Value), "⌃ + ⌥ + N");
    EXPECT_TRUE(interface.state().focusable);
    EXPECT_FALSE(interface.state().pressed);

    interface.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(control.isRecording());
    EXPECT_TRUE(control.hasFocus());
    EXPECT_TRUE(interface.state().pressed);
    EXPECT_EQ(interface.text(QAccessible::Description), "Press shortcut");
}

TEST_F(ShortcutRecorderControlTest, WhereNoKeyCanArriveScreenReadersCannotStartTheWait) {
    window.hide();
    accessible(control).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(control.isRecording());
}

TEST_F(ShortcutRecorderControlTest, WaitingIsOutlinedAndTintedInTheAccent) {
    // Within the padding, where no text is.
    const QPoint inside(5, 16);
    const QPoint edge(110, 0);
    control.resize(control.sizeHint());
    EXPECT_EQ(imageOf(control).pixelColor(inside), theme.color(ColorRole::controlBackground));
    EXPECT_EQ(imageOf(control).pixelColor(edge), theme.color(ColorRole::separator));
    startByMouse();
    EXPECT_EQ(
        imageOf(control).pixelColor(inside),
        blended(theme.color(ColorRole::accent, 0.14), theme.color(ColorRole::windowBackground)));
    EXPECT_EQ(imageOf(control).pixelColor(edge), theme.color(ColorRole::accent));
}

TEST_F(ShortcutRecorderControlTest, TheKeyboardIsSeenAlsoWhileItDoesNotWait) {
    control.setAttribute(Qt::WA_UnderMouse, false);
    const auto calm = imageOf(control);
    startByKeyboardFocus();
    EXPECT_NE(imageOf(control), calm);
}

TEST_F(ShortcutRecorderControlTest, ItIs220By32AndGrowsOnlyWithTheFont) {
    EXPECT_EQ(control.sizeHint(), QSize(220, 32));
    control.setUsualSize({180, 32});
    EXPECT_EQ(control.sizeHint(), QSize(180, 32));
    enlargeFont(2);
    EXPECT_GT(control.sizeHint().width(), 180);
    EXPECT_GT(control.sizeHint().height(), 32);
}

struct RecorderTextTest : ShortcutRecorderControlTest {
    static bool hasInk(const QImage& image, int x) {
        for (int y = 4; y < image.height() - 4; ++y) {
            if (image.pixelColor(x, y).lightness() < 160) {
                return true;
            }
        }
        return false;
    }

    /// The first and the last column inside of the outline that has text in it.
    static std::pair<int, int> inked(const QImage& image) {
        int first = 2;
        int last = image.width() - 3;
        while (first < image.width() - 3 && !hasInk(image, first)) {
            ++first;
        }
        while (last > 2 && !hasInk(image, last)) {
            --last;
        }
        return {first, last};
    }
};

TEST_F(RecorderTextTest, TheTextStandsTenPointsInsideWhereTextsBegin) {
    const auto [left, leftEnd] = inked(imageOf(control));
    EXPECT_GE(left, 10);
    EXPECT_LT(left, 16);
    control.setLayoutDirection(Qt::RightToLeft);
    const auto [right, rightEnd] = inked(imageOf(control));
    EXPECT_LT(rightEnd, control.width() - 10);
    EXPECT_GT(rightEnd, control.width() - 18);
    EXPECT_EQ(rightEnd - right, leftEnd - left);
}

TEST_F(RecorderTextTest, TheLongestShortcutFits) {
    control.setUsualSize({180, 32});
    control.resize(180, 32);
    control.setShortcut(QuickCreateShortcut{110, 0x1B00});
    EXPECT_EQ(text(), "⌘ + ⌃ + ⌥ + ⇧ + Key 110");
    EXPECT_LT(inked(imageOf(control)).second, 171);
}

} // namespace
} // namespace blankwell
