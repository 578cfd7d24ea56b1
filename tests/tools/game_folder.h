// Where the tests find the files the build generated.
#pragma once

#include <QColor>
#include <QImage>
#include <QString>

#include <algorithm>
#include <cstdlib>

#include "engine/game_state.h"

namespace fendle::testing {

// A file of the game folder, named as the game names it ("counters\\blre2.bmp").
inline QString gameFile(const QString& name) {
    QString rel = name;
    rel.replace('\\', '/');
    return QStringLiteral(FENDLE_GAME_FOLDER) + '/' + rel;
}

inline QColor toColour(Rgb c) { return QColor(c.r, c.g, c.b); }

inline int channelGap(QColor a, QColor b) {
    return std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                     std::abs(a.blue() - b.blue())});
}

}  // namespace fendle::testing
