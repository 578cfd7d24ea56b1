// The writes a pupil meets, the high-score table on Continue, the saved game
// on Exit, the choice of language on its OK and that of the counters' marks
// on their box, each made to fail in turn: a read-only game folder, a full
// disk and a folder where the file should be. Each time the old file stays
// whole, the pupil is told in plain words, and the program goes on.
//
// The read-only folder and the full disk are real mounts (a read-only bind
// mount and a small tmpfs) in a mount namespace of this process alone, so
// they need root; elsewhere those cases say why they are skipped.
#include "../screens/game_run.h"

#include <QApplication>

#include <sched.h>
#include <sys/mount.h>

#include "saved/highscores.h"
#include "text/messages.h"

using namespace fendle;
using testing::GameRun;

namespace {

bool privateMounts = false;

enum class Fault { none, readOnlyFolder, fullDisk, folderInTheWay };

// Puts a fault on the game folder for as long as it lives.
class DiskFault {
public:
    DiskFault(GameRun& g, Fault fault, const QString& file) : dir_(g.folder.path()) {
        switch (fault) {
        case Fault::none: break;
        case Fault::folderInTheWay:
            QFile::remove(g.file(file));
            ok_ = QDir(dir_).mkdir(file);
            break;
        case Fault::readOnlyFolder:
            ok_ = privateMounts && bindOver(dir_) &&
                  ::mount(nullptr, dir_.toLocal8Bit(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) == 0;
            break;
        case Fault::fullDisk: ok_ = privateMounts && fillDisk(); break;
        }
        // The program names its files from the working folder: enter the
        // folder as it now stands.
        QDir::setCurrent(dir_);
    }
    ~DiskFault() {
        for (int i = 0; i < mounts_; ++i) ::umount2(dir_.toLocal8Bit(), MNT_DETACH);
        if (!tmpfs_.isEmpty()) {
            ::umount2(tmpfs_.toLocal8Bit(), MNT_DETACH);
            QDir().rmdir(tmpfs_);
        }
        QDir::setCurrent(dir_);
    }
    bool ok() const { return ok_; }

private:
    bool bindOver(const QString& from) {
        if (::mount(from.toLocal8Bit(), dir_.toLocal8Bit(), nullptr, MS_BIND, nullptr) != 0) return false;
        ++mounts_;
        return true;
    }
    // A small tmpfs holding a copy of the game folder, filled to the last
    // byte, in the folder's place.
    bool fillDisk() {
        tmpfs_ = dir_ + ".full";
        if (!QDir().mkpath(tmpfs_) || ::mount("tmpfs", tmpfs_.toLocal8Bit(), "tmpfs", 0, "size=32m") != 0 ||
            !testing::copyFolder(dir_, tmpfs_))
            return false;
        QFile filler(tmpfs_ + "/filler");
        if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return false;
        const QByteArray block(4096, 'x');
        while (filler.write(block) == block.size()) {}
        filler.close();
        return bindOver(tmpfs_);
    }

    QString dir_, tmpfs_;
    int mounts_ = 0;
    bool ok_ = true;
};

}  // namespace

Q_DECLARE_METATYPE(Fault)

class TestFaults : public QObject {
    Q_OBJECT

