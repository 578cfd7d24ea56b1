// Every picture of the game folder, drawn with QPainter. The board and all the
// pictures that show a piece of it go through one hexagon painter fed by
// engine/geometry, so a hexagon can never stand elsewhere than its number.
// Needs a QGuiApplication (fonts).
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPointF>
#include <QString>

#include <array>
#include <functional>
#include <vector>

#include "engine/game_state.h"

class QPainter;

namespace fendle::art {

inline QColor qcolor(Rgb c, int alpha = 255) { return QColor(c.r, c.g, c.b, alpha); }

// Board pixels (15 twips each) to picture pixels.
struct View {
    double scale = 1.0;   // picture pixels per board pixel
    QPointF offset;       // where the board's pixel (0, 0) lands
    QPointF at(int n) const;                     // centre of hexagon n
    QPointF map(double twipsX, double twipsY) const;
};

// Hexagon painting. `keep` picks the hexagons to draw (all when empty).
void drawBoard(QPainter& p, const View& v, const std::function<bool(int)>& keep = {});
// One hexagon of a zone colour centred on `centre`, with its outline and,
// for a prime, the grey ring: the counter pictures are cut from this.
void drawCell(QPainter& p, QPointF centre, double scale, Rgb fill, bool prime);
// The number of hexagon n as the window's label shows it: light grey, black
// for a prime, bold, centred a little below the hexagon's centre.
void drawNumber(QPainter& p, const View& v, int n);
// A round playing counter; `primeRing` adds the grey ring of a prime.
void drawCounter(QPainter& p, QPointF centre, double radius, QColor colour, bool primeRing);
// The mark of player 0 to 3 on a counter of `radius`, which tells the
// players' counters apart without their colours: blue a plus, red a ring,
// green a dot, yellow a cross. Drawn in `fill` with an edge of `edge`.
void drawMark(QPainter& p, QPointF centre, double radius, int player, QColor fill, QColor edge);
void drawDie(QPainter& p, QPointF centre, double size, double degrees, int value, QColor face,
             QColor pip);

QFont arialFont(double pixels, bool bold = true);
QFont tahomaFont(double pixels, bool bold = true);

// Counter radius and the centre of the hexagon inside a 32 x 32 counter
// picture: the picture stands 45 twips left of and 90 above its number label,
// whose anchor lies at half its width and 0.4 of its height.
inline constexpr double counterRadius = 13.0;
inline const QPointF counterCentre{(240.0 + 45.0) / 15.0, (192.0 + 90.0) / 15.0};

// The pictures, each at the size its window shows it. `ratio` draws the same
// picture with that many pixels to each of its own, for screens at a larger
// scale: 2 gives the "@2x" files.
QImage boardPicture(int ratio = 1);                                         // 800 x 600
// A counter with the mark of `mark` (a player 0 to 3), or none for -1: white
// on a player's counter, dark on the white one that flashes over it.
QImage counterPicture(int zone, QColor counter, bool prime, int ratio = 1, int mark = -1); // 32 x 32
QImage ballPicture(int zone, int ratio = 1);                                // 56 x 56
QImage titlePicture(int ratio = 1);                                         // 320 x 240
QImage logoPicture(int ratio = 1);                                          // 100 x 139
QImage startPicture(const QString& phrase, int ratio = 1);                  // 189 x 235
QImage boardViewPicture(int ratio = 1);                                     // 399 x 248
QImage fendlePicture(int ratio = 1);                                        // 166 x 188
QImage doubleFendlePicture(int ratio = 1);                                  // 217 x 190
QImage endPicture(int ratio = 1);                                           // 397 x 248

// The program's icon, drawn in a square of `size` pixels on a clear ground:
// a tile of the board's blue with a triangle of three hexagons, each with a
// counter, as a bonus move makes it. Below 32 pixels the counters are left
// out, so that the hexagons stay clear.
void drawIcon(QPainter& p, double size);
QImage iconPicture(int size);
// The sizes of the icon theme the icon is written in, besides the scalable one.
inline constexpr std::array<int, 9> iconSizes = {16, 22, 24, 32, 48, 64, 128, 256, 512};

// Page 1 of each set of rules shows its own phrase.
struct StartPicture {
    const char* file;
    const char* phrase;   // UTF-8
};
inline constexpr std::array<StartPicture, 7> startPictures = {{
    {"start.jpg", "Throw the dice!"},
    {"startfr.jpg", "Lancez les dés !"},
    {"startge.jpg", "Wirf die Würfel!"},
    {"startsp.jpg", "¡Lanza los dados!"},
    {"startit.jpg", "Lancia i dadi!"},
    {"startdu.jpg", "Gooi de dobbelstenen!"},
    {"startwe.jpg", "Taflwch y dis!"},
}};

// The hexagons of the joining path in the last rules picture, from 1 to 100.
std::vector<int> endPath();

}  // namespace fendle::art
