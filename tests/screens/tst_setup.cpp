// The title, set-up and high-score screens on their own: where their
// controls stand, the time box, Hide Desktop, the sound rule, the title
// screen by language, the files the program cannot do without, and the ways
// out of each screen.
#include "game_run.h"

#include <QScreen>

using namespace fendle;
using testing::GameRun;

namespace {

struct Place {
    const char* name;
    int index;
    int left, top, width, height;   // twips, in the control's container
};

// As the screens are drawn; the title screen with the English layout.
const Place titlePlaces[] = {
    {"Frame1", -1, 0, -90, 5595, 6660},     {"Label4", -1, 120, 120, 5355, 1215},
    {"Label1", -1, 4920, 345, 255, 165},    {"Picture1", -1, 360, 1200, 4800, 3000},
    {"Label9", -1, 780, 4320, 3975, 435},   {"Label8", -1, 780, 4920, 3975, 435},
    {"Label6", -1, 780, 5460, 3975, 435},   {"Label5", -1, 1020, 6000, 1695, 435},
    {"Label7", -1, 2820, 6000, 1695, 435},  {"Label2", -1, 0, 6420, 5535, 255},
};
const Place setupPlaces[] = {
    {"Label4", -1, 120, 0, 5355, 1215},     {"Label7", -1, 4920, 225, 255, 165},
    {"Label6", -1, 240, 1440, 2895, 435},   {"Image2", -1, 3600, 1440, 1500, 2085},
    {"Check1", -1, 720, 2040, 1695, 375},   {"Check2", -1, 720, 2400, 1695, 375},
    {"Label3", 2, 120, 2880, 3120, 600},    {"Text2", -1, 720, 3240, 975, 405},
    {"Label3", 3, 1800, 3300, 990, 285},    {"Label8", -1, 3240, 3720, 2175, 435},
    {"Check3", -1, 720, 3900, 1935, 375},   {"Label2", -1, 120, 4440, 5385, 600},
    {"Label1", 0, 720, 5100, 855, 735},     {"Label1", 1, 1830, 5100, 855, 735},
    {"Label1", 2, 2940, 5100, 855, 735},    {"Label1", 3, 4050, 5100, 855, 735},
    {"Label5", -1, 480, 6120, 3375, 495},   {"Label3", 0, 4080, 6120, 1335, 375},
};
const Place levelPlaces[] = {
    {"Label4", -1, 120, 0, 5355, 1215},     {"Label6", 0, 4920, 225, 255, 165},
    {"Label2", -1, 120, 1320, 3120, 1680},  {"Image2", -1, 3600, 1440, 1500, 2085},
    {"Option1", 0, 360, 2520, 2535, 375},   {"Option1", 1, 360, 3240, 2535, 375},
    {"Option1", 2, 360, 3960, 2535, 375},   {"Label1", -1, 150, 4980, 2535, 855},
    {"Label7", -1, 2880, 4980, 2535, 855},  {"Label5", -1, 480, 6120, 3375, 495},
    {"Label3", 0, 4080, 6120, 1335, 375},
};
const int rowTops[] = {600, 960, 1320, 1680, 2040, 2760, 3120, 3480, 3840, 4200};
std::vector<Place> scorePlaces() {
    std::vector<Place> p = {
        {"Label4", -1, 120, 0, 5355, 1215},    {"Label7", -1, 4950, 225, 225, 165},
        {"Label2", -1, 120, 1080, 5280, 480},  {"Frame1", -1, 240, 1440, 5055, 4575},
        {"Label6", 0, 120, 240, 4800, 360},    {"Label6", 1, 120, 2400, 4800, 360},
        {"Text1", -1, 480, 540, 3375, 405},    {"Label3", 0, 3960, 6120, 1335, 375},
        {"Label5", -1, 240, 6120, 3375, 495},
    };
    for (int r = 0; r < 10; ++r) {
        p.push_back({"Label8", r, 480, rowTops[r], 3480, 360});
        p.push_back({"Label9", r, 3960, rowTops[r], 960, 360});
    }
    return p;
}

// A stand-in for the teachers' guide, to see whether it is opened.
class Guide final : public Form {
public:
    explicit Guide(Module1& m) : Form(m, "TeacherGuide") {}
};

}  // namespace