    static void faultRows() {
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<int>("language");
        QTest::newRow("none") << Fault::none << 0;
        QTest::newRow("read-only folder") << Fault::readOnlyFolder << 1;
        QTest::newRow("full disk") << Fault::fullDisk << 0;
        QTest::newRow("folder in the way") << Fault::folderInTheWay << 6;
    }
    static void startGame(GameRun& g, int language) {
        g.write("numlang.txt", QByteArray::number(language) + "\r\n");
        g.startGame(1);   // two players
    }
    static void skipUnlessPossible(const DiskFault& fault) {
        if (!fault.ok()) QSKIP("this fault needs a mount namespace of its own (run as root)");
    }

private slots:
    void theHighScoreTableCannotBeWritten_data() { faultRows(); }
    void theHighScoreTableCannotBeWritten() {
        QFETCH(Fault, fault);
        QFETCH(int, language);
        GameRun g;
        HighScores old;
        old.highnames[0] = "Old";
        old.highpoints[0] = 30;
        const QByteArray before = QByteArray::fromStdString(highscoresText(old));
        g.write("highscores.txt", before);

        startGame(g, language);
        g.layPathBut(1, 2);
        g.throwDice({1, 1, 1, 1});
        g.clickHexagon(1);
        g.clock.advance(6000);
        Form* scores = g.screen("highscores");
        QVERIFY(scores && scores->isVisible());
        QTest::keyClicks(scores->control("Text1")->widget(), "Ada");

        const DiskFault diskFault(g, fault, "highscores.txt");
        skipUnlessPossible(diskFault);
        GameRun::press(scores, "Label3", 0);

        // Continue leads on, and the board can be left again.
        Fen1Form* board = g.board();
        QVERIFY(!g.loaded("highscores"));
        QVERIFY(board->control("Label3", button::exitGame)->enabled());
        QVERIFY(board->control("Label3", button::newGame)->enabled());
        if (fault == Fault::none) {
            QVERIFY(g.messages.isEmpty());
            QVERIFY(g.read("highscores.txt").contains("Ada"));
            return;
        }
        const QString told = g.module->message(msg::highscoreNotSaved);
        QCOMPARE(g.messages, QStringList{told});
        QVERIFY(!told.contains("highscores") && !told.contains("tmp"));
        QCOMPARE(told == QString::fromUtf8(msg::highscoreNotSaved.english.data()), language == 0);
        if (fault == Fault::folderInTheWay) QVERIFY(QFileInfo(g.file("highscores.txt")).isDir());
        else QCOMPARE(g.read("highscores.txt"), before);

        // The program goes on, and the entry is kept while it runs.
        GameRun::press(board, "Label3", button::newGame);
        Form* setup = g.screen("Startplay2");
        QVERIFY(setup && setup->isVisible());
        GameRun::press(setup, "Label8");
        scores = g.screen("highscores");
        QVERIFY(scores && scores->isVisible());
        QCOMPARE(GameRun::caption(scores, "Label8", 0), QString("Ada"));
        QCOMPARE(GameRun::caption(scores, "Label8", 1), QString("Old"));
        GameRun::press(scores, "Label3", 0);
        QVERIFY(!g.loaded("highscores"));
        QCOMPARE(g.messages.size(), 1);   // told once
    }

    void theSavedGameCannotBeWritten_data() { faultRows(); }
    void theSavedGameCannotBeWritten() {
        QFETCH(Fault, fault);
        QFETCH(int, language);
        GameRun g;
        const QByteArray before = "an older game\r\n";
        g.write("lastgame.inf", before);
        startGame(g, language);
        g.throwDice({1, 2, 3, 4});
        g.clickHexagon(24);
        g.clock.advance(2000);
        g.throwDice({1, 1, 1, 1});
        g.clickHexagon(4);
        g.clock.advance(2000);

        const DiskFault diskFault(g, fault, "lastgame.inf");
        skipUnlessPossible(diskFault);
        GameRun::press(g.board(), "Label3", button::exitGame);
        QVERIFY(!g.loaded("fen1"));
        Form* title = g.screen("Titlefrm");
        QVERIFY(title && title->isVisible());
        if (fault == Fault::none) {
            // An untimed game keeps the clock boxes' "2000" in all four lines.
            const QList<QByteArray> lines = g.read("lastgame.inf").split('\n');
            QCOMPARE(lines.size(), 216);
            for (int line = 210; line <= 213; ++line) QCOMPARE(lines[line - 1], QByteArray("2000\r"));
            QTest::qWait(20);
            QVERIFY(g.messages.isEmpty());
            return;
        }
        // Where nothing can be written, the record of games cannot grow either.
        QStringList told{g.module->message(msg::gameNotSaved)};
        if (fault != Fault::folderInTheWay) told << g.module->message(msg::gameNotRecorded);
        QTRY_COMPARE(g.messages, told);
        if (fault == Fault::folderInTheWay) QVERIFY(QFileInfo(g.file("lastgame.inf")).isDir());
        else QCOMPARE(g.read("lastgame.inf"), before);

        // The program goes on: a new game can be set up.
        GameRun::press(title, "Label5");
        QVERIFY(g.screen("Startplay2") && g.screen("Startplay2")->isVisible());
    }

