// Every screen of the game in every language, as a person sees it: drawn on
// the offscreen platform at scale 1 and compared pixel for pixel with a
// picture that a person has looked at and approved. golden.txt keeps each
// approved picture as a hash, one line per shot: "<shot> <hash>".
//
// A shot that differs fails the test and is written to <build>/golden/diff/
// as <shot>.png, with <shot>.approved.png and <shot>.difference.png beside it
// when this build folder still holds the approved picture. After a person has
// looked at every changed picture, one command renews the table:
//   cmake --build <build> --target renew-golden
// It rewrites golden.txt, keeps every picture in <build>/golden/approved/ and
// puts those that changed in <build>/golden/changed/ for review.
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QPainter>

#include <functional>
#include <map>

#include "game_run.h"
#include "text/binding.h"

using namespace fendle;
using testing::GameRun;

namespace {

using Shots = std::map<QString, QImage>;

QImage render(QWidget* w) { return w->grab().toImage().convertToFormat(QImage::Format_RGB32); }

QString hashOf(const QImage& img) {
    QCryptographicHash h(QCryptographicHash::Sha256);
    h.addData(QByteArray::number(img.width()) + 'x' + QByteArray::number(img.height()));
    for (int y = 0; y < img.height(); ++y)
        h.addData(QByteArrayView(reinterpret_cast<const char*>(img.constScanLine(y)), img.width() * 4));
    return QString::fromLatin1(h.result().toHex().left(32));
}

// A high-score table with a long name, a short one and an empty row, so that
// the rows show what they hold.
const QByteArray someScores = " Ann\r\n 1450 \r\n\"Bo, Li\"\r\n 870 \r\n Zo\xc3\xab\r\n 20 \r\n";

// The shots of one language: each screen as it opens, and the states in
// which a screen shows more (Timers On, a game under way, thrown dice).
void shootLanguage(int lang, Shots& out) {
    GameRun g;
    g.write("numlang.txt", QByteArray::number(lang) + "\r\n");
    g.write("highscores.txt", someScores);
    const QString tag = QStringLiteral(".%1").arg(lang);
    auto shoot = [&](const char* screen, const char* state = "") {
        Form* f = g.screen(screen);
        QVERIFY2(f && f->isVisible(), screen);
        out[QString::fromLatin1(screen) + QString::fromLatin1(state) + tag] = render(f);
    };
    auto alone = [&](const char* screen) {
        g.module->screens.show(screen);
        shoot(screen);
        g.module->screens.unload(screen);
    };

    g.open();
    shoot("Titlefrm");
    for (const char* s : {"highscores", "languages", "TeacherGuide", "Cheatchart"}) alone(s);
    for (int page = 1; page <= 5; ++page) alone(binding::ruleFormName(page, lang).c_str());
    const std::string page2 = binding::ruleFormName(2, lang);
    g.module->screens.show(page2);
    GameRun::press(g.screen(page2.c_str()), "Label2");
    g.clock.advance(3000);
    shoot(page2.c_str(), ".dice");
    g.module->screens.unload(page2);

    Form* setup = g.setUp();
    shoot("Startplay2");
    GameRun::tick(setup, "Check2");
    shoot("Startplay2", ".timers");
    GameRun::press(setup, "Label1", 0);
    shoot("Startautoplay2");
    GameRun::tick(g.screen("Startautoplay2"), "Option1", 2);
    GameRun::press(g.screen("Startautoplay2"), "Label7");
    g.throwDice({1, 2, 3, 4});
    g.clickHexagon(24);
    shoot("fen1", ".computer");

    g.module->screens.unload("fen1");
    g.module->screens.unload("Startplay2");
    g.state().computerlevel = 0;
    g.showBoard(4, 600);
    g.throwDice({6, 5, 4, 3});
    g.clickHexagon(18);
    shoot("fen1", ".four");
}

Shots shootAll() {
    Shots shots;
    for (int lang = 0; lang < 7; ++lang) shootLanguage(lang, shots);
    return shots;
}

std::map<QString, QString> readTable(const QString& path) {
    std::map<QString, QString> table;
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) return table;
    while (!f.atEnd()) {
        const QStringList parts = QString::fromUtf8(f.readLine()).trimmed().split(' ', Qt::SkipEmptyParts);
        if (parts.size() == 2 && !parts[0].startsWith('#')) table[parts[0]] = parts[1];
    }
    return table;
}

