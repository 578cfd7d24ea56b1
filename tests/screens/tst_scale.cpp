// The scale of the windows: the scale chosen for common screens, and every
// screen of the game drawn at scale 2 as at scale 1, twice as large, with the
// pictures drawn for that scale.
//
// The test runs at scale 1 and starts itself again at scale 2 ("dump"), which
// prints where every control of every screen stands in screen pixels.
#include <QProcess>
#include <QtTest>

#include <cstdio>
#include <map>

#include "fit_check.h"
#include "game_run.h"
#include "screens/grey.h"
#include "screens/scale.h"

using namespace fendle;

namespace {

// Every control of every screen, in screen pixels: "fen1 Label3(2)" ->
// "x y width height font-pixels" (a window: "width height"), and the
// pictures they show with their device pixel ratio.
struct Layout {
    std::map<QString, QString> places;
    std::map<QString, qreal> pictures;
};

Layout measure() {
    testing::GameRun run;
    Module1& m = *run.module;
    // Every screen the game defines, the title screen first, since it reads
    // the tables that the others show.
    std::vector<std::string> names = m.screens.names();
    std::stable_partition(names.begin(), names.end(), [](const std::string& n) { return n == "Titlefrm"; });
    m.state.nplayers = 2;
    for (const std::string& name : names) m.screens.form(name);
    // A counter on the board, so that the counters' pictures show too.
    if (auto* board = run.board()) {
        board->game().showPlayers(2);
        board->sync();
        m.screens.show(Fen1Form::formName);
        run.throwDice({6, 5, 4, 3});
        run.clickHexagon(18);
    }

    Layout out;
    for (const std::string& name : names) {
        Form* f = run.screen(name.c_str());
        // The backdrop covers the screen, whatever its scale.
        if (!f || name == Grey::formName) continue;
        const qreal r = f->devicePixelRatioF();
        const QString screen = QString::fromStdString(name);
        out.places[screen] = QStringLiteral("%1 %2").arg(f->width() * r).arg(f->height() * r);
        if (!f->picture().isNull()) out.pictures[screen] = f->picture().devicePixelRatio();
        for (QWidget* w : f->findChildren<QWidget*>()) {
            const auto* c = kit::Control::of(w);
            if (!c) continue;
            const QString key = screen + ' ' + testing::controlName(c);
            const QPoint at = w->mapTo(f, QPoint(0, 0));
            int font = 0;
            if (auto* label = dynamic_cast<const kit::Label*>(c)) font = label->drawnPixelSize();
            if (auto* button = dynamic_cast<const kit::Button*>(c)) font = button->drawnPixelSize();
            out.places[key] = QStringLiteral("%1 %2 %3 %4 %5")
                                  .arg(at.x() * r).arg(at.y() * r)
                                  .arg(w->width() * r).arg(w->height() * r)
                                  .arg(font * r);
            const QPixmap* pm = nullptr;
            if (auto* image = dynamic_cast<const kit::Image*>(c)) pm = &image->pixmap();
            if (auto* box = dynamic_cast<const kit::PictureBox*>(c)) pm = &box->pixmap();
            if (pm && !pm->isNull()) out.pictures[key] = pm->devicePixelRatio();
        }
    }
    return out;
}

QString doubled(const QString& place) {
    QStringList parts = place.split(' ');
    for (QString& p : parts) p = QString::number(p.toDouble() * 2);
    return parts.join(' ');
}

// Place and size exactly doubled. The font doubled too, or one step of the
// fitting (a pixel at scale 1) smaller: text is measured without hinting at
// larger scales, so a caption that only just fits its box at scale 1 can
// need that step.
bool doubledPlace(const QString& one, const QString& two) {
    if (two == doubled(one)) return true;
    QStringList a = doubled(one).split(' '), b = two.split(' ');
    if (a.size() != 5 || b.size() != 5) return false;
    const double want = a.takeLast().toDouble(), got = b.takeLast().toDouble();
    return a == b && got == want - 2;
}

}  // namespace

class TestScale : public QObject {
    Q_OBJECT

private slots:
    void chosenForCommonScreens() {
        // The board's page is 800 x 600 and needs 16 x 64 more for its frame;
        // the scale is the largest eighth at which page and frame still fit.
        struct Case {
            QSize screen;
            double scale;
        };
        const Case cases[] = {
            {{800, 600}, 1.0},       // too small for the frame too: never below 1
            {{640, 480}, 1.0},
            {{1024, 768}, 1.125},    // (768 - 64) / 600 = 1.17
            {{1366, 768}, 1.125},
            {{1280, 1024}, 1.5},     // (1280 - 16) / 800 = 1.58 across; 1.6 down
            {{1920, 1080}, 1.625},   // (1080 - 64) / 600 = 1.69
            {{2560, 1440}, 2.25},    // 2.29
            {{3840, 2160}, 3.375},   // 3.49
        };
        for (const Case& c : cases) QCOMPARE(chooseScale(c.screen), c.scale);
    }

