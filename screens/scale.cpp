#include "screens/scale.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QScreen>
#include <QString>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

namespace fendle {

double largestFit(QSize available) {
    const double across = double(available.width() - frameAllowance.width()) / boardPage.width();
    const double down = double(available.height() - frameAllowance.height()) / boardPage.height();
    return std::max(smallestScale, std::min(across, down));
}

double chooseScale(QSize available) { return std::max(smallestScale, std::floor(largestFit(available) * 8.0) / 8.0); }

std::optional<double> parseScale(QStringView text) {
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(value) || value < smallestScale || value > largestScale) return std::nullopt;
    return value;
}

namespace {

// What the primary screen offers, in the screen's own pixels, and the ratio
// the desktop already applies. Asked of a short-lived application object,
// since Qt takes its scale factor only when the real one is made.
struct ScreenFacts {
    QSize available = boardPage;
    double ratio = 1.0;
    QRect pixels;
};

std::optional<QRect>& primaryPixels() {
    static std::optional<QRect> pixels;
    return pixels;
}

ScreenFacts probeScreen(int argc, char** argv) {
    // The application object takes its own options out of argv: give it a copy.
    std::vector<char*> args(argv, argv + argc);
    args.push_back(nullptr);
    int count = argc;
    ScreenFacts facts;
    QGuiApplication probe(count, args.data());
    if (const QScreen* s = QGuiApplication::primaryScreen()) {
        facts.ratio = s->devicePixelRatio();
        facts.available = (QSizeF(s->availableGeometry().size()) * facts.ratio).toSize();
        const QRect g = s->geometry();
        facts.pixels = QRect((QPointF(g.topLeft()) * facts.ratio).toPoint(), (QSizeF(g.size()) * facts.ratio).toSize());
    }
    return facts;
}

}  // namespace

std::optional<int> prepareScale(std::optional<double> asked, int argc, char** argv) {
    std::optional<double> scale = asked;
    QString fromEnvironment;
    if (!scale && qEnvironmentVariableIsSet("FENDLE_SCALE")) {
        fromEnvironment = qEnvironmentVariable("FENDLE_SCALE");
        scale = parseScale(fromEnvironment);
        if (!scale)
            std::fprintf(stderr, "fendle: FENDLE_SCALE=%s is not a scale from %g to %g; choosing one for the screen\n",
                         qPrintable(fromEnvironment), smallestScale, largestScale);
    }
    // A factor the user gave Qt directly stands, unless a scale of ours was asked for.
    if (!scale && qEnvironmentVariableIsSet("QT_SCALE_FACTOR")) return std::nullopt;
    qunsetenv("QT_SCALE_FACTOR");
    const ScreenFacts screen = probeScreen(argc, argv);
    // A window must open with its buttons on the screen: a scale at which
    // the board would run past the screen's edge is not taken.
    if (scale && *scale > largestFit(screen.available) + 1e-9) {
        const QSize s = screen.available;
        if (asked) {
            std::fprintf(stderr, "fendle: at --scale %g the board would not fit this screen (%d x %d pixels free); "
                                 "it fits up to --scale %g\n",
                         *scale, s.width(), s.height(), chooseScale(s));
            return 2;
        }
        std::fprintf(stderr, "fendle: FENDLE_SCALE=%s does not fit this screen (%d x %d pixels free); choosing %g\n",
                     qPrintable(fromEnvironment), s.width(), s.height(), chooseScale(s));
        scale.reset();
    }
    if (!scale) scale = chooseScale(screen.available);
    primaryPixels() = screen.pixels;
    qputenv("QT_SCALE_FACTOR", QByteArray::number(*scale / screen.ratio, 'g', 12));
    return std::nullopt;
}

std::optional<QRect> primaryScreenPixels() { return primaryPixels(); }

}  // namespace fendle
