#include "screens/scale.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QScreen>
#include <QString>
#include <QtGui/private/qhighdpiscaling_p.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

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

std::optional<QRect>& primaryPixels() {
    static std::optional<QRect> pixels;
    return pixels;
}

}  // namespace

ScaleChoice prepareScale(std::optional<double> asked) {
    ScaleChoice choice{asked, asked.has_value()};
    if (!choice.scale && qEnvironmentVariableIsSet("FENDLE_SCALE")) {
        choice.fromEnvironment = qEnvironmentVariable("FENDLE_SCALE");
        choice.scale = parseScale(choice.fromEnvironment);
        if (!choice.scale)
            std::fprintf(stderr, "fendle: FENDLE_SCALE=%s is not a scale from %g to %g; choosing one for the screen\n",
                         qPrintable(choice.fromEnvironment), smallestScale, largestScale);
    }
    // A factor the user gave Qt directly stands, unless a scale of ours was asked for.
    choice.usersFactor = !choice.scale && qEnvironmentVariableIsSet("QT_SCALE_FACTOR");
    if (!choice.usersFactor) qunsetenv("QT_SCALE_FACTOR");
    return choice;
}

std::optional<int> applyScale(const ScaleChoice& choice) {
    if (choice.usersFactor) return std::nullopt;
    // What the primary screen offers, in its own pixels, and the ratio the
    // desktop already applies.
    double ratio = 1.0;
    QSize available = boardPage;
    if (const QScreen* s = QGuiApplication::primaryScreen()) {
        ratio = s->devicePixelRatio();
        available = (QSizeF(s->availableGeometry().size()) * ratio).toSize();
        const QRect g = s->geometry();
        primaryPixels() = QRect((QPointF(g.topLeft()) * ratio).toPoint(), (QSizeF(g.size()) * ratio).toSize());
    }
    std::optional<double> scale = choice.scale;
    // A window must open with its buttons on the screen: a scale at which
    // the board would run past the screen's edge is not taken.
    if (scale && *scale > largestFit(available) + 1e-9) {
        if (choice.asked) {
            std::fprintf(stderr, "fendle: at --scale %g the board would not fit this screen (%d x %d pixels free); "
                                 "it fits up to --scale %g\n",
                         *scale, available.width(), available.height(), chooseScale(available));
            return 2;
        }
        std::fprintf(stderr, "fendle: FENDLE_SCALE=%s does not fit this screen (%d x %d pixels free); choosing %g\n",
                     qPrintable(choice.fromEnvironment), available.width(), available.height(), chooseScale(available));
        scale.reset();
    }
    if (!scale) scale = chooseScale(available);
    QHighDpiScaling::setGlobalFactor(*scale / ratio);
    return std::nullopt;
}

std::optional<QRect> primaryScreenPixels() { return primaryPixels(); }

}  // namespace fendle
