#include "screens/kit/pictures.h"

#include <QDateTime>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPixmapCache>

#include "text/file_io.h"

namespace fendle {

QString hostPath(std::string_view name) { return QString::fromStdString(gamePath(name)); }

namespace kit {

namespace {

QPixmap loadPictureFile(const QString& path, qreal ratio) {
    const QFileInfo info(path);
    if (!info.isFile()) return {};
    const QString key = QStringLiteral("fendle:%1:%2:%3")
                            .arg(info.absoluteFilePath())
                            .arg(info.size())
                            .arg(info.lastModified().toMSecsSinceEpoch());
    QPixmap pm;
    if (QPixmapCache::find(key, &pm)) return pm;
    if (!pm.load(path)) return {};
    pm.setDevicePixelRatio(ratio);
    QPixmapCache::insert(key, pm);
    return pm;
}

}  // namespace

QString twinPath(const QString& path) {
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    const qsizetype dot = path.lastIndexOf(QLatin1Char('.'));
    if (dot <= slash + 1) return path + QStringLiteral("@2x");
    return path.left(dot) + QStringLiteral("@2x") + (path.mid(dot) == QLatin1String(".bmp") ? QStringLiteral(".png") : path.mid(dot));
}

QPixmap loadPicture(std::string_view file) {
    constexpr qreal twinFromRatio = 1.5;
    const QString path = hostPath(file);
    // On a screen at a scale of 1.5 or more, the twin drawn at twice the
    // resolution shows at the same size, sharp. Below that the picture itself,
    // smoothly enlarged, looks nearly as sharp and costs a fraction of the
    // decoding: the title screen's twin alone is a third of the start's work.
    if (qGuiApp && qGuiApp->devicePixelRatio() >= twinFromRatio) {
        const QPixmap sharp = loadPictureFile(twinPath(path), 2.0);
        if (!sharp.isNull()) return sharp;
    }
    return loadPictureFile(path, 1.0);
}

}  // namespace kit
}  // namespace fendle
