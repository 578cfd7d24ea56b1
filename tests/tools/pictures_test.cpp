// The pictures of the game folder: every name the game asks for, their sizes,
// and what the board and the counters must show where the window puts them.
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QRect>

#include <cmath>
#include <set>

#include "board/geometry.h"
#include "engine/game_state.h"
#include "tests/tools/game_folder.h"
#include "tools/palette.h"

namespace fendle {
namespace {

using testing::channelGap;
using testing::gameFile;
using testing::toColour;
namespace geo = geometry;

QImage load(const QString& name) { return QImage(gameFile(name)); }

struct PictureCase {
    const char* name;
    int width, height;
    const char* format;
};

TEST(Pictures, EveryNamedPictureLoadsAtTheSizeItsWindowShows) {
    std::vector<PictureCase> cases = {
        {"Images\\fendle3.bmp", 800, 600, "bmp"},
        {"Images\\fendlemd.bmp", 320, 240, "bmp"},
        {"Images\\logo2.jpg", 100, 139, "jpeg"},
        {"images\\start.jpg", 189, 235, "jpeg"},
        {"images\\startfr.jpg", 189, 235, "jpeg"},
        {"images\\startge.jpg", 189, 235, "jpeg"},
        {"images\\startsp.jpg", 189, 235, "jpeg"},
        {"images\\startit.jpg", 189, 235, "jpeg"},
        {"images\\startdu.jpg", 189, 235, "jpeg"},
        {"images\\startwe.jpg", 189, 235, "jpeg"},
        {"images\\board.jpg", 399, 248, "jpeg"},
        {"images\\fendle.jpg", 166, 188, "jpeg"},
        {"images\\doublefendle.jpg", 217, 190, "jpeg"},
        {"images\\end.jpg", 397, 248, "jpeg"},
        {"Balls\\reball.bmp", 56, 56, "bmp"},
        {"Balls\\maball.bmp", 56, 56, "bmp"},
        {"Balls\\grball.bmp", 56, 56, "bmp"},
        {"Balls\\blball.bmp", 56, 56, "bmp"},
        {"Balls\\yeball.bmp", 56, 56, "bmp"},
        {"Balls\\cyball.bmp", 56, 56, "bmp"},
        {"Balls\\coball.bmp", 56, 56, "bmp"},
    };
    // Every counter name the game can build for a hexagon.
    std::set<std::string> counters;
    for (int n = 1; n <= 100; ++n) {
        for (const PlayerInfo& p : players) counters.insert(counterPicture(n, p.prefix, geo::isListedPrime(n)));
        counters.insert(counterPicture(n, "wh", geo::isListedPrime(n)));
    }
    // Every zone holds primes and others, so all 70 pictures are asked for.
    EXPECT_EQ(counters.size(), 70u);
    for (const std::string& c : counters) cases.push_back({c.c_str(), 32, 32, "bmp"});

    for (const PictureCase& c : cases) {
        SCOPED_TRACE(c.name);
        QImageReader reader(gameFile(QString::fromLatin1(c.name)));
        EXPECT_EQ(reader.format().toStdString(), c.format);
        const QImage img = reader.read();
        ASSERT_FALSE(img.isNull()) << reader.errorString().toStdString();
        EXPECT_EQ(img.width(), c.width);
        EXPECT_EQ(img.height(), c.height);
    }
}

TEST(Pictures, EachRulesSetHasItsOwnStartPicture) {
    const char* names[] = {"start", "startfr", "startge", "startsp", "startit", "startdu", "startwe"};
    std::set<QByteArray> seen;
    for (const char* n : names) {
        QFile f(gameFile(QStringLiteral("images/%1.jpg").arg(QLatin1String(n))));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << n;
        EXPECT_TRUE(seen.insert(f.readAll()).second) << n << " is the same picture as another set's";
    }
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
    for (int n = 1; n <= 100; ++n) {
        SCOPED_TRACE(n);
        const QColor zone = toColour(art::zoneColour(n));
        const QPoint c = centrePixel(n);
        EXPECT_EQ(board.pixelColor(c), zone);
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
}

TEST(BoardPicture, LegendButtonsAndMessagesStandOnPlainBackground) {
    const QImage board = load("Images\\fendle3.bmp");
    ASSERT_FALSE(board.isNull());
    const QColor bg = toColour(art::background);
    // In twips: left, top, right, bottom.
    const struct {
        const char* what;
        int l, t, r, b;
    } areas[] = {
        {"zone balls", 90, 120, 900, 5970},
        {"throw dice button", 1020, 120, 3375, 615},
        {"dice", 1440, 720, 2775, 1815},
        {"chart button", 1080, 1920, 3135, 2295},
        {"top band of messages and banner", 0, 0, 12000, 800},
        {"bottom band of buttons and clocks", 0, 8200, 12000, 9000},
    };
    for (const auto& area : areas) {
        int wrong = 0;
        for (int y = area.t / 15; y < std::min(600, area.b / 15); ++y)
            for (int x = area.l / 15; x < std::min(800, area.r / 15); ++x)
                if (board.pixelColor(x, y) != bg) ++wrong;
        EXPECT_EQ(wrong, 0) << area.what;
    }
}

// Where the window puts the counter picture of hexagon n, in board pixels.
QPoint counterOrigin(int n) {
    const geo::LabelPlace p = geo::counterPlace(n);
    return {static_cast<int>(std::lround(p.left / 15)), static_cast<int>(std::lround(p.top / 15))};
}

TEST(CounterPictures, CoverTheirHexagonAndBlendIntoTheBoard) {
    const QImage board = load("Images\\fendle3.bmp");
    ASSERT_FALSE(board.isNull());
    struct Owner {
        const char* prefix;
        QColor colour;
    };
    std::vector<Owner> owners;
    for (const PlayerInfo& p : players) owners.push_back({p.prefix, toColour(p.face)});
    owners.push_back({"wh", QColor(Qt::white)});

    for (int n = 1; n <= 100; ++n) {
        const QPoint origin = counterOrigin(n);
        const QPoint centre = centrePixel(n) - origin;
        const QColor zone = toColour(art::zoneColour(n));
        for (const Owner& o : owners) {
            const std::string name = counterPicture(n, o.prefix, geo::isListedPrime(n));
            SCOPED_TRACE(name + " on " + std::to_string(n));
            const QImage img = load(QString::fromStdString(name));
            ASSERT_FALSE(img.isNull());
            EXPECT_EQ(img.pixelColor(centre), o.colour);
            EXPECT_EQ(img.pixelColor(0, 31), zone);
            EXPECT_EQ(img.pixelColor(31, 31), zone);
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
    const char* order[] = {"co", "cy", "ye", "bl", "gr", "ma", "re"};
    for (int z = 0; z < 7; ++z) {
        SCOPED_TRACE(order[z]);
        const QImage ball = load(QStringLiteral("Balls/%1ball.bmp").arg(QLatin1String(order[z])));
        ASSERT_FALSE(ball.isNull());
        const QColor bg = toColour(art::background);
        for (QPoint corner : {QPoint(0, 0), QPoint(55, 0), QPoint(0, 55)}) EXPECT_EQ(ball.pixelColor(corner), bg);
        // Under the reward label, the ball is of its zone's colour family.
        const QColor zone = toColour(art::zoneColours[static_cast<std::size_t>(z)]);
        EXPECT_LE(channelGap(ball.pixelColor(30, 30), zone), 60) << ball.pixelColor(30, 30).name().toStdString();
    }
}

// WCAG contrast of two colours.
double contrast(Rgb a, Rgb b) {
    auto lum = [](Rgb c) {
        auto ch = [](int v) {
            const double s = v / 255.0;
            return s <= 0.03928 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * ch(c.r) + 0.7152 * ch(c.g) + 0.0722 * ch(c.b);
    };
    const double x = lum(a) + 0.05, y = lum(b) + 0.05;
    return std::max(x, y) / std::min(x, y);
}

double distance(Rgb a, Rgb b) { return std::hypot(a.r - b.r, a.g - b.g, a.b - b.b); }

TEST(Palette, NumbersStayReadableAndZonesApart) {
    for (std::size_t z = 0; z < art::zoneColours.size(); ++z) {
        SCOPED_TRACE(zones[z].prefix);
        const Rgb c = art::zoneColours[z];
        // The labels are bold and 21 pixels high: large text.
        EXPECT_GE(contrast(c, colour::numberGrey), 2.4);
        EXPECT_GE(contrast(c, colour::black), 3.2);
        EXPECT_GT(distance(c, art::background), 55);
        EXPECT_GT(distance(c, art::primeBorder), 55);
        for (std::size_t w = z + 1; w < art::zoneColours.size(); ++w)
            EXPECT_GT(distance(c, art::zoneColours[w]), 55) << zones[w].prefix;
    }
}

TEST(EndPicture, CountersLieUnderTheLinesThePageDraws) {
    const QImage end = load("images\\end.jpg");
    ASSERT_FALSE(end.isNull());
    // Corners of the white lines on the last rules page, and the picture's
    // top left corner on that page, in twips.
    const QPoint corners[] = {{6150, 7050}, {7170, 5280}, {7995, 5280},  {8610, 4200},
                              {9810, 4200}, {10050, 4560}, {11250, 4560}, {11670, 3840}};
    const QPoint pictureAt(5940, 3600);
    for (QPoint c : corners) {
        const QPoint px = (c - pictureAt) / 15;
        int best = 255;
        for (const PlayerInfo& p : players) best = std::min(best, channelGap(end.pixelColor(px), toColour(p.face)));
        EXPECT_LE(best, 45) << "no counter under (" << c.x() << ", " << c.y() << "): "
                            << end.pixelColor(px).name().toStdString();
    }
}

}  // namespace
}  // namespace fendle
