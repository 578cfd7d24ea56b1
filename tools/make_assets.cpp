// Draws every picture and synthesises every sound of the game into a game
// folder:  make_assets <folder>
// Without a display it needs QT_QPA_PLATFORM=offscreen, which it sets itself
// when the variable is unset.
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QString>

#include <cstdio>
#include <exception>

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
    void picture(const QString& folder, const QString& file, const QImage& img) {
        const QString target = path(folder, file);
        const bool jpeg = file.endsWith(QLatin1String(".jpg"));
        // Fixed quality: the same picture gives the same bytes.
        if (!img.save(target, jpeg ? "JPG" : "BMP", jpeg ? 92 : -1)) {
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
    w.picture("Images", "fendle3.bmp", boardPicture());
    w.picture("Images", "fendlemd.bmp", titlePicture());
    w.picture("Images", "logo2.jpg", logoPicture());

    for (std::size_t z = 0; z < zones.size(); ++z) {
        const QString zone = QString::fromLatin1(zones[z].prefix);
        const int zi = static_cast<int>(z);
        w.picture("Balls", zone + "ball.bmp", ballPicture(zi));
        for (int digit = 1; digit <= 2; ++digit) {
            const bool prime = digit == 2;
            const QString tail = QString::number(digit) + ".bmp";
            for (const PlayerInfo& pl : players)
                w.picture("counters", zone + pl.prefix + tail, counterPicture(zi, qcolor(pl.face), prime));
            w.picture("counters", zone + "wh" + tail, counterPicture(zi, Qt::white, prime));
        }
    }

    for (const StartPicture& s : startPictures)
        w.picture("images", s.file, startPicture(QString::fromUtf8(s.phrase)));
    w.picture("images", "board.jpg", boardViewPicture());
    w.picture("images", "fendle.jpg", fendlePicture());
    w.picture("images", "doublefendle.jpg", doubleFendlePicture());
    w.picture("images", "end.jpg", endPicture());
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_assets <game folder>\n");
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
