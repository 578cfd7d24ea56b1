// The title, set-up and high-score screens on their own: the time box, Hide
// Desktop, the sound rule, the Teachers' Guide outside English, the files the
// program cannot do without, and the ways out of each screen.
#include "game_run.h"

#include <QScreen>

using namespace fendle;
using testing::GameRun;

class TestSetup : public QObject {
    Q_OBJECT

private slots:
    // With Timers On, the seconds come from the number the box starts with.
    void theTimeBox() {
        const struct {
            bool timers;
            const char* text;
            int seconds;
        } cases[] = {{true, "600", 600}, {true, "4", 5},     {true, "-7", 5},     {true, "", 5},
                     {true, "12.5", 12}, {true, "13.5", 14}, {true, "1-2", 5},    {true, "4.6", 5},
                     {true, "9999", 9999}, {false, "600", 0}};
        for (const auto& c : cases) {
            GameRun g;
            Form* setup = g.setUp();
            if (c.timers) GameRun::tick(setup, "Check2");
            setup->control("Text2")->setCaption(c.text);
            GameRun::press(setup, "Label1", 1);
            QVERIFY2(g.state().timeallowed == c.seconds, c.text);
            QCOMPARE(GameRun::shows(g.board(), "Label12", 1), c.timers);
            if (c.timers) QCOMPARE(GameRun::caption(g.board(), "Label12", 1), QString::number(c.seconds));
        }
    }