    void explicitScales() {
        const std::pair<const char*, std::optional<double>> cases[] = {
            {"1", 1.0}, {"1.5", 1.5}, {" 2 ", 2.0}, {"8", 8.0},
            // Qt 6.4 paints widgets at 1 in a window laid out smaller.
            {"0.99", std::nullopt}, {"0.5", std::nullopt}, {"8.5", std::nullopt}, {"", std::nullopt}, {"two", std::nullopt},
            {"nan", std::nullopt}, {"inf", std::nullopt}, {"1,5", std::nullopt},
        };
        for (const auto& [text, want] : cases) QVERIFY2(parseScale(QString::fromLatin1(text)) == want, text);
    }

    void everyScreenAtScale2IsScale1Doubled() {
        const Layout one = measure();
        QVERIFY(one.places.size() > 100);

        QProcess twice;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
        twice.setProcessEnvironment(env);
        twice.start(QCoreApplication::applicationFilePath(), {QStringLiteral("dump")});
        QVERIFY(twice.waitForFinished(60000));
        QCOMPARE(twice.exitCode(), 0);
        Layout two;
        for (const QByteArray& line : twice.readAllStandardOutput().split('\n')) {
            const QList<QByteArray> f = line.split('\t');
            if (f.size() == 3 && f[0] == "place") two.places[QString::fromUtf8(f[1])] = QString::fromUtf8(f[2]);
            if (f.size() == 3 && f[0] == "picture") two.pictures[QString::fromUtf8(f[1])] = f[2].toDouble();
        }

        QCOMPARE(two.places.size(), one.places.size());
        QStringList wrong;
        for (const auto& [key, place] : one.places)
            if (!doubledPlace(place, two.places[key])) wrong << key + ": " + two.places[key] + " for " + doubled(place);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join('\n')));
        // The same pictures show, each from its twin drawn at twice the resolution.
        QVERIFY(one.pictures.size() >= 9);
        QCOMPARE(two.pictures.size(), one.pictures.size());
        for (const auto& [key, ratio] : two.pictures) QCOMPARE(key + ' ' + QString::number(ratio), key + " 2");
    }

    // At a scale that is no whole number (1.625 on a 1080p screen) a bordered
    // label or button is edged to its last column and row of the screen's
    // pixels, with no dark line left between its edge and what is behind it.
    void bordersReachTheEdgeAtAFractionalScale() {
        QProcess run;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("1.625"));
        run.setProcessEnvironment(env);
        run.start(QCoreApplication::applicationFilePath(), {QStringLiteral("edges")});
        QVERIFY(run.waitForFinished(60000));
        QVERIFY2(run.exitCode() == 0, run.readAllStandardOutput().constData());
    }
};

// The bordered labels and buttons of the title and set-up screens whose last
// column or row of pixels is not the edge's white.
int unedged() {
    testing::GameRun run;
    int faults = 0;
    const auto check = [&faults](Form* f) {
        for (QWidget* w : f->findChildren<QWidget*>()) {
            const kit::Control* c = kit::Control::of(w);
            if (!c || !c->row().border || !w->isVisible()) continue;
            const QImage img = w->grab().toImage();
            const QRgb right = img.pixel(img.width() - 1, img.height() / 2), foot = img.pixel(img.width() / 2, img.height() - 1);
            if (right == foot && qRed(right) == 255 && qGreen(right) == 255 && qBlue(right) == 255) continue;
            std::printf("%s %s: edge %08x %08x\n", f->name().c_str(), qPrintable(testing::controlName(c)), right, foot);
            ++faults;
        }
    };
    run.open();
    check(run.screen("Titlefrm"));
    check(run.setUp());
    return faults;
}

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc == 2 && QByteArrayView(argv[1]) == "dump") {
        const Layout layout = measure();
        for (const auto& [key, place] : layout.places) std::printf("place\t%s\t%s\n", qPrintable(key), qPrintable(place));
        for (const auto& [key, ratio] : layout.pictures) std::printf("picture\t%s\t%g\n", qPrintable(key), ratio);
        return 0;
    }
    if (argc == 2 && QByteArrayView(argv[1]) == "edges") return unedged();
    TestScale test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_scale.moc"
