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

double chooseScale(QSize available) {
    const double across = double(available.width() - frameAllowance.width()) / boardPage.width();
    const double down = double(available.height() - frameAllowance.height()) / boardPage.height();
    const double eighths = std::floor(std::min(across, down) * 8.0);
    return std::max(1.0, eighths / 8.0);
}

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
};

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
    }
    return facts;
}

}  // namespace

void prepareScale(std::optional<double> asked, int argc, char** argv) {
    std::optional<double> scale = asked;
    if (!scale && qEnvironmentVariableIsSet("FENDLE_SCALE")) {
        const QString value = qEnvironmentVariable("FENDLE_SCALE");
        scale = parseScale(value);
        if (!scale)
            std::fprintf(stderr, "fendle: FENDLE_SCALE=%s is not a scale from %g to %g; choosing one for the screen\n",
                         qPrintable(value), smallestScale, largestScale);
    }
    // A factor the user gave Qt directly stands, unless a scale of ours was asked for.
    if (!scale && qEnvironmentVariableIsSet("QT_SCALE_FACTOR")) return;
    qunsetenv("QT_SCALE_FACTOR");
    const ScreenFacts screen = probeScreen(argc, argv);
    if (!scale) scale = chooseScale(screen.available);
    qputenv("QT_SCALE_FACTOR", QByteArray::number(*scale / screen.ratio, 'g', 12));
}

}  // namespace fendle