class TestSetup : public QObject {
    Q_OBJECT

    static Form* setupScreen(GameRun& g) {
        g.open();
        GameRun::press(g.screen("Titlefrm"), "Label5");
        return g.screen("Startplay2");
    }

private slots:
    void everyControlStandsWhereItsTablePutsIt() {
        GameRun g;
        g.open();
        Form* title = g.screen("Titlefrm");
        Form* scores = (g.module->screens.show("highscores"), g.screen("highscores"));
        Form* setup = (GameRun::press(title, "Label5"), g.screen("Startplay2"));
        Form* level = (GameRun::press(setup, "Label1", 0), g.screen("Startautoplay2"));
        // Titlefrm is gone by now; a new one has the same layout.
        title = g.module->screens.form("Titlefrm");
        const std::vector<Place> highscorePlaces = scorePlaces();
        const std::pair<Form*, std::span<const Place>> screens[] = {
            {title, titlePlaces}, {setup, setupPlaces}, {level, levelPlaces}, {scores, highscorePlaces}};
        for (const auto& [form, places] : screens) {
            QCOMPARE(form->size(), QSize(372, 438));
            for (const Place& p : places) {
                const kit::Control* c = form->control(p.name, p.index);
                QVERIFY2(c, p.name);
                const QRect want(kit::px(p.left), kit::px(p.top), kit::px(p.width), kit::px(p.height));
                if (c->widget()->geometry() != want)
                    QFAIL(qPrintable(QString("%1 %2(%3)").arg(QString::fromStdString(form->name()), p.name).arg(p.index)));
            }
            // No control is left out of the table above.
            int controls = 0;
            for (QWidget* w : form->findChildren<QWidget*>()) controls += dynamic_cast<kit::Control*>(w) != nullptr;
            QCOMPARE(controls, int(places.size()));
        }
    }

    // With Timers On, the seconds come from the number the box starts with.
    void theTimeBox_data() {
        QTest::addColumn<bool>("timers");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("seconds");
        QTest::newRow("600") << true << "600" << 600;
        QTest::newRow("below 5") << true << "4" << 5;
        QTest::newRow("negative") << true << "-7" << 5;
        QTest::newRow("empty") << true << "" << 5;
        QTest::newRow("half to even, down") << true << "12.5" << 12;
        QTest::newRow("half to even, up") << true << "13.5" << 14;
        QTest::newRow("a number in front") << true << "1-2" << 5;
        QTest::newRow("rounded to 5") << true << "4.6" << 5;
        QTest::newRow("four digits") << true << "9999" << 9999;
        QTest::newRow("timers off") << false << "600" << 0;
    }
    void theTimeBox() {
        QFETCH(bool, timers);
        QFETCH(QString, text);
        QFETCH(int, seconds);
        GameRun g;
        Form* setup = setupScreen(g);
        if (timers) GameRun::tick(setup, "Check2");
        setup->control("Text2")->setCaption(text);
        GameRun::press(setup, "Label1", 1);
        QCOMPARE(int(g.state().timeallowed), seconds);
        QCOMPARE(GameRun::shows(g.board(), "Label12", 1), timers);
        if (timers) QCOMPARE(GameRun::caption(g.board(), "Label12", 1), QString::number(seconds));
    }

