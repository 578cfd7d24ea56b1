// The two faces the screens were drawn with and the fonts that stand in for
// them here: Arial is "Liberation Sans", which has its metrics; Tahoma is
// the clone in /usr/share/wine/fonts, loaded once with the bold face the
// build fitted into fonts/tahoma-bold.ttf of the game folder (or the clone's
// bold file as it is), else "DejaVu Sans".
#pragma once

#include <QFont>
#include <QString>

namespace fendle::kit {

enum class Face { Arial, Tahoma };

QString fontFamily(Face face);
// The face at `points`, set as a pixel size (see fontPixels()).
QFont makeFont(Face face, double points, bool bold);

}  // namespace fendle::kit
