#include "widgets/Symbols.h"

#include "base/Overloaded.h"
#include "filetypes/FileTypeCatalog.h"
#include "shell/StatusMenu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace blankwell {
namespace {

using testing::Contains;
using testing::Key;

std::string contentsOf(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

std::vector<std::pair<std::string, std::string>> tableRows() {
    std::vector<std::pair<std::string, std::string>> rows;
    std::ifstream table(BLANKWELL_SYMBOL_TABLE);
    for (std::string name, file; table >> name >> file;) {
        rows.emplace_back(name, file);
    }
    return rows;
}

std::map<std::string, std::string> table() {
    const auto rows = tableRows();
    return {rows.begin(), rows.end()};
}

/// The words with dots between quotes in the parts of the program that name symbols.
std::set<std::string> dottedNamesInSources() {
    std::set<std::string> names;
    const std::regex dotted("\"([a-z0-9]+(\\.[a-z0-9]+)+)\"");
    for (const auto* layer :
         {"filetypes", "settings", "access", "quickcreate", "shell", "views", "widgets"}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(
                 std::filesystem::path(BLANKWELL_SOURCES) / layer)) {
            const auto text = entry.is_regular_file() ? contentsOf(entry) : "";
            for (std::sregex_iterator match(text.begin(), text.end(), dotted), end; match != end;
                 ++match) {
                names.insert((*match)[1]);
            }
        }
    }
    names.erase("mimeapps.list"); // a file
    return names;
}

QImage drawn(std::string_view name, int side, double ratio, const QColor& color) {
    QImage image(QSize(side, side) * ratio, QImage::Format_ARGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawSymbol(painter, name, QRectF(0, 0, side, side), color);
    return image;
}

/// The share of the pixels that the drawing covers.
double coverage(const QImage& image) {
    double covered = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            covered += image.pixelColor(x, y).alphaF();
        }
    }
    return covered / (image.width() * image.height());
}

TEST(SymbolTableTest, NamesAndDrawingsAreOneToOne) {
    std::set<std::string> names;
    std::set<std::string> files;
    for (const auto& [name, file] : tableRows()) {
        EXPECT_TRUE(names.insert(name).second) << name << " is there twice";
        EXPECT_TRUE(files.insert(file).second) << file << " is there twice";
    }
    EXPECT_EQ(names.size(), 45U);
}

TEST(SymbolTableTest, EverySymbolIsDrawnAtEveryScale) {
    for (const auto& [name, file] : table()) {
        for (const double ratio : {1.0, 1.5, 2.0}) {
            const auto share = coverage(drawn(name, 16, ratio, Qt::black));
            EXPECT_GT(share, 0.04) << name << " at " << ratio;
            EXPECT_LT(share, 0.95) << name << " at " << ratio;
        }
    }
}

TEST(SymbolTableTest, NoTwoSymbolsLookTheSame) {
    std::map<std::string, std::string> seen;
    for (const auto& [name, file] : table()) {
        const auto image = drawn(name, 32, 1, Qt::black);
        const std::string pixels(reinterpret_cast<const char*>(image.constBits()),
                                 static_cast<std::size_t>(image.sizeInBytes()));
        const auto [first, isNew] = seen.emplace(pixels, name);
        EXPECT_TRUE(isNew) << name << " looks like " << first->second;
    }
}

TEST(SymbolTableTest, EverySymbolThatTheProgramNamesIsThere) {
    const auto symbols = table();
    for (const auto& type : FileTypeCatalog::builtInTypes()) {
        EXPECT_THAT(symbols, Contains(Key(type.sfSymbolName)));
    }
    const auto names = dottedNamesInSources();
    EXPECT_THAT(names, Contains("plus.square.on.square")); // the search finds something
    for (const auto& name : names) {
        EXPECT_THAT(symbols, Contains(Key(name)));
    }
}

TEST(SymbolsTest, ASymbolHasTheColourItIsDrawnIn) {
    const auto image = drawn("doc.fill", 32, 1, Qt::red);
    EXPECT_EQ(image.pixelColor(16, 20), QColor(Qt::red));
    EXPECT_EQ(drawn("doc.fill", 32, 1, Qt::blue).pixelColor(16, 20), QColor(Qt::blue));
}

TEST(SymbolsTest, OnAScaledDisplayItHasAllPixels) {
    // Twice as sharp, not twice as large: scaled up, the rows would be there in pairs.
    const auto image = drawn("chevron.right", 16, 2, Qt::black);
    bool isPaired = true;
    for (int y = 0; y < image.height(); y += 2) {
        for (int x = 0; x < image.width(); ++x) {
            isPaired = isPaired && image.pixel(x, y) == image.pixel(x, y + 1);
        }
    }
    EXPECT_FALSE(isPaired);
}

TEST(SymbolsTest, BetweenPixelsASymbolIsAsSharpAsOnThem) {
    QImage shifted(20, 20, QImage::Format_ARGB32);
    shifted.fill(Qt::transparent);
    QPainter painter(&shifted);
    drawSymbol(painter, "tablecells", QRectF(0.3, 0.3, 16, 16), Qt::black);
    painter.end();
    EXPECT_EQ(shifted.copy(0, 0, 16, 16), drawn("tablecells", 16, 1, Qt::black));
}

TEST(SymbolsTest, AnUnknownSymbolDrawsNothingAndIsNoIcon) {
    EXPECT_FALSE(hasSymbol("no.such.symbol"));
    EXPECT_EQ(coverage(drawn("no.such.symbol", 16, 1, Qt::black)), 0);
    EXPECT_TRUE(symbolIcon("no.such.symbol").isNull());
}

TEST(SymbolsTest, AnIconHasTheColourOfTextsWheneverItIsDrawn) {
    const auto before = QGuiApplication::palette();
    const auto icon = symbolIcon("doc.fill");
    for (const auto& color : {QColor(Qt::black), QColor(Qt::white)}) {
        auto palette = before;
        palette.setColor(QPalette::WindowText, color);
        QGuiApplication::setPalette(palette);
        const auto image = icon.pixmap(QSize(32, 32)).toImage();
        EXPECT_EQ(image.pixelColor(16, 20), color);
    }
    QGuiApplication::setPalette(before);
}

} // namespace
} // namespace blankwell
