// The pictures of the game folder: every name the game asks for, their sizes,
// and what the board and the counters must show where the window puts them.
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QRect>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <set>

#include "engine/geometry.h"
#include "engine/game_state.h"
#include "tests/tools/game_folder.h"

namespace fendle {
namespace {

using testing::gameFile;
namespace geo = geometry;

QImage load(const QString& name) { return QImage(gameFile(name)); }
QByteArray readAll(const std::string& name) {
    QFile f(gameFile(QString::fromStdString(name)));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

TEST(Pictures, EveryNamedPictureLoadsAtTheSizeItsWindowShows) {
    struct Case { std::string name; int width, height; const char* format; };
    std::vector<Case> cases = {
        {"Images\\fendle3.bmp", 800, 600, "bmp"},         {"Images\\fendlemd.bmp", 320, 240, "bmp"},
        {"Images\\logo2.jpg", 100, 139, "jpeg"},          {"images\\board.jpg", 399, 248, "jpeg"},
        {"images\\fendle.jpg", 166, 188, "jpeg"},         {"images\\doublefendle.jpg", 217, 190, "jpeg"},
        {"images\\end.jpg", 397, 248, "jpeg"},
    };
    for (const char* set : {"", "fr", "ge", "sp", "it", "du", "we"})
        cases.push_back({"images\\start" + std::string(set) + ".jpg", 189, 235, "jpeg"});
    for (const char* zone : {"re", "ma", "gr", "bl", "ye", "cy", "co"})
        cases.push_back({"Balls\\" + std::string(zone) + "ball.bmp", 56, 56, "bmp"});
    // Every counter name the game can build for a hexagon: every zone holds
    // primes and others, so all 70 pictures are asked for.
    std::set<std::string> counters;
    for (int n = 1; n <= 100; ++n) {
        for (const PlayerInfo& p : players) counters.insert(counterPicture(n, p.prefix, geo::isListedPrime(n)));
        counters.insert(counterPicture(n, "wh", geo::isListedPrime(n)));
    }
    EXPECT_EQ(counters.size(), 70u);
    for (const std::string& c : counters) cases.push_back({c, 32, 32, "bmp"});

    std::set<QByteArray> startPictures;   // each set of rules has its own
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        QImageReader reader(gameFile(QString::fromStdString(c.name)));
        EXPECT_EQ(reader.format().toStdString(), c.format);
        const QImage img = reader.read();
        ASSERT_FALSE(img.isNull()) << reader.errorString().toStdString();
        EXPECT_EQ(img.size(), QSize(c.width, c.height));
        EXPECT_TRUE(!c.name.starts_with("images\\start") || startPictures.insert(readAll(c.name)).second);
    }
}

// The seven zones as a player names their colours, each a band of hue (in
// degrees, red at 0) that no other zone's band touches, stated here apart
// from the generator.
struct ZoneHue {
    int low, high;       // first and last number of the zone
    const char* name;
    int from, to;        // hue band; from > to wraps past 0
    bool holds(int hue) const { return from <= to ? hue >= from && hue <= to : hue >= from || hue <= to; }
};
const ZoneHue zoneHues[] = {
    {1, 15, "orange", 15, 45},   {16, 28, "cyan", 165, 200},   {29, 45, "yellow", 46, 70},
    {46, 64, "blue", 215, 255},  {65, 79, "green", 95, 150},   {80, 90, "magenta", 270, 320},
    {91, 100, "red", 345, 12},
};
const ZoneHue& zoneHueOf(int n) {
    for (const ZoneHue& z : zoneHues)
        if (n >= z.low && n <= z.high) return z;
    return zoneHues[0];
}
// A clear colour of its zone: its hue in the band, neither grey nor too
// dark or pale for the grey and the black numbers on it.
::testing::AssertionResult ofZone(QColor c, const ZoneHue& z) {
    if (z.holds(c.hsvHue()) && c.hsvSaturationF() > 0.45 && c.valueF() > 0.45 && c.valueF() < 0.9)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << c.name().toStdString() << " (hue " << c.hsvHue() << ") is no clear " << z.name;
}

// Board pixel that holds the centre of hexagon n.
QPoint centrePixel(int n) {
    const geo::Point c = geo::hexCentre(n);
    return {static_cast<int>(std::floor(c.x / 15)), static_cast<int>(std::floor(c.y / 15))};
}

bool isGrey(QColor c) {
    return std::abs(c.red() - c.green()) < 12 && std::abs(c.green() - c.blue()) < 12 && c.red() > 120 &&
           c.red() < 210;
}

TEST(BoardPicture, EachHexagonHasItsZoneColourAndPrimesAGreyBorder) {
    const QImage board = load("Images\\fendle3.bmp");
    ASSERT_FALSE(board.isNull());
    const double apothem = geo::hexhalfwidth / 15;
    std::map<const ZoneHue*, QColor> seen;   // one colour for all hexagons of a zone
    for (int n = 1; n <= 100; ++n) {
        SCOPED_TRACE(n);
        const QColor zone = board.pixelColor(centrePixel(n));
        EXPECT_TRUE(ofZone(zone, zoneHueOf(n)));
        EXPECT_EQ(seen.emplace(&zoneHueOf(n), zone).first->second, zone);
        // Just inside each of the six sides.
        const geo::Point centre = geo::hexCentre(n);
        for (int side = 0; side < 6; ++side) {
            const double a = side * 60.0 * 3.14159265358979 / 180.0;
            const double d = apothem - 2.3;
            const QPoint at(static_cast<int>(std::floor(centre.x / 15 + d * std::cos(a))),
                            static_cast<int>(std::floor(centre.y / 15 + d * std::sin(a))));
            const QColor px = board.pixelColor(at);
            if (geo::isListedPrime(n))
                EXPECT_TRUE(isGrey(px)) << "side " << side << ": " << px.name().toStdString();
            else
                EXPECT_EQ(px, zone) << "side " << side;
        }
    }
    // The blue zone stands apart from the blue of the window round the board.
    EXPECT_GE(std::abs(seen[&zoneHueOf(50)].hsvHue() - QColor(49, 135, 215).hsvHue()), 20);
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
            EXPECT_TRUE(ofZone(img.pixelColor(0, 31), zoneHueOf(n)));
            EXPECT_TRUE(ofZone(img.pixelColor(31, 31), zoneHueOf(n)));
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

TEST(Balls, AreRoundBallsOfTheirZoneOnTheWindowColour) {
    const std::pair<const char*, int> balls[] = {{"co", 1}, {"cy", 16}, {"ye", 29}, {"bl", 46},
                                                 {"gr", 65}, {"ma", 80}, {"re", 91}};
    for (const auto& [zone, number] : balls) {
        const QImage ball = load(QStringLiteral("Balls/%1ball.bmp").arg(QLatin1String(zone)));
        ASSERT_FALSE(ball.isNull()) << zone;
        EXPECT_EQ(ball.pixelColor(0, 0), QColor(49, 135, 215)) << zone;
        // Under the reward label, the ball is of its zone's hue.
        const QColor under = ball.pixelColor(30, 30);
        EXPECT_TRUE(zoneHueOf(number).holds(under.hsvHue()))
            << zone << ": " << under.name().toStdString() << " is no " << zoneHueOf(number).name;
    }
}

}  // namespace
}  // namespace fendle