    void theTimeBoxTakesOnlyNumbersAndEnterMovesOn() {
        GameRun g;
        Form* setup = setupScreen(g);
        GameRun::tick(setup, "Check2");
        auto* box = setup->get<kit::TextBox>("Text2");
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
        Form* setup = setupScreen(g);
        const bool wide = setup->screen()->geometry().width() * kit::twipsPerPixel > 12000;
        QCOMPARE(GameRun::shows(setup, "Check3"), wide);
        auto* box = setup->get<kit::CheckBox>("Check3");
        QCOMPARE(box->value(), 1);
        QVERIFY(g.screen("Grey")->isVisible());
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
    // decides the sound of that press.
    void theSoundRule_data() {
        QTest::addColumn<bool>("playSound");
        QTest::newRow("Play Sound ticked") << true;
        QTest::newRow("Play Sound unticked") << false;
    }
    void theSoundRule() {
        QFETCH(bool, playSound);
        GameRun g;
        g.state().soundon = 0;   // as a game without sound leaves it
        g.module->screens.show("Startplay2");
        Form* setup = g.screen("Startplay2");
        QCOMPARE(setup->get<kit::CheckBox>("Check1")->value(), 1);
        GameRun::tick(setup, "Check2");
        if (!playSound) GameRun::tick(setup, "Check1");
        QVERIFY(g.sound->played.empty());
        GameRun::press(setup, "Label1", 1);
        QCOMPARE(int(g.state().soundon), playSound ? 1 : 0);
        QCOMPARE(g.sound->played.size(), playSound ? std::size_t(1) : std::size_t(0));
    }

    // The Teachers' Guide button shows only in English; in other languages
    // the picture covers it and takes the click itself.
    void theTeachersGuideByLanguage_data() {
        QTest::addColumn<QByteArray>("numlang");
        QTest::addColumn<bool>("guide");
        QTest::addColumn<QString>("restart");
        QTest::addColumn<int>("restartWidth");
        QTest::newRow("English") << QByteArray() << true << "Restart Previous Game" << 3975;
        QTest::newRow("French") << QByteArray("1\r\n") << false << "Reprendre la partie précédente" << 4755;
    }
    void theTeachersGuideByLanguage() {
        QFETCH(QByteArray, numlang);
        QFETCH(bool, guide);
        QFETCH(QString, restart);
        QFETCH(int, restartWidth);
        GameRun g;
        if (!numlang.isEmpty()) g.write("numlang.txt", numlang);
        g.module->screens.define<Guide>("TeacherGuide");
        g.open();
        Form* title = g.screen("Titlefrm");
        QCOMPARE(GameRun::caption(title, "Label6"), restart);
        QCOMPARE(title->control("Label6")->widget()->width(), kit::px(restartWidth));
        QCOMPARE(GameRun::shows(title, "Label9"), guide);

        QWidget* button = title->control("Label9")->widget();
        QTest::mouseClick(title->windowHandle(), Qt::LeftButton, {}, button->mapTo(title, button->rect().center()));
        QCOMPARE(g.module->screens.loads("TeacherGuide"), guide ? 1 : 0);
        QCOMPARE(g.loaded("Titlefrm"), guide);      // the guide opens in front of the title screen
        QCOMPARE(g.loaded("Startplay2"), !guide);   // the picture did what OK does
    }

    // Without its texts or its neighbour table the program cannot go on: it
    // says which file and stops. A missing picture costs only the picture.
    void filesTheProgramNeeds_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("keep");   // bytes left; -1 removes the file
        QTest::addColumn<bool>("atOk");
        QTest::addColumn<QString>("message");
        QTest::newRow("text.csv missing") << "text/text.csv" << -1 << false << "text\\text.csv is missing";
        QTest::newRow("rules.csv short") << "text/rules.csv" << 300 << false << "text\\rules.csv ends";
        QTest::newRow("rules.csv gone at OK") << "text/rules.csv" << -1 << true << "text\\rules.csv is missing";
        QTest::newRow("connarray.dat missing") << "connarray.dat" << -1 << false << "connarray.dat is missing";
        QTest::newRow("connarray.dat short") << "connarray.dat" << 50 << false << "connarray.dat ends";
        QTest::newRow("title picture missing") << "Images/fendlemd.bmp" << -1 << false << "";
    }
    void filesTheProgramNeeds() {
        QFETCH(QString, file);
        QFETCH(int, keep);
        QFETCH(bool, atOk);
        QFETCH(QString, message);
        GameRun g;
        const auto damage = [&] {
            if (keep < 0) QVERIFY(QFile::remove(g.file(file)));
            else QVERIFY(QFile::resize(g.file(file), keep));
        };
        if (!atOk) damage();
        g.open();
        if (atOk) {
            QVERIFY(g.loaded("Titlefrm"));
            damage();
            GameRun::press(g.screen("Titlefrm"), "Label5");
        }
        if (message.isEmpty()) {
            QVERIFY(g.messages.isEmpty());
            Form* title = g.screen("Titlefrm");
            QVERIFY(title->isVisible());
            QVERIFY(!title->get<kit::PictureBox>("Picture1")->hasPicture());
            QCOMPARE(title->size(), QSize(372, 438));
            GameRun::press(title, "Label5");
            QVERIFY(g.loaded("Startplay2"));
            return;
        }
        QCOMPARE(g.messages.size(), 1);
        QVERIFY2(g.messages[0].contains(message), qPrintable(g.messages[0]));
        for (const char* name : {"Titlefrm", "Startplay2", "Grey"}) QVERIFY2(!g.loaded(name), name);
    }