// Where the two pictures differ, in red over a faded copy of the approved one.
QImage difference(const QImage& approved, const QImage& now) {
    QImage out(now.size().expandedTo(approved.size()), QImage::Format_RGB32);
    out.fill(Qt::white);
    for (int y = 0; y < out.height(); ++y)
        for (int x = 0; x < out.width(); ++x) {
            const bool inA = approved.rect().contains(x, y), inB = now.rect().contains(x, y);
            const QRgb a = inA ? approved.pixel(x, y) : 0, b = inB ? now.pixel(x, y) : 0;
            const int grey = 192 + qGray(a) / 4;
            out.setPixel(x, y, inA && inB && a == b ? qRgb(grey, grey, grey) : qRgb(255, 0, 0));
        }
    return out;
}

const QString goldenDir = QStringLiteral(FENDLE_GOLDEN_DIR);

}  // namespace

class TestGolden : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        // A text box's cursor shows steadily instead of blinking with the
        // real clock, so that a focused box looks the same in every run.
        QApplication::setCursorFlashTime(0);
    }

    void everyScreenAsApproved() {
        const Shots shots = shootAll();
        QVERIFY(!QTest::currentTestFailed());
        const std::map<QString, QString> table = readTable(QStringLiteral(FENDLE_GOLDEN_TABLE));
        if (qEnvironmentVariableIsSet("FENDLE_GOLDEN_RENEW")) return renew(shots, table);

        QStringList faults;
        QDir(goldenDir).mkpath(QStringLiteral("diff"));
        for (const auto& [shot, image] : shots) {
            const auto it = table.find(shot);
            const QString hash = hashOf(image);
            if (it != table.end() && it->second == hash) continue;
            faults << (it == table.end() ? shot + " has no approved picture" : shot + " differs from its approved picture");
            image.save(goldenDir + "/diff/" + shot + ".png");
            const QImage approved(goldenDir + "/approved/" + shot + ".png");
            if (it != table.end() && !approved.isNull() && hashOf(approved.convertToFormat(QImage::Format_RGB32)) == it->second) {
                approved.save(goldenDir + "/diff/" + shot + ".approved.png");
                difference(approved.convertToFormat(QImage::Format_RGB32), image).save(goldenDir + "/diff/" + shot + ".difference.png");
            }
        }
        for (const auto& [shot, hash] : table)
            if (!shots.count(shot)) faults << shot + " was approved but is no longer shot";
        if (!faults.isEmpty()) faults << "pictures in " + goldenDir + "/diff; after review: cmake --build <build> --target renew-golden";
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
    }

private:
    static void renew(const Shots& shots, const std::map<QString, QString>& old) {
        QDir(goldenDir + "/changed").removeRecursively();
        QDir(goldenDir).mkpath(QStringLiteral("approved"));
        QDir(goldenDir).mkpath(QStringLiteral("changed"));
        QFile f(QStringLiteral(FENDLE_GOLDEN_TABLE));
        QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Text | QIODevice::Truncate));
        f.write("# Approved pictures of the screens: shot, hash. Renewed by the target renew-golden\n"
                "# after a person has looked at every picture that changed.\n");
        int changed = 0;
        for (const auto& [shot, image] : shots) {
            const QString hash = hashOf(image);
            f.write((shot + ' ' + hash + '\n').toUtf8());
            image.save(goldenDir + "/approved/" + shot + ".png");
            const auto it = old.find(shot);
            if (it == old.end() || it->second != hash) {
                image.save(goldenDir + "/changed/" + shot + ".png");
                ++changed;
            }
        }
        qInfo().noquote() << shots.size() << "shots," << changed << "changed; see" << goldenDir + "/changed";
    }
};

QTEST_MAIN(TestGolden)
#include "tst_golden.moc"