    void theTimeBoxTakesOnlyNumbersAndEnterMovesOn() {
        GameRun g;
        Form* setup = g.setUp();
        GameRun::tick(setup, "Check2");
        QLineEdit* box = setup->get<kit::TextBox>("Text2")->edit();
        QVERIFY(box->isEnabled());
        box->clear();
        setup->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(setup));
        box->setFocus();
        QTest::keyClicks(box, "aZ-1 .x2,7");
        QCOMPARE(box->text(), QString("-1.2"));
        QTest::keyClick(box, Qt::Key_Backspace);
        QCOMPARE(box->text(), QString("-1."));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(box->text(), QString("-1."));
        QVERIFY(!box->hasFocus());
        QVERIFY(setup->focusWidget() && setup->focusWidget() != box);
        // Unticked, the box goes and takes no keys.
        GameRun::tick(setup, "Check2");
        QVERIFY(!box->isVisible() && !box->isEnabled());
    }

    // Run once on the usual 800-pixel screen (12000 twips: no Hide Desktop)
    // and once on a wider one.
    void hideDesktop() {
        GameRun g;
        Form* setup = g.setUp();
        const bool wide = setup->screen()->geometry().width() * kit::twipsPerPixel > 12000;
        QCOMPARE(GameRun::shows(setup, "Check3"), wide);
        auto* box = setup->get<kit::CheckBox>("Check3");
        QCOMPARE(box->value(), 1);
        QVERIFY(g.screen("Grey")->isVisible());
        // The box was ticked already: no click on it, only OK's.
        QCOMPARE(g.sound->played, std::vector<std::string>{"wav\\click.wav"});
        if (wide) {
            GameRun::tick(setup, "Check3");
            QCOMPARE(int(g.state().greyback), 0);
            QVERIFY(!g.loaded("Grey"));
            QCOMPARE(g.lastSound(), std::string("wav\\click1.wav"));
            GameRun::tick(setup, "Check3");
            QCOMPARE(int(g.state().greyback), 1);
            QVERIFY(g.screen("Grey")->isVisible());
        }
        // Coming in with the backdrop off unticks the box, and that counts
        // as a click on it, sound included.
        g.module->screens.unload("Startplay2");
        g.state().greyback = 0;
        g.sound->played.clear();
        setup = (g.module->screens.show("Startplay2"), g.screen("Startplay2"));
        QCOMPARE(setup->get<kit::CheckBox>("Check3")->value(), 0);
        QVERIFY(!g.loaded("Grey"));
        QCOMPARE(g.sound->played, std::vector<std::string>{"wav\\click1.wav"});
        QVERIFY(setup->isVisible());
    }

    // soundon changes only when a number of players is pressed, and then
    // decides the sound of that press: after a game that left it off, Play
    // Sound ticked brings it back with the press's click. Unticked, the sound
    // test hears a game stay silent.
    void theSoundRule() {
        GameRun g;
        g.state().soundon = 0;   // as a game without sound leaves it
        g.module->screens.show("Startplay2");
        Form* setup = g.screen("Startplay2");
        QCOMPARE(setup->get<kit::CheckBox>("Check1")->value(), 1);
        GameRun::tick(setup, "Check2");
        QVERIFY(g.sound->played.empty());
        GameRun::press(setup, "Label1", 1);
        QCOMPARE(int(g.state().soundon), 1);
        QCOMPARE(g.sound->played.size(), std::size_t(1));
    }

    // Outside English the Teachers' Guide button is hidden under the taller
    // picture: a click at its place lands on the picture, which does what OK
    // does.
    void theTeachersGuideOutsideEnglish() {
        GameRun g;
        g.write("numlang.txt", "1\r\n");
        g.open();
        Form* title = g.screen("Titlefrm");
        QWidget* button = title->control("Label9")->widget();
        QTest::mouseClick(title->windowHandle(), Qt::LeftButton, {}, button->mapTo(title, button->rect().center()));
        QCOMPARE(g.module->screens.loads("TeacherGuide"), 0);
        QVERIFY(!g.loaded("Titlefrm"));
        QVERIFY(g.loaded("Startplay2"));
    }

    // Without its texts or its neighbour table the program cannot go on: it
    // says which file, in the pupil's language, and stops. A missing picture
    // costs only the picture.
    void filesTheProgramNeeds() {
        const struct {
            const char* file;
            int keep;   // bytes left; -1 removes the file
            bool atOk;
            int language;
            const char* message;
        } cases[] = {
            {"text/text.csv", -1, false, 0, "text\\text.csv is missing"},
            {"text/rules.csv", 300, false, 0, "text\\rules.csv ends"},
            {"text/rules.csv", -1, true, 0, "text\\rules.csv is missing"},
            {"connarray.dat", -1, false, 0, "connarray.dat is missing"},
            {"connarray.dat", 50, false, 0, "connarray.dat ends"},
            {"connarray.dat", 50, false, 2, "Fendle! kann nicht weitermachen: connarray.dat endet nach 24 von 600 Werten."},
            {"Images/fendlemd.bmp", -1, false, 0, ""},
        };
        for (const auto& c : cases) {
            GameRun g;
            if (c.language) g.write("numlang.txt", QByteArray::number(c.language) + "\r\n");
            const auto damage = [&] {
                if (c.keep < 0) QVERIFY(QFile::remove(g.file(c.file)));
                else QVERIFY(QFile::resize(g.file(c.file), c.keep));
            };
            if (!c.atOk) damage();
            g.open();
            if (c.atOk) {
                QVERIFY(g.loaded("Titlefrm"));
                damage();
                GameRun::press(g.screen("Titlefrm"), "Label5");
            }
            if (!*c.message) {
                QVERIFY(g.messages.isEmpty());
                Form* title = g.screen("Titlefrm");
                QVERIFY(title->isVisible());
                QVERIFY(!title->get<kit::PictureBox>("Picture1")->hasPicture());
                QCOMPARE(title->size(), QSize(372, 438));
                GameRun::press(title, "Label5");
                QVERIFY(g.loaded("Startplay2"));
                continue;
            }
            QCOMPARE(g.messages.size(), 1);
            QVERIFY2(g.messages[0].contains(c.message), qPrintable(g.messages[0]));
            for (const char* name : {"Titlefrm", "Startplay2", "Grey"}) QVERIFY2(!g.loaded(name), name);
        }
    }

    void theWaysOut() {
        GameRun g;
        // The title bar's close is the title screen's Exit: the program ends,
        // the teachers' guide with it.
        GameRun::press(g.setUp(), "Label3", 0);
        QVERIFY(!g.loaded("Startplay2") && !g.loaded("Grey"));
        g.open();
        GameRun::press(g.screen("Titlefrm"), "Label9");
        QVERIFY(g.loaded("TeacherGuide"));
        GameRun::closeByTitleBar(g.screen("Titlefrm"));
        QVERIFY(!g.loaded("Titlefrm") && !g.loaded("TeacherGuide"));

        // Exit on the level screen goes back to a fresh set-up screen; the
        // board built meanwhile goes at the next choice of players.
        Form* setup = g.setUp();
        GameRun::tick(setup, "Check2");
        GameRun::press(setup, "Label1", 0);
        QVERIFY(g.loaded("fen1"));
        g.sound->played.clear();
        GameRun::press(g.screen("Startautoplay2"), "Label3", 0);
        QVERIFY(g.sound->played.empty());
        QVERIFY(!g.loaded("Startautoplay2"));
        setup = g.screen("Startplay2");
        QVERIFY(setup->isVisible());
        QCOMPARE(setup->get<kit::CheckBox>("Check2")->value(), 0);
        QVERIFY(!GameRun::shows(setup, "Text2"));
        GameRun::press(setup, "Label1", 2);
        QCOMPARE(g.module->screens.loads("fen1"), 2);
        QVERIFY(GameRun::shows(g.board(), "Label6", 3));

        // New Game on the board, then the set-up screen's close ends it all.
        GameRun::press(g.board(), "Label3", button::newGame);
        QVERIFY(!g.loaded("fen1"));
        GameRun::closeByTitleBar(g.screen("Startplay2"));
        for (const char* name : {"Titlefrm", "Startplay2", "Grey", "fen1"}) QVERIFY2(!g.loaded(name), name);
    }

    void theTableOpenedToLook() {
        GameRun g;
        Form* setup = g.setUp();
        GameRun::press(setup, "Label8");
        Form* scores = g.screen("highscores");
        QVERIFY(scores && scores->isVisible() && setup->isVisible() && !GameRun::shows(scores, "Text1"));
        GameRun::closeByTitleBar(scores);   // as Continue
        QVERIFY(!g.loaded("highscores"));
        QVERIFY(!QFile::exists(g.file("highscores.txt")));   // nothing awaited, nothing written

        const QByteArray table = " Ann\r\n 1450 \r\n\"Bo, Li\"\r\n 870 \r\n";
        g.write("highscores.txt", table);
        GameRun::press(setup, "Label8");
        GameRun::press(g.screen("highscores"), "Label3", 0);
        QCOMPARE(g.read("highscores.txt"), table);
    }
};

QTEST_MAIN(TestSetup)
#include "tst_setup.moc"
