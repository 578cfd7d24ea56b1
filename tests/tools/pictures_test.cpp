// The counters of the game folder: every name the game asks for, their size,
// and what they must show where the window puts them, on every hexagon and
// for every sight. The other pictures, as the screens show them, are held by
// the approved shots (tst_golden).
#include <gtest/gtest.h>

#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <set>

#include "engine/geometry.h"
#include "engine/game_state.h"
#include "tests/tools/game_folder.h"

namespace fendle {
namespace {

using testing::gameFile;
namespace geo = geometry;

QImage load(const QString& name) { return QImage(gameFile(name)); }

// Every counter name the game can build for a hexagon loads as a bitmap of
// 32 x 32 pixels.
TEST(Pictures, EveryCounterTheGameNamesLoadsAtItsSize) {
    // Every zone holds primes and others, so all 70 pictures are asked for.
    std::set<std::string> counters;
    for (int n = 1; n <= 100; ++n) {
        for (const PlayerInfo& p : players) counters.insert(counterPicture(n, p.prefix, geo::isListedPrime(n)));
        counters.insert(counterPicture(n, "wh", geo::isListedPrime(n)));
    }
    EXPECT_EQ(counters.size(), 70u);
    // With the marks set: each player's, and the white one with each mark.
    for (int n = 1; n <= 100; ++n)
        for (int p = 0; p < 4; ++p)
            for (bool flash : {false, true}) counters.insert(markedCounterPicture(n, p, flash, geo::isListedPrime(n)));
    EXPECT_EQ(counters.size(), 70u + 112u);
    for (const std::string& c : counters) {
        SCOPED_TRACE(c);
        QImageReader reader(gameFile(QString::fromStdString(c)));
        EXPECT_EQ(reader.format().toStdString(), "bmp");
        const QImage img = reader.read();
        ASSERT_FALSE(img.isNull()) << reader.errorString().toStdString();
        EXPECT_EQ(img.size(), QSize(32, 32));
    }
}

// Board pixel that holds the centre of hexagon n.
QPoint centrePixel(int n) {
    const geo::Point c = geo::hexCentre(n);
    return {static_cast<int>(std::floor(c.x / 15)), static_cast<int>(std::floor(c.y / 15))};
}

int channelGap(QColor a, QColor b) {
    return std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
}

// Where the window puts the counter picture of hexagon n, in board pixels.
QPoint counterOrigin(int n) {
    const geo::LabelPlace p = geo::counterPlace(n);
    return {static_cast<int>(std::lround(p.left / 15)), static_cast<int>(std::lround(p.top / 15))};
}

TEST(CounterPictures, CoverTheirHexagonAndBlendIntoTheBoard) {
    const QImage board = load("Images\\fendle3.bmp");
    ASSERT_FALSE(board.isNull());
    // The counters take the colours of the dice faces, and white for the flash.
    const std::pair<const char*, QColor> owners[] = {
        {"bl", QColor(0, 0, 255)}, {"re", QColor(255, 0, 0)}, {"gr", QColor(0, 255, 0)},
        {"ye", QColor(255, 255, 0)}, {"wh", QColor(255, 255, 255)}};

    for (int n = 1; n <= 100; ++n) {
        const QPoint origin = counterOrigin(n);
        const QPoint centre = centrePixel(n) - origin;
        for (const auto& [prefix, colour] : owners) {
            const std::string name = counterPicture(n, prefix, geo::isListedPrime(n));
            SCOPED_TRACE(name + " on " + std::to_string(n));
            const QImage img = load(QString::fromStdString(name));
            ASSERT_FALSE(img.isNull());
            EXPECT_EQ(img.pixelColor(centre), colour);
            // Its lower corners, outside the hexagon, are of the hexagon's zone.
            EXPECT_EQ(img.pixelColor(0, 31), board.pixelColor(centrePixel(n)));
            EXPECT_EQ(img.pixelColor(31, 31), board.pixelColor(centrePixel(n)));
            // Round the counter, the picture repeats the board beneath it.
            int differing = 0;
            for (int y = 0; y < 32; ++y)
                for (int x = 0; x < 32; ++x) {
                    if (std::hypot(x + 0.5 - centre.x(), y + 0.5 - centre.y()) < 17.5) continue;
                    if (channelGap(img.pixelColor(x, y), board.pixelColor(origin + QPoint(x, y))) > 40)
                        ++differing;
                }
            EXPECT_LE(differing, 12);
        }
    }
}

// Sight with one kind of cone missing, as a matrix on linear RGB: the
// simulation of Machado, Oliveira and Fernandes (2009) at severity 1.0.
struct Vision {
    const char* name;
    double m[3][3];
};
constexpr Vision visions[] = {
    {"normal", {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
    {"protanopia", {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
    {"deuteranopia", {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
    {"tritanopia", {{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}},
};

// The pixels that someone with that sight sees white: each channel 245 or more.
std::vector<bool> whiteSeen(const QImage& img, const Vision& v) {
    auto linear = [](int c) {
        const double s = c / 255.0;
        return s <= 0.04045 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4);
    };
    auto encoded = [](double l) {
        l = std::clamp(l, 0.0, 1.0);
        return 255 * (l <= 0.0031308 ? 12.92 * l : 1.055 * std::pow(l, 1 / 2.4) - 0.055);
    };
    std::vector<bool> white;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x) {
            const QColor c = img.pixelColor(x, y);
            const double in[3] = {linear(c.red()), linear(c.green()), linear(c.blue())};
            bool w = true;
            for (const auto& row : v.m) w = w && encoded(row[0] * in[0] + row[1] * in[1] + row[2] * in[2]) >= 245;
            white.push_back(w);
        }
    return white;
}

// Of two shapes, the part of either that both share.
double shared(const std::vector<bool>& a, const std::vector<bool>& b) {
    int both = 0, either = 0;
    for (std::size_t i = 0; i < a.size(); ++i) both += a[i] && b[i], either += a[i] || b[i];
    return either ? double(both) / either : 1;
}

// Whatever the sight, the four players' counters of a zone differ by the
// shape of their white marks, alone: no two share half of it, each player's
// is the same on every zone, and the unmarked counters show no white at all.
TEST(CounterPictures, MarkedCountersDifferByShapeForEveryColourSight) {
    for (const Vision& v : visions)
        for (const char* twice : {"", "@2x"}) {
            std::vector<std::vector<bool>> first(4);
            for (const Zone& z : zones)
                for (bool prime : {false, true}) {
                    int n = z.low;
                    while (geo::isListedPrime(n) != prime) ++n;
                    SCOPED_TRACE(std::string(v.name) + " " + twice + " " + std::to_string(n));
                    auto white = [&](const std::string& name) {
                        const QImage img = load(QString::fromStdString(name).replace(".bmp", twice[0] ? "@2x.png" : ".bmp"));
                        EXPECT_FALSE(img.isNull()) << name;
                        return whiteSeen(img, v);
                    };
                    std::vector<std::vector<bool>> marks;
                    for (int p = 0; p < 4; ++p) {
                        marks.push_back(white(markedCounterPicture(n, p, false, prime)));
                        EXPECT_GE(std::count(marks[p].begin(), marks[p].end(), true), twice[0] ? 80 : 20) << p;
                        if (first[p].empty()) first[p] = marks[p];
                        EXPECT_GE(shared(marks[p], first[p]), 0.9) << p;
                        const std::vector<bool> plain = white(counterPicture(n, players[std::size_t(p)].prefix, prime));
                        EXPECT_EQ(std::count(plain.begin(), plain.end(), true), 0) << p;
                    }
                    for (int p = 0; p < 4; ++p)
                        for (int q = p + 1; q < 4; ++q) EXPECT_LT(shared(marks[p], marks[q]), 0.5) << p << " and " << q;
                }
        }
}

}  // namespace
}  // namespace fendle