    // Dutch is chosen over an older choice of French: told in Dutch, and
    // Dutch stands for the rest of the run, whatever the file says when OK
    // reads it again.
    void theLanguageCannotBeWritten_data() { faultRows(); }
    void theLanguageCannotBeWritten() {
        QFETCH(Fault, fault);
        GameRun g;
        const QByteArray before = "1\r\n";
        g.write("numlang.txt", before);
        g.open();
        GameRun::press(g.screen("Titlefrm"), "Label8");
        Form* languages = g.screen("languages");
        QVERIFY(languages && languages->isVisible());
        GameRun::tick(languages, "Option1", 5);

        const DiskFault diskFault(g, fault, "numlang.txt");
        skipUnlessPossible(diskFault);
        GameRun::press(languages, "Command1");
        Form* title = g.screen("Titlefrm");
        QVERIFY(title && title->isVisible());
        QCOMPARE(GameRun::caption(title, "Label8"), QString("Taal wijzigen"));
        GameRun::press(title, "Label5");
        QCOMPARE(int(g.state().languagenumber), 5);
        QCOMPARE(QString::fromStdString(g.state().languagename), QString("Dutch"));
        QCOMPARE(GameRun::caption(g.screen("Startplay2"), "Label6"), QString("De regels"));
        if (fault == Fault::none) {
            QVERIFY(g.messages.isEmpty());
            QCOMPARE(g.read("numlang.txt"), QByteArray("5\r\n"));
            return;
        }
        QCOMPARE(g.messages, QStringList{"Je taalkeuze kon niet worden opgeslagen. Fendle! gebruikt deze taal tot "
                                         "je het spel afsluit."});
        if (fault == Fault::folderInTheWay) QVERIFY(QFileInfo(g.file("numlang.txt")).isDir());
        else QCOMPARE(g.read("numlang.txt"), before);
    }

    // The marks are turned on, off and on again over an older choice of
    // none: the next counter and its flash carry blue's mark, and the box is
    // ticked when the title screen has read the setting again. Where the
    // file cannot take the choice, the pupil is told once, and the choice
    // stands for the rest of the run.
    void theMarksCannotBeWritten_data() { faultRows(); }
    void theMarksCannotBeWritten() {
        QFETCH(Fault, fault);
        QFETCH(int, language);
        GameRun g;
        const QByteArray before = "0\r\n";
        g.write("countermarks.txt", before);
        g.write("numlang.txt", QByteArray::number(language) + "\r\n");
        Form* setup = g.setUp();
        const DiskFault diskFault(g, fault, "countermarks.txt");
        skipUnlessPossible(diskFault);
        for (int click = 0; click < 3; ++click) GameRun::tick(setup, "Check4");
        GameRun::press(setup, "Label1", 1);
        g.throwDice({1, 2, 3, 4});
        g.clickHexagon(24);
        QCOMPARE(g.board()->model().Image1[24].picture, std::string("counters\\marked\\cybl1.bmp"));
        QCOMPARE(g.board()->model().Image3.picture, std::string("counters\\marked\\cywhbl1.bmp"));
        g.open();
        GameRun::press(g.screen("Titlefrm"), "Label5");
        QCOMPARE(g.screen("Startplay2")->get<kit::CheckBox>("Check4")->value(), 1);
        if (fault == Fault::none) {
            QVERIFY(g.messages.isEmpty());
            QCOMPARE(g.read("countermarks.txt"), QByteArray("1\r\n"));
            return;
        }
        QCOMPARE(g.messages, QStringList{g.module->message(msg::countermarksNotSaved)});
        if (fault == Fault::folderInTheWay) QVERIFY(QFileInfo(g.file("countermarks.txt")).isDir());
        else QCOMPARE(g.read("countermarks.txt"), before);
    }
};

int main(int argc, char** argv) {
    // Mounts made here are seen by this process alone and go with it.
    privateMounts = ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    QApplication app(argc, argv);
    TestFaults test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_faults.moc"
