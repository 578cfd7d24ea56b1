// Pictures by the names the game gives them ("counters\\blre2.bmp"), found
// in the game's data folder and kept in Qt's pixmap cache.
#pragma once

#include <QPixmap>
#include <QString>

#include <string_view>

namespace fendle {

// "counters\\blre2.bmp" -> "<data folder>/counters/blre2.bmp": the game's
// backslashes become slashes, in the folder gamePath() resolves the name in.
// Case is kept, so "Images\\" and "images\\" are two folders.
QString hostPath(std::string_view name);

namespace kit {

// A picture file by the game's name; a null pixmap when it cannot be read.
// When the program runs at a scale of 1.5 or more, the file's "@2x" twin is taken
// where there is one, with a device pixel ratio of 2, so that it shows at the
// same size. Pictures are cached by host path, size and time of change.
QPixmap loadPicture(std::string_view file);
// "Images/fendle3.bmp" -> "Images/fendle3@2x.png", "images/end.jpg" -> "images/end@2x.jpg".
QString twinPath(const QString& path);

}  // namespace kit
}  // namespace fendle
