// Draws every picture and synthesises every sound of the game into a game
// folder:  make_assets <folder>
// or the program's icon into an icon theme's folder, at each size of the
// theme and as SVG:  make_assets --icons <folder> <icon name>
// Without a display it needs QT_QPA_PLATFORM=offscreen, which it sets itself
// when the variable is unset.
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgGenerator>

#include <cstdio>
#include <exception>
#include <functional>

#include "engine/game_state.h"
#include "tools/artwork.h"
#include "tools/sounds.h"

namespace {

using namespace fendle;

struct Writer {
    QDir root;
    int failures = 0;

    QString path(const QString& folder, const QString& file) {
        if (!root.mkpath(folder)) ++failures;
        return root.filePath(folder + '/' + file);
    }
    // A picture and its "@2x" twin, drawn by the same code at twice the
    // resolution, for screens at a larger scale. The twin is the program's
    // own: a bitmap's is a PNG, the same pixels in a fifth of the room or
    // less (fendle3.bmp, fendle3@2x.png); a JPEG's stays a JPEG, which PNG
    // would make three times larger (logo2.jpg, logo2@2x.jpg).
    void picture(const QString& folder, const QString& file, const std::function<QImage(int ratio)>& draw) {
        const qsizetype dot = file.lastIndexOf(QLatin1Char('.'));
        const QString suffix = file.mid(dot);
        save(folder, file, draw(1));
        save(folder, file.left(dot) + QStringLiteral("@2x") + (suffix == QLatin1String(".bmp") ? QStringLiteral(".png") : suffix),
             draw(2));
    }
    void save(const QString& folder, const QString& file, const QImage& img) {
        const QString target = path(folder, file);
        const bool jpeg = file.endsWith(QLatin1String(".jpg"));
        const char* format = jpeg ? "JPG" : file.endsWith(QLatin1String(".png")) ? "PNG" : "BMP";
        // Fixed quality: the same picture gives the same bytes.
        if (!img.save(target, format, jpeg ? 92 : -1)) {
            std::fprintf(stderr, "make_assets: cannot write %s\n", qPrintable(target));
            ++failures;
        }
    }
    void wave(const QString& file, const sound::Pcm& samples) {
        const QString target = path(QStringLiteral("wav"), file);
        const std::vector<char> bytes = sound::waveFile(samples);
        QFile f(target);
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
            f.write(bytes.data(), static_cast<qint64>(bytes.size())) != static_cast<qint64>(bytes.size())) {
            std::fprintf(stderr, "make_assets: cannot write %s\n", qPrintable(target));
            ++failures;
        }
    }
};

void writePictures(Writer& w) {
    using namespace fendle::art;
    w.picture("Images", "fendle3.bmp", [](int r) { return boardPicture(r); });
    w.picture("Images", "fendlemd.bmp", [](int r) { return titlePicture(r); });
    w.picture("Images", "logo2.jpg", [](int r) { return logoPicture(r); });

    for (std::size_t z = 0; z < zones.size(); ++z) {
        const QString zone = QString::fromLatin1(zones[z].prefix);
        const int zi = static_cast<int>(z);
        w.picture("Balls", zone + "ball.bmp", [zi](int r) { return ballPicture(zi, r); });
        for (int digit = 1; digit <= 2; ++digit) {
            const bool prime = digit == 2;
            const QString tail = QString::number(digit) + ".bmp";
            for (const PlayerInfo& pl : players) {
                const QColor face = qcolor(pl.face);
                w.picture("counters", zone + pl.prefix + tail,
                          [=](int r) { return counterPicture(zi, face, prime, r); });
            }
            w.picture("counters", zone + "wh" + tail,
                      [=](int r) { return counterPicture(zi, Qt::white, prime, r); });
            // With the marks set, each counter and the white one that
            // flashes over it carry the mark of the player who laid it.
            for (int mark = 0; mark < 4; ++mark) {
                const PlayerInfo& pl = players[static_cast<std::size_t>(mark)];
                const QColor face = qcolor(pl.face);
                w.picture("counters/marked", zone + pl.prefix + tail,
                          [=](int r) { return counterPicture(zi, face, prime, r, mark); });
                w.picture("counters/marked", zone + "wh" + pl.prefix + tail,
                          [=](int r) { return counterPicture(zi, Qt::white, prime, r, mark); });
            }
        }
    }

    for (const StartPicture& s : startPictures) {
        const QString phrase = QString::fromUtf8(s.phrase);
        w.picture("images", s.file, [&phrase](int r) { return startPicture(phrase, r); });
    }
    w.picture("images", "board.jpg", [](int r) { return boardViewPicture(r); });
    w.picture("images", "fendle.jpg", [](int r) { return fendlePicture(r); });
    w.picture("images", "doublefendle.jpg", [](int r) { return doubleFendlePicture(r); });
    w.picture("images", "end.jpg", [](int r) { return endPicture(r); });
}

// <folder>/hicolor/<n>x<n>/apps/<name>.png for each size, and
// <folder>/hicolor/scalable/apps/<name>.svg, from the same drawing.
int writeIcons(const QString& folder, const QString& name) {
    QDir root(folder);
    int failures = 0;
    for (int size : art::iconSizes) {
        const QString dir = QStringLiteral("hicolor/%1x%1/apps").arg(size);
        const QString target = root.filePath(dir + '/' + name + ".png");
        if (!root.mkpath(dir) || !art::iconPicture(size).save(target, "PNG")) {
            std::fprintf(stderr, "make_assets: cannot write %s\n", qPrintable(target));
            ++failures;
        }
    }
    const QString dir = QStringLiteral("hicolor/scalable/apps");
    const QString target = root.filePath(dir + '/' + name + ".svg");
    if (!root.mkpath(dir)) ++failures;
    QSvgGenerator svg;
    svg.setFileName(target);
    svg.setSize(QSize(64, 64));
    svg.setViewBox(QRect(0, 0, 64, 64));
    svg.setTitle(QStringLiteral("Fendle!"));
    svg.setDescription(QStringLiteral("The icon of Fendle!, a board game of mental arithmetic"));
    QPainter p;
    if (!p.begin(&svg)) {
        std::fprintf(stderr, "make_assets: cannot write %s\n", qPrintable(target));
        return 1;
    }
    art::drawIcon(p, 64);
    p.end();
    return failures == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc == 4 && QByteArrayView(argv[1]) == "--icons")
        return writeIcons(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_assets <game folder>\n       make_assets --icons <folder> <icon name>\n");
        return 2;
    }
    Writer w{QDir(QString::fromLocal8Bit(argv[1]))};
    if (!w.root.mkpath(QStringLiteral("."))) {
        std::fprintf(stderr, "make_assets: cannot make %s\n", argv[1]);
        return 1;
    }
    try {
        writePictures(w);
        for (const sound::Sound& s : sound::allSounds()) w.wave(QString::fromStdString(s.name), s.samples);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "make_assets: %s\n", e.what());
        return 1;
    }
    return w.failures == 0 ? 0 : 1;
}
