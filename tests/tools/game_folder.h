// Where the tests find the files the build generated.
#pragma once

#include <QString>

namespace fendle::testing {

// A file of the game folder, named as the game names it ("counters\\blre2.bmp").
inline QString gameFile(const QString& name) {
    QString rel = name;
    rel.replace('\\', '/');
    return QStringLiteral(FENDLE_GAME_FOLDER) + '/' + rel;
}

}  // namespace fendle::testing
