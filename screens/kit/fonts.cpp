#include "screens/kit/fonts.h"

#include <QFontDatabase>

#include "screens/kit/pictures.h"
#include "screens/kit/units.h"

namespace fendle::kit {

namespace {

// The clone's bold file has the regular outlines, only spaced wider. Its
// family gets the bold face the build fitted from it and DejaVu Sans Bold,
// with the same spacing and truly bold letters; the file itself when the
// game folder has none.
void addBoldTahoma() {
    if (QFontDatabase::addApplicationFont(hostPath("fonts/tahoma-bold.ttf")) < 0)
        QFontDatabase::addApplicationFont(QStringLiteral("/usr/share/wine/fonts/tahomabd.ttf"));
}

const QString& tahomaFamily() {
    static const QString family = [] {
        const int regular = QFontDatabase::addApplicationFont(QStringLiteral("/usr/share/wine/fonts/tahoma.ttf"));
        if (regular >= 0) {
            addBoldTahoma();
            const QStringList names = QFontDatabase::applicationFontFamilies(regular);
            if (!names.isEmpty()) return names.first();
        }
        return QStringLiteral("DejaVu Sans");
    }();
    return family;
}

}  // namespace

QString fontFamily(Face face) {
    return face == Face::Tahoma ? tahomaFamily() : QStringLiteral("Liberation Sans");
}

QFont makeFont(Face face, double points, bool bold) {
    QFont f(fontFamily(face));
    f.setPixelSize(fontPixels(points));
    f.setBold(bold);
    return f;
}

}  // namespace fendle::kit
