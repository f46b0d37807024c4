#pragma once

#include "platform/AppWindows.h"
#include "platform/QuickCreatePanelWindow.h"
#include "platform/Screens.h"
#include "support/EventLog.h"

#include <set>

namespace blankwell {

/// The application's windows by their titles.
class FakeAppWindows : public AppWindows {
public:
    explicit FakeAppWindows(EventLog& events) : events_(events) {}

    bool makeKeyAndOrderFront(std::string_view title) override {
        if (!titles.contains(title)) {
            return false;
        }
        events_.push_back("front " + std::string(title));
        return true;
    }

    std::set<std::string, std::less<>> titles;

private:
    EventLog& events_;
};

/// One display of 1440 by 900 points with a bar of 25 at its top, and the pointer in its middle.
class FakeScreens : public Screens {
public:
    std::optional<Point> pointerLocation() const override { return pointer; }

    std::vector<Screen> screens() const override { return all; }

    std::optional<Screen> mainScreen() const override { return main; }

    std::optional<Point> pointer = Point{720, 450};
    std::vector<Screen> all{
        {.frame = {{0, 0}, {1440, 900}}, .visibleFrame = {{0, 0}, {1440, 875}}}};
    std::optional<Screen> main = all.front();
};

/// A panel's window, whose frame is its content until it is set.
class FakeQuickCreatePanelWindow : public QuickCreatePanelWindow {
public:
    FakeQuickCreatePanelWindow(EventLog& events, const QuickCreatePanelConfiguration& made)
        : configuration(made), currentFrame{.size = made.contentSize}, events_(events) {}

    Rect frame() const override { return currentFrame; }

    void setFrame(const Rect& frame) override {
        events_.emplace_back("place panel");
        currentFrame = frame;
    }

    void makeKeyAndOrderFront() override {
        events_.emplace_back("show panel");
        visible = true;
    }

    void orderOut() override {
        events_.emplace_back("hide panel");
        visible = false;
    }

    bool isVisible() const override { return visible; }

    QuickCreatePanelConfiguration configuration;
    Rect currentFrame;
    bool visible = false;

private:
    EventLog& events_;
};

} // namespace blankwell
