#include "screens/kit/fonts.h"

#include <QFile>
#include <QFontDatabase>

#include "screens/bold_face.h"
#include "screens/kit/units.h"

namespace fendle::kit {

namespace {

QByteArray fileBytes(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The clone's bold file has the regular outlines, only spaced wider. Its
// family gets a bold face with the same spacing and truly bold letters,
// made from it and DejaVu Sans Bold; the file itself when that cannot be made.
void addBoldTahoma() {
    const QString spacingFile = QStringLiteral("/usr/share/wine/fonts/tahomabd.ttf");
    const QByteArray spacing = fileBytes(spacingFile);
    const QByteArray shapes = fileBytes(QStringLiteral("/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"));
    if (!spacing.isEmpty() && !shapes.isEmpty()) {
        const auto face = fitBoldFace(std::string_view(spacing.constData(), std::size_t(spacing.size())),
                                      std::string_view(shapes.constData(), std::size_t(shapes.size())));
        if (face && QFontDatabase::addApplicationFontFromData(QByteArray(face->data(), qsizetype(face->size()))) >= 0)
            return;
    }
    QFontDatabase::addApplicationFont(spacingFile);
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
