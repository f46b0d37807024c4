#pragma once

#include "support/FakeAppearance.h"
#include "widgets/Theme.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QTest>
#include <QWidget>

namespace blankwell {

/// A theme and a shown window for the widget that a test is about.
struct WidgetTest : testing::Test {
    ~WidgetTest() override { QApplication::setFont(font); }

    /// Shows `widget`, which the test keeps, in the active window.
    static void show(QWidget& widget) {
        widget.show();
        widget.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&widget));
    }

    static QAccessibleInterface& accessible(QWidget& widget) {
        return *QAccessible::queryAccessibleInterface(&widget);
    }

    static QString accessibleName(QWidget& widget) {
        return accessible(widget).text(QAccessible::Name);
    }

    static QImage imageOf(QWidget& widget) { return widget.grab().toImage(); }

    static void enlargeFont(double factor) {
        auto larger = QApplication::font();
        larger.setPointSizeF(larger.pointSizeF() * factor);
        QApplication::setFont(larger);
    }

    QFont font = QApplication::font();
    FakeAppearance desktop;
    Theme theme{desktop};
};

} // namespace blankwell