    void theWaysOut() {
        GameRun g;
        // The title bar's close is the title screen's Exit: the program ends,
        // the teachers' guide with it.
        g.open();
        GameRun::press(g.screen("Titlefrm"), "Label5");
        GameRun::press(g.screen("Startplay2"), "Label3", 0);
        QVERIFY(!g.loaded("Startplay2") && !g.loaded("Grey"));
        g.module->screens.define<Guide>("TeacherGuide");
        g.open();
        GameRun::press(g.screen("Titlefrm"), "Label9");
        QVERIFY(g.loaded("TeacherGuide"));
        GameRun::closeByTitleBar(g.screen("Titlefrm"));
        QVERIFY(!g.loaded("Titlefrm") && !g.loaded("TeacherGuide"));

        // Exit on the level screen goes back to a fresh set-up screen; the
        // board built meanwhile goes at the next choice of players.
        Form* setup = setupScreen(g);
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
        Form* setup = setupScreen(g);
        GameRun::press(setup, "Label8");
        Form* scores = g.screen("highscores");
        QVERIFY(scores && scores->isVisible() && setup->isVisible());
        for (int r = 0; r < 10; ++r) {
            QVERIFY(GameRun::shows(scores, "Label8", r) && GameRun::shows(scores, "Label9", r));
            QCOMPARE(GameRun::caption(scores, "Label9", r), QString());
        }
        QVERIFY(!GameRun::shows(scores, "Text1"));
        GameRun::closeByTitleBar(scores);   // as Continue
        QVERIFY(!g.loaded("highscores"));
        QVERIFY(!QFile::exists(g.file("highscores.txt")));   // nothing awaited, nothing written

        QByteArray table;
        for (int r = 0; r < 10; ++r) table += (r == 0 ? "Ada\r\n 610 \r\n" : r == 5 ? "Bo\r\n 300 \r\n" : "\r\n 0 \r\n");
        g.write("highscores.txt", table);
        GameRun::press(setup, "Label8");
        scores = g.screen("highscores");
        QCOMPARE(GameRun::caption(scores, "Label8", 0), QString("Ada"));
        QCOMPARE(GameRun::caption(scores, "Label9", 0), QString("610"));
        QCOMPARE(GameRun::caption(scores, "Label9", 1), QString());
        QCOMPARE(GameRun::caption(scores, "Label8", 5), QString("Bo"));
        GameRun::press(scores, "Label3", 0);
        QCOMPARE(g.read("highscores.txt"), table);
    }
};

QTEST_MAIN(TestSetup)
#include "tst_setup.moc"
