#include "tools/artwork.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QRadialGradient>
#include <QTransform>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <stdexcept>

#include "engine/geometry.h"
#include "tools/palette.h"

namespace fendle::art {

namespace geo = fendle::geometry;

namespace {

constexpr double twipsPerPixel = 15.0;
const double hexRadius = geo::hexside / twipsPerPixel;      // 31.4 board pixels
const double hexApothem = geo::hexhalfwidth / twipsPerPixel;  // 27.19 board pixels
constexpr double outlineWidth = 1.3;
constexpr double ringWidth = 3.2;

// Player colours in their fixed order: blue, red, green, yellow.
QColor player(int i) { return qcolor(players[static_cast<std::size_t>(i)].face); }

// Points up and down; corners at -90, -30, 30, 90, 150 and 210 degrees.
QPolygonF hexagon(QPointF c, double radius) {
    QPolygonF poly;
    for (int k = 0; k < 6; ++k) {
        const double a = (-90.0 + 60.0 * k) * std::numbers::pi / 180.0;
        poly << QPointF(c.x() + radius * std::cos(a), c.y() + radius * std::sin(a));
    }
    return poly;
}

// The grey ring of a prime runs just inside the outline.
double ringRadius(double scale) {
    const double apothem = (hexApothem - outlineWidth / 2 - ringWidth / 2) * scale;
    return apothem * 2.0 / std::sqrt(3.0);
}

void fillHexagon(QPainter& p, QPointF c, double scale, Rgb fill) {
    p.setPen(Qt::NoPen);
    p.setBrush(qcolor(fill));
    p.drawPolygon(hexagon(c, hexRadius * scale));
}

void primeRing(QPainter& p, QPointF c, double scale) {
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(qcolor(primeBorder), ringWidth * scale, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    p.drawPolygon(hexagon(c, ringRadius(scale)));
}

void outlineHexagon(QPainter& p, QPointF c, double scale, Rgb colour, double width) {
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(qcolor(colour), width * scale, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    p.drawPolygon(hexagon(c, hexRadius * scale));
}

QString tahomaFamily() {
    static const QString family = [] {
        const int regular = QFontDatabase::addApplicationFont("/usr/share/wine/fonts/tahoma.ttf");
        QFontDatabase::addApplicationFont("/usr/share/wine/fonts/tahomabd.ttf");
        const QStringList names = QFontDatabase::applicationFontFamilies(regular);
        return names.isEmpty() ? QStringLiteral("DejaVu Sans") : names.first();
    }();
    return family;
}

// Text with a coloured edge, centred on `centre`.
void edgedText(QPainter& p, QPointF centre, const QFont& font, const QString& text, QColor fill,
               QColor edge, double edgeWidth) {
    const QFontMetricsF fm(font);
    const double w = fm.horizontalAdvance(text);
    QPainterPath path;
    path.addText(QPointF(centre.x() - w / 2, centre.y() + (fm.ascent() - fm.descent()) / 2), font,
                 text);
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    if (edgeWidth > 0)
        p.strokePath(path, QPen(edge, edgeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.fillPath(path, fill);
    p.restore();
}

// A number written over a counter, so that the rules pictures keep it legible.
void numberOnCounter(QPainter& p, const View& v, int n) {
    const QPointF c = v.at(n);
    edgedText(p, c, arialFont(17 * v.scale), QString::number(n), Qt::white, QColor(0, 0, 0, 200),
              2.4 * v.scale);
}

// Counters of the illustrations are a little larger than the game's, to read
// well at small scales.
void drawCounterAt(QPainter& p, const View& v, int n, int who) {
    drawCounter(p, v.at(n), 0.58 * hexApothem * v.scale, player(who), geo::isListedPrime(n));
}

// Sky behind the illustrations: the board's blue, brighter at the top.
void sky(QPainter& p, const QRectF& r) {
    QLinearGradient g(r.topLeft(), r.bottomLeft());
    g.setColorAt(0.0, QColor(128, 196, 255));
    g.setColorAt(0.55, qcolor(background));
    g.setColorAt(1.0, QColor(28, 86, 160));
    p.fillRect(r, g);
}

// A view with the given scale that puts the point `boardPx` (board pixels)
// at `target` in the picture.
View viewOn(double scale, QPointF boardPx, QPointF target) {
    return View{scale, target - boardPx * scale};
}

// A picture of w x h of its own pixels, with `ratio` x `ratio` stored pixels
// to each: a painter on it works in the picture's own pixels.
QImage canvas(int w, int h, int ratio) {
    QImage img(w * ratio, h * ratio, QImage::Format_RGB32);
    img.setDevicePixelRatio(ratio);
    return img;
}

QRectF area(const QImage& img) { return QRectF(QPointF(), img.deviceIndependentSize()); }

QPointF boardPixels(int n) {
    const geo::Point c = geo::hexCentre(n);
    return {c.x / twipsPerPixel, c.y / twipsPerPixel};
}

QPointF centroid(std::initializer_list<int> hexes) {
    QPointF sum;
    for (int n : hexes) sum += boardPixels(n);
    return sum / static_cast<double>(hexes.size());
}

void numbersExcept(QPainter& p, const View& v, const std::vector<int>& covered) {
    for (int n = 1; n <= 100; ++n)
        if (std::find(covered.begin(), covered.end(), n) == covered.end()) drawNumber(p, v, n);
}

// Three counters on a triangle of neighbours, joined by thin gold lines.
QImage trianglePicture(int w, int h, int a, int b, int c, std::array<int, 3> owners, int ratio) {
    QImage img = canvas(w, h, ratio);
    img.fill(qcolor(background));
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    const View v = viewOn(1.2, centroid({a, b, c}), QPointF(w / 2.0, h / 2.0));
    drawBoard(p, v);
    numbersExcept(p, v, {a, b, c});
    p.setPen(QPen(qcolor(pathEnd), 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPolygon(QPolygonF({v.at(a), v.at(b), v.at(c)}));
    const std::array<int, 3> hexes{a, b, c};
    for (std::size_t i = 0; i < 3; ++i) {
        drawCounterAt(p, v, hexes[i], owners[i]);
        numberOnCounter(p, v, hexes[i]);
    }
    return img;
}

// The seven white lines the last rules page draws over its picture (twips on
// the page) and the picture's own place on that page.
struct PagePoint {
    double x, y;
};
constexpr std::array<PagePoint, 8> endLine = {
    {{6150, 7050}, {7170, 5280}, {7995, 5280}, {8610, 4200}, {9810, 4200}, {10050, 4560},
     {11250, 4560}, {11670, 3840}}};
constexpr double endPictureLeft = 5940, endPictureTop = 3600;
// The hexagon under each corner of those lines.
constexpr std::array<int, 8> endCorners = {1, 16, 31, 57, 81, 82, 97, 100};

// Uniform scale and shift that lay the corner hexagons under the line's corners.
View endView() {
    QPointF meanBoard, meanPicture;
    std::array<QPointF, 8> board, picture;
    for (std::size_t i = 0; i < endCorners.size(); ++i) {
        board[i] = boardPixels(endCorners[i]);
        picture[i] = QPointF((endLine[i].x - endPictureLeft) / twipsPerPixel,
                             (endLine[i].y - endPictureTop) / twipsPerPixel);
        meanBoard += board[i] / 8.0;
        meanPicture += picture[i] / 8.0;
    }
    double num = 0, den = 0;
    for (std::size_t i = 0; i < 8; ++i) {
        const QPointF db = board[i] - meanBoard, dp = picture[i] - meanPicture;
        num += db.x() * dp.x() + db.y() * dp.y();
        den += db.x() * db.x() + db.y() * db.y();
    }
    const double scale = num / den;
    return View{scale, meanPicture - meanBoard * scale};
}

}  // namespace

QPointF View::at(int n) const {
    const geo::Point c = geo::hexCentre(n);
    return map(c.x, c.y);
}

QPointF View::map(double twipsX, double twipsY) const {
    return offset + QPointF(twipsX, twipsY) * (scale / twipsPerPixel);
}

QFont arialFont(double pixels, bool bold) {
    QFont f(QStringLiteral("Liberation Sans"));
    f.setStyleHint(QFont::SansSerif);
    f.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    f.setBold(bold);
    return f;
}

QFont tahomaFont(double pixels, bool bold) {
    QFont f(tahomaFamily());
    f.setStyleHint(QFont::SansSerif);
    f.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    f.setBold(bold);
    return f;
}

void drawBoard(QPainter& p, const View& v, const std::function<bool(int)>& keep) {
    auto kept = [&](int n) { return !keep || keep(n); };
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    for (int n = 1; n <= 100; ++n)
        if (kept(n)) fillHexagon(p, v.at(n), v.scale, zoneColour(n));
    for (int n : geo::primes)
        if (kept(n)) primeRing(p, v.at(n), v.scale);
    for (int n = 1; n <= 100; ++n)
        if (kept(n)) outlineHexagon(p, v.at(n), v.scale, hexOutline, outlineWidth);
    // The two ends of the path.
    for (int n : {1, 100})
        if (kept(n)) outlineHexagon(p, v.at(n), v.scale, pathEnd, 1.6);
    p.restore();
}

void drawCell(QPainter& p, QPointF centre, double scale, Rgb fill, bool prime) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    fillHexagon(p, centre, scale, fill);
    if (prime) primeRing(p, centre, scale);
    outlineHexagon(p, centre, scale, hexOutline, outlineWidth);
    p.restore();
}

void drawNumber(QPainter& p, const View& v, int n) {
    const QPointF c = v.at(n);
    const double s = v.scale;
    // The label is 32 board pixels square and its anchor lies 0.4 of its
    // height below its top, so the digits sit 3.2 pixels below the centre.
    const QRectF label(c.x() - 24 * s, c.y() - 12.8 * s, 48 * s, 32 * s);
    p.save();
    p.setRenderHint(QPainter::TextAntialiasing);
    p.setFont(arialFont(21 * s));
    p.setPen(geo::isListedPrime(n) ? QColor(Qt::black) : qcolor(colour::numberGrey));
    p.drawText(label, Qt::AlignCenter, QString::number(n));
    p.restore();
}

void drawCounter(QPainter& p, QPointF c, double r, QColor colour, bool primeRing) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    // Shadow down and to the right.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 70));
    p.drawEllipse(c + QPointF(0.09 * r, 0.11 * r), r * 1.02, r * 1.02);
    if (primeRing) {
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(qcolor(primeBorder), 0.13 * r));
        p.drawEllipse(c, 1.17 * r, 1.17 * r);
    }
    // Body with a darker rim.
    p.setBrush(colour);
    p.setPen(QPen(colour.darker(165), 0.09 * r));
    p.drawEllipse(c, 0.955 * r, 0.955 * r);
    // The groove of a stacking counter: a dark line with a light one inside.
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(colour.darker(135), 0.08 * r));
    p.drawEllipse(c, 0.72 * r, 0.72 * r);
    QColor light = colour.lighter(135);
    light.setAlpha(170);
    p.setPen(QPen(light, 0.06 * r));
    p.drawEllipse(c, 0.64 * r, 0.64 * r);
    // Highlight at the upper left; it stops short of the centre, which keeps
    // the pure colour.
    const QPointF h = c + QPointF(-0.38 * r, -0.42 * r);
    QRadialGradient g(h, 0.5 * r);
    g.setColorAt(0.0, QColor(255, 255, 255, 170));
    g.setColorAt(1.0, QColor(255, 255, 255, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    p.drawEllipse(h, 0.5 * r, 0.5 * r);
    p.restore();
}

void drawMark(QPainter& p, QPointF c, double r, int player, QColor fill, QColor edge) {
    // Four shapes that share as little of their area as they can, so that
    // no two read alike even at the counter's size on the board: a plus and
    // a cross meet only at the middle, a ring and a dot not at all.
    const double arm = 0.58 * r, half = 0.17 * r;
    QPainterPath plus;   // its two bars made one outline
    plus.setFillRule(Qt::WindingFill);
    plus.addRect(QRectF(-arm, -half, 2 * arm, 2 * half));
    plus.addRect(QRectF(-half, -arm, 2 * half, 2 * arm));
    plus = plus.simplified();
    QPainterPath mark;
    switch (player) {
    case 0:   // a plus
        mark = plus.translated(c);
        break;
    case 1:   // a ring
        mark.addEllipse(c, 0.56 * r, 0.56 * r);
        mark.addEllipse(c, 0.30 * r, 0.30 * r);
        break;
    case 2:   // a dot
        mark.addEllipse(c, 0.32 * r, 0.32 * r);
        break;
    default:   // a cross: the plus turned by 45 degrees
        mark = QTransform().translate(c.x(), c.y()).rotate(45).map(plus);
    }
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    // The edge runs round the outside of the shape, so that the mark keeps
    // its size and stands out on the light counters as on the dark ones.
    p.strokePath(mark, QPen(edge, 0.16 * r, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    p.fillPath(mark, fill);
    p.restore();
}

void drawDie(QPainter& p, QPointF centre, double size, double degrees, int value, QColor face,
             QColor pip) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.translate(centre);
    p.rotate(degrees);
    const double h = size / 2;
    const QRectF body(-h, -h, size, size);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 80));
    p.drawRoundedRect(body.translated(size * 0.07, size * 0.09), size * 0.2, size * 0.2);
    QLinearGradient g(body.topLeft(), body.bottomRight());
    g.setColorAt(0.0, face.lighter(140));
    g.setColorAt(0.5, face);
    g.setColorAt(1.0, face.darker(130));
    p.setBrush(g);
    p.setPen(QPen(face.darker(180), size * 0.04));
    p.drawRoundedRect(body, size * 0.2, size * 0.2);
    // Pips on a three by three grid.
    static constexpr int layout[7][9] = {
        {}, {0, 0, 0, 0, 1, 0, 0, 0, 0}, {1, 0, 0, 0, 0, 0, 0, 0, 1}, {1, 0, 0, 0, 1, 0, 0, 0, 1},
        {1, 0, 1, 0, 0, 0, 1, 0, 1},     {1, 0, 1, 0, 1, 0, 1, 0, 1}, {1, 0, 1, 1, 0, 1, 1, 0, 1}};
    p.setPen(Qt::NoPen);
    p.setBrush(pip);
    const int v = std::clamp(value, 1, 6);
    for (int k = 0; k < 9; ++k) {
        if (!layout[v][k]) continue;
        const QPointF at((k % 3 - 1) * size * 0.27, (k / 3 - 1) * size * 0.27);
        p.drawEllipse(at, size * 0.09, size * 0.09);
    }
    p.restore();
}

QImage boardPicture(int ratio) {
    QImage img = canvas(800, 600, ratio);
    img.fill(qcolor(background));
    QPainter p(&img);
    drawBoard(p, View{});
    return img;
}

QImage counterPicture(int zone, QColor counter, bool prime, int ratio, int mark) {
    const Rgb fill = zoneColours.at(static_cast<std::size_t>(zone));
    QImage img = canvas(32, 32, ratio);
    img.fill(qcolor(fill));
    QPainter p(&img);
    // The hexagon around it as the board draws it, so the picture's edges
    // run on into the board.
    drawCell(p, counterCentre, 1.0, fill, prime);
    drawCounter(p, counterCentre, counterRadius, counter, prime);
    if (mark >= 0) {
        const QColor dark = qcolor(markEdge);
        const bool white = counter == QColor(Qt::white);
        drawMark(p, counterCentre, counterRadius, mark, white ? dark : QColor(Qt::white), dark);
    }
    return img;
}

QImage ballPicture(int zone, int ratio) {
    const QColor c = qcolor(zoneColours.at(static_cast<std::size_t>(zone)));
    QImage img = canvas(56, 56, ratio);
    img.fill(qcolor(background));
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    const QPointF centre(28, 28);
    const double r = 26;
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 60));
    p.drawEllipse(centre + QPointF(1.2, 1.6), r, r);
    QRadialGradient g(centre, r, centre + QPointF(-9, -10));
    g.setColorAt(0.0, c.lighter(175));
    g.setColorAt(0.4, c);
    g.setColorAt(1.0, c.darker(200));
    p.setBrush(g);
    p.setPen(QPen(c.darker(230), 1.0));
    p.drawEllipse(centre, r, r);
    return img;
}

QImage titlePicture(int ratio) {
    QImage img = canvas(320, 240, ratio);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    sky(p, area(img));
    // Rays from behind the title.
    const QPointF sun(160, 30);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 34));
    for (int k = 0; k < 18; k += 2) {
        const double a0 = k * std::numbers::pi / 9, a1 = (k + 1) * std::numbers::pi / 9;
        p.drawPolygon(QPolygonF({sun, sun + 400 * QPointF(std::cos(a0), std::sin(a0)),
                                 sun + 400 * QPointF(std::cos(a1), std::sin(a1))}));
    }
    // A corner of the board, lower right, with a few counters and a triangle.
    const View v = viewOn(0.72, boardPixels(50), QPointF(210, 150));
    auto inPatch = [&](int n) {
        const QPointF d = v.at(n) - QPointF(228, 158);
        return (d.x() * d.x()) / (108.0 * 108.0) + (d.y() * d.y()) / (70.0 * 70.0) <= 1.0;
    };
    drawBoard(p, v, inPatch);
    const std::vector<std::pair<int, int>> counters = {{41, 0}, {50, 1}, {51, 0}, {59, 2}, {61, 3}};
    std::vector<int> covered;
    for (auto [n, who] : counters) covered.push_back(n);
    for (int n = 1; n <= 100; ++n)
        if (inPatch(n) && std::find(covered.begin(), covered.end(), n) == covered.end())
            drawNumber(p, v, n);
    for (auto [n, who] : counters) drawCounterAt(p, v, n, who);
    // Four dice in the players' colours, tumbling in from the left.
    drawDie(p, QPointF(34, 112), 34, -14, 6, player(0), Qt::white);
    drawDie(p, QPointF(80, 122), 34, 11, 4, player(1), Qt::white);
    drawDie(p, QPointF(36, 160), 34, 24, 3, player(2), Qt::black);
    drawDie(p, QPointF(84, 172), 34, -8, 1, player(3), Qt::black);
    // The name, kept in the top 200 rows: the title screen may show no more.
    const QFont title = tahomaFont(58);
    p.save();
    p.translate(3, 4);
    edgedText(p, QPointF(160, 44), title, QStringLiteral("FENDLE!"), QColor(0, 0, 0, 90),
              QColor(0, 0, 0, 90), 7);
    p.restore();
    QPainterPath path;
    const QFontMetricsF fm(title);
    const QString word = QStringLiteral("FENDLE!");
    const double w = fm.horizontalAdvance(word);
    path.addText(QPointF(160 - w / 2, 44 + (fm.ascent() - fm.descent()) / 2), title, word);
    p.strokePath(path, QPen(Qt::white, 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QLinearGradient red(0, 18, 0, 72);
    red.setColorAt(0.0, QColor(255, 96, 64));
    red.setColorAt(0.5, QColor(228, 16, 16));
    red.setColorAt(1.0, QColor(150, 0, 10));
    p.fillPath(path, red);
    return img;
}

QImage logoPicture(int ratio) {
    QImage img = canvas(100, 139, ratio);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    QLinearGradient bg(0, 0, 0, 139);
    bg.setColorAt(0.0, QColor(24, 40, 104));
    bg.setColorAt(1.0, QColor(10, 18, 56));
    p.fillRect(area(img), bg);
    p.setPen(QPen(qcolor(pathEnd), 2));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(3, 3, 94, 133), 8, 8);
    // The mark: a triangle of three touching hexagons, as a bonus move makes.
    const double s = 0.62;
    const double dx = hexApothem * s, dy = 1.5 * hexRadius * s;
    const QPointF top(50, 30);
    const std::array<QPointF, 3> at = {top, top + QPointF(-dx, dy), top + QPointF(dx, dy)};
    const std::array<Rgb, 3> fills = {zoneColours[6], zoneColours[1], zoneColours[0]};
    for (std::size_t i = 0; i < 3; ++i) drawCell(p, at[i], s, fills[i], i == 0);
    drawCounter(p, at[0], counterRadius * s, player(3), false);
    drawCounter(p, at[1], counterRadius * s, player(0), false);
    drawCounter(p, at[2], counterRadius * s, player(1), false);
    // The name alone, which needs no translating: the one picture serves
    // every language.
    edgedText(p, QPointF(50, 106), tahomaFont(21), QStringLiteral("Fendle!"), QColor(255, 214, 64),
              QColor(0, 0, 0), 0);
    return img;
}

QImage startPicture(const QString& phrase, int ratio) {
    QImage img = canvas(189, 235, ratio);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    sky(p, area(img));
    // A rosette of seven hexagons round 24, with two counters on it.
    std::vector<int> rosette = geo::neighbours(24);
    rosette.push_back(24);
    const View v = viewOn(0.8, boardPixels(24), QPointF(94.5, 70));
    auto inRosette = [&](int n) { return std::find(rosette.begin(), rosette.end(), n) != rosette.end(); };
    drawBoard(p, v, inRosette);
    for (int n : rosette)
        if (n != 18 && n != 31) drawNumber(p, v, n);
    drawCounterAt(p, v, 18, 1);
    drawCounterAt(p, v, 31, 0);
    drawDie(p, QPointF(36, 158), 30, -12, 5, player(0), Qt::white);
    drawDie(p, QPointF(76, 150), 30, 9, 2, player(1), Qt::white);
    drawDie(p, QPointF(116, 160), 30, -5, 6, player(2), Qt::black);
    drawDie(p, QPointF(154, 150), 30, 16, 3, player(3), Qt::black);
    // The phrase, as large as fits; on two lines if one won't do.
    const QRectF box(6, 180, 177, 50);
    QStringList lines{phrase};
    double px = 26;
    auto widest = [&](const QStringList& ls, double size) {
        const QFontMetricsF fm(arialFont(size));
        double w = 0;
        for (const QString& l : ls) w = std::max(w, fm.horizontalAdvance(l));
        return w;
    };
    while (px > 17 && widest(lines, px) > box.width()) px -= 1;
    if (widest(lines, px) > box.width()) {
        const int mid = static_cast<int>(phrase.size() / 2);
        int cut = phrase.lastIndexOf(' ', mid);
        if (cut < 0) cut = phrase.indexOf(' ', mid);
        if (cut > 0) lines = {phrase.left(cut), phrase.mid(cut + 1)};
        px = 22;
        while (px > 10 && widest(lines, px) > box.width()) px -= 1;
    }
    const double step = px * 1.1;
    double y = box.center().y() - step * (lines.size() - 1) / 2.0;
    for (const QString& line : lines) {
        edgedText(p, QPointF(box.center().x(), y), arialFont(px), line, QColor(255, 236, 0),
                  QColor(10, 20, 60), 3.5);
        y += step;
    }
    return img;
}

QImage boardViewPicture(int ratio) {
    QImage img = canvas(399, 248, ratio);
    img.fill(qcolor(background));
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    // The middle of the board, which shows every zone.
    const QPointF middle((boardPixels(1).x() + boardPixels(100).x()) / 2,
                         (boardPixels(1).y() + boardPixels(100).y()) / 2);
    const View v = viewOn(0.6, middle, QPointF(199.5, 124));
    drawBoard(p, v);
    const std::vector<std::pair<int, int>> counters = {{9, 0}, {26, 1}, {40, 2}, {52, 0},
                                                       {68, 3}, {77, 1}, {94, 2}};
    std::vector<int> covered;
    for (auto [n, who] : counters) covered.push_back(n);
    numbersExcept(p, v, covered);
    for (auto [n, who] : counters) drawCounterAt(p, v, n, who);
    return img;
}

QImage fendlePicture(int ratio) { return trianglePicture(166, 188, 25, 32, 33, {1, 2, 0}, ratio); }

QImage doubleFendlePicture(int ratio) { return trianglePicture(217, 190, 17, 12, 18, {0, 3, 1}, ratio); }

std::vector<int> endPath() {
    std::vector<int> path{endCorners.front()};
    for (std::size_t i = 1; i < endCorners.size(); ++i) {
        const geo::GridPos from = geo::gridOf(endCorners[i - 1]), to = geo::gridOf(endCorners[i]);
        const int dt = to.t - from.t, dc = to.c - from.c;
        const int steps = std::max(std::abs(dt), std::abs(dc));
        const int st = (dt > 0) - (dt < 0), sc = (dc > 0) - (dc < 0);
        for (int k = 1; k <= steps; ++k) {
            const int n = geo::hexNumber(from.t + k * st, from.c + k * sc);
            const std::vector<int> nb = geo::neighbours(path.back());
            if (std::find(nb.begin(), nb.end(), n) == nb.end())
                throw std::logic_error("the path of the end picture leaves the grid's neighbours");
            path.push_back(n);
        }
        if (path.back() != endCorners[i])
            throw std::logic_error("the path of the end picture misses a corner of its line");
    }
    return path;
}

QImage endPicture(int ratio) {
    QImage img = canvas(397, 248, ratio);
    img.fill(qcolor(background));
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    const View v = endView();
    drawBoard(p, v);
    // The joining path in all four colours, and the rest of a finished game.
    const std::vector<int> path = endPath();
    const std::vector<std::pair<int, int>> others = {{13, 1}, {35, 0}, {53, 1}, {64, 2},
                                                     {71, 3}, {86, 0}, {27, 2}};
    std::vector<int> covered = path;
    for (auto [n, who] : others) covered.push_back(n);
    numbersExcept(p, v, covered);
    static constexpr int turns[] = {0, 1, 2, 3, 1, 0, 3, 2, 0, 2, 1, 3, 0, 1, 0, 2, 3, 1, 2, 0};
    for (std::size_t i = 0; i < path.size(); ++i) drawCounterAt(p, v, path[i], turns[i % 20]);
    for (auto [n, who] : others) drawCounterAt(p, v, n, who);
    return img;
}

void drawIcon(QPainter& p, double size) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 64.0, size / 64.0);
    // The tile: the board's blue, lighter at the top, with a dark edge.
    const QRectF tile(3, 3, 58, 58);
    QLinearGradient blue(tile.topLeft(), tile.bottomLeft());
    blue.setColorAt(0.0, QColor(110, 180, 245));
    blue.setColorAt(1.0, QColor(28, 86, 160));
    p.setPen(QPen(QColor(16, 48, 104), 2.0));
    p.setBrush(blue);
    p.drawRoundedRect(tile, 11, 11);
    // Three hexagons that touch one another, at a scale where each is 12.5
    // units from centre to corner.
    const double s = 12.5 / hexRadius;
    const double dx = hexApothem * s, dy = 1.5 * hexRadius * s;
    const QPointF top(32, 20.5);
    const std::array<QPointF, 3> at = {top, top + QPointF(-dx, dy), top + QPointF(dx, dy)};
    const std::array<Rgb, 3> fills = {zoneColours[6], zoneColours[2], zoneColours[4]};
    for (std::size_t i = 0; i < 3; ++i) drawCell(p, at[i], s, fills[i], false);
    if (size >= 32) {
        p.setPen(QPen(qcolor(pathEnd), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.setBrush(Qt::NoBrush);
        p.drawPolygon(QPolygonF({at[0], at[1], at[2]}));
        const std::array<int, 3> who = {0, 1, 3};
        for (std::size_t i = 0; i < 3; ++i) drawCounter(p, at[i], 7.2, player(who[i]), false);
    }
    p.restore();
}

QImage iconPicture(int size) {
    QImage img(size, size, QImage::Format_ARGB32_Premultiplied);
    img.fill(Qt::transparent);
    QPainter p(&img);
    drawIcon(p, size);
    return img;
}

}  // namespace fendle::art
