#include "widgets/Colors.h"

#include <gtest/gtest.h>

#include <vector>

namespace blankwell {
namespace {

/// The accents that a desktop may have, and none.
std::vector<std::optional<AccentColor>> accents() {
    std::vector<std::optional<AccentColor>> result{std::nullopt};
    for (const double red : {0.0, 0.5, 1.0}) {
        for (const double green : {0.0, 0.5, 1.0}) {
            for (const double blue : {0.0, 0.5, 1.0}) {
                result.emplace_back(AccentColor{.red = red, .green = green, .blue = blue});
            }
        }
    }
    return result;
}

struct ColorsTest : testing::TestWithParam<ColorScheme> {
    [[nodiscard]] QColor color(ColorRole role) const { return colorOf(role, appearance); }

    [[nodiscard]] QColor color(ColorRole role, double opacity) const {
        auto result = color(role);
        result.setAlphaF(static_cast<float>(opacity));
        return result;
    }

    void expectReadable(ColorRole text, const QColor& ground) const {
        EXPECT_GE(contrast(color(text), ground), readableContrast)
            << color(text).name().toStdString() << " on " << ground.name().toStdString();
    }

    DesktopAppearance appearance{.scheme = GetParam(), .accent = std::nullopt};
};

INSTANTIATE_TEST_SUITE_P(Schemes, ColorsTest,
                         testing::Values(ColorScheme::light, ColorScheme::dark),
                         [](const auto& scheme) {
                             return scheme.param == ColorScheme::dark ? "Dark" : "Light";
                         });

TEST(ContrastTest, IsThatOfTheAccessibilityGuidelines) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrast(Qt::white, Qt::black), 21, 0.01);
    EXPECT_NEAR(contrast(QColor("#777777"), Qt::white), 4.48, 0.01);
    EXPECT_EQ(contrast(Qt::red, Qt::red), 1);
}

TEST(ContrastTest, ATranslucentColourLetsItsGroundThrough) {
    QColor veil(Qt::black);
    veil.setAlphaF(0.2F);
    EXPECT_EQ(blended(veil, Qt::white), QColor("#cccccc"));
    EXPECT_EQ(blended(Qt::red, Qt::white), QColor(Qt::red));
}

TEST_P(ColorsTest, EveryRoleHasAColour) {
    for (const auto role : allColorRoles) {
        EXPECT_EQ(color(role).alpha(), 255);
    }
}

TEST_P(ColorsTest, LabelsAndWarningsAreReadableOnWindowsAndControls) {
    for (const auto ground : {ColorRole::windowBackground, ColorRole::controlBackground}) {
        for (const auto text : {ColorRole::label, ColorRole::secondaryLabel,
                                ColorRole::tertiaryLabel, ColorRole::red}) {
            expectReadable(text, color(ground));
        }
    }
}

TEST_P(ColorsTest, SegmentsAreReadable) {
    expectReadable(ColorRole::label, color(ColorRole::selectedSegment));
    expectReadable(ColorRole::secondaryLabel, color(ColorRole::segmentedTrack));
    expectReadable(ColorRole::label, color(ColorRole::segmentedTrack));
}

TEST_P(ColorsTest, TextOnEveryAccentIsReadable) {
    for (const auto& accent : accents()) {
        appearance.accent = accent;
        expectReadable(ColorRole::textOnAccent, color(ColorRole::accent));
    }
}

TEST_P(ColorsTest, LabelsOnATintOfEveryAccentAreReadable) {
    const auto tileGround =
        blended(color(ColorRole::controlBackground, 0.78), color(ColorRole::windowBackground));
    expectReadable(ColorRole::secondaryLabel, tileGround);
    for (const auto& accent : accents()) {
        appearance.accent = accent;
        const auto tint = color(ColorRole::accent, 0.1);
        for (const auto ground : {ColorRole::windowBackground, ColorRole::controlBackground}) {
            expectReadable(ColorRole::label, blended(tint, color(ground)));
            expectReadable(ColorRole::secondaryLabel, blended(tint, color(ground)));
        }
    }
}

TEST_P(ColorsTest, SymbolsInEveryAccentAreSeen) {
    constexpr double seenContrast = 3;
    for (const auto& accent : accents()) {
        appearance.accent = accent;
        for (const auto ground : {ColorRole::windowBackground, ColorRole::controlBackground}) {
            EXPECT_GE(contrast(color(ColorRole::accent), color(ground)), seenContrast);
        }
    }
}

TEST(AccentTest, AnAccentThatTextCanBeReadOnStaysAsTheDesktopHasIt) {
    const AccentColor darkGreen{.red = 0, .green = 0.4, .blue = 0.2};
    EXPECT_EQ(colorOf(ColorRole::accent, {.scheme = ColorScheme::light, .accent = darkGreen}),
              QColor("#006633"));
}

TEST(AccentTest, AnAccentIsChangedNoMoreThanNeeded) {
    const AccentColor yellow{.red = 1, .green = 1, .blue = 0};
    const auto adjusted =
        colorOf(ColorRole::accent, {.scheme = ColorScheme::light, .accent = yellow});
    EXPECT_LT(contrast(adjusted, Qt::white), 4.8);
    EXPECT_EQ(adjusted.hue(), QColor(Qt::yellow).hue());
}

} // namespace
} // namespace blankwell
