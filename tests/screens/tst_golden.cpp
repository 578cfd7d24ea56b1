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
//
// Beside each picture the table keeps what no picture shows: the shot's
// controls as the program holds them, hidden ones too, with their places in
// twips (a change smaller than half a pixel draws the same picture), fonts,
// colours, captions, pictures, values, Visible and Enabled, and the window's
// title. That record is "<shot>/controls", compared by its hash like the
// picture and written out as text beside the pictures.
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

struct Shot {
    QImage image;
    QString controls;
};
using Shots = std::map<QString, Shot>;

QImage render(QWidget* w) { return w->grab().toImage().convertToFormat(QImage::Format_RGB32); }

QString hashOf(const QImage& img) {
    QCryptographicHash h(QCryptographicHash::Sha256);
    h.addData(QByteArray::number(img.width()) + 'x' + QByteArray::number(img.height()));
    for (int y = 0; y < img.height(); ++y)
        h.addData(QByteArrayView(reinterpret_cast<const char*>(img.constScanLine(y)), img.width() * 4));
    return QString::fromLatin1(h.result().toHex().left(32));
}
QString hashOf(const QString& text) {
    return QString::fromLatin1(QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256).toHex().left(32));
}

QString colourText(Rgb c) { return QStringLiteral("#%1").arg((c.r << 16) | (c.g << 8) | c.b, 6, 16, QChar('0')); }

// The window and each of its controls, one line each, in the order of the
// window's children.
QString controlsOf(const Form& f) {
    QStringList lines{QStringLiteral("%1 \"%2\" %3x%4 at %5,%6 %7").arg(QString::fromStdString(f.name()), f.windowTitle())
                          .arg(f.width()).arg(f.height()).arg(f.x()).arg(f.y()).arg(colourText(f.backColor()))};
    for (QWidget* w : f.findChildren<QWidget*>()) {
        const kit::Control* c = kit::Control::of(w);
        if (!c) continue;
        const QFont font = w->font();
        QString more;
        if (auto* i = dynamic_cast<const kit::Image*>(c)) more = QString::fromStdString(i->picture());
        if (auto* p = dynamic_cast<const kit::PictureBox*>(c)) more = QString::fromStdString(p->picture());
        if (auto* b = dynamic_cast<const kit::CheckBox*>(c)) more = QString::number(b->value());
        if (auto* o = dynamic_cast<const kit::OptionButton*>(c)) more = QString::number(o->value());
        if (c->kind() == kit::Kind::Line)
            more = QStringLiteral("%1,%2 %3,%4").arg(c->row().x1).arg(c->row().y1).arg(c->row().x2).arg(c->row().y2);
        lines << QStringLiteral("%1(%2) %3 %4 %5 %6 %7 %8 %9%10 %11 %12 %13%14 \"%15\" %16")
                     .arg(QString::fromStdString(c->name())).arg(c->index())
                     .arg(c->leftTwips()).arg(c->topTwips()).arg(c->widthTwips()).arg(c->heightTwips())
                     .arg(c->fontSize()).arg(font.family()).arg(font.pixelSize()).arg(font.bold() ? "b" : "")
                     .arg(colourText(c->foreColor()), colourText(c->backColor()))
                     .arg(c->visible() ? "shown" : "hidden").arg(c->enabled() ? "" : " disabled")
                     .arg(c->caption(), more);
    }
    return lines.join('\n') + '\n';
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
        out[QString::fromLatin1(screen) + QString::fromLatin1(state) + tag] = {render(f), controlsOf(*f)};
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
    shoot("fen1", ".start");
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
    g.clock.advance(2000);
    g.throwDice({1, 1, 1, 1});
    g.clickHexagon(50);   // Red's four ones cannot make 50
    shoot("fen1", ".illegal");
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

void writeText(const QString& path, const QString& text) {
    QFile f(path);
    if (f.open(QIODevice::WriteOnly | QIODevice::Truncate)) f.write(text.toUtf8());
}

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
        const QString diff = goldenDir + "/diff/", approvedDir = goldenDir + "/approved/";
        for (const auto& [shot, now] : shots) {
            const auto it = table.find(shot);
            if (it == table.end() || it->second != hashOf(now.image)) {
                faults << (it == table.end() ? shot + " has no approved picture" : shot + " differs from its approved picture");
                now.image.save(diff + shot + ".png");
                const QImage approved = QImage(approvedDir + shot + ".png").convertToFormat(QImage::Format_RGB32);
                if (it != table.end() && !approved.isNull() && hashOf(approved) == it->second) {
                    approved.save(diff + shot + ".approved.png");
                    difference(approved, now.image).save(diff + shot + ".difference.png");
                }
            }
            const auto was = table.find(shot + "/controls");
            if (was == table.end() || was->second != hashOf(now.controls)) {
                faults << shot + "'s controls differ from those approved (compare " + shot + ".txt with its .approved.txt)";
                writeText(diff + shot + ".txt", now.controls);
                QFile::remove(diff + shot + ".approved.txt");
                QFile::copy(approvedDir + shot + ".txt", diff + shot + ".approved.txt");
            }
        }
        for (const auto& [entry, hash] : table)
            if (!shots.count(entry.section('/', 0, 0))) faults << entry + " was approved but is no longer shot";
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
        f.write("# Approved pictures of the screens and records of their controls: shot, hash. Renewed by\n"
                "# the target renew-golden after a person has looked at every picture and record that changed.\n");
        int changed = 0;
        for (const auto& [shot, now] : shots) {
            const QString hash = hashOf(now.image), controls = hashOf(now.controls);
            f.write((shot + ' ' + hash + '\n' + shot + "/controls " + controls + '\n').toUtf8());
            now.image.save(goldenDir + "/approved/" + shot + ".png");
            writeText(goldenDir + "/approved/" + shot + ".txt", now.controls);
            const auto it = old.find(shot), was = old.find(shot + "/controls");
            if (it == old.end() || it->second != hash || was == old.end() || was->second != controls) {
                now.image.save(goldenDir + "/changed/" + shot + ".png");
                writeText(goldenDir + "/changed/" + shot + ".txt", now.controls);
                ++changed;
            }
        }
        qInfo().noquote() << shots.size() << "shots," << changed << "changed; see" << goldenDir + "/changed";
    }
};

QTEST_MAIN(TestGolden)
#include "tst_golden.moc"
