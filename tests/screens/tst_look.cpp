// How the screens meet people who do not see or hear them as the designer
// did: every text heard by a screen reader, with the window's name in the
// player's language; coloured text on the blue board readable on a
// projector; and a keyboard focus that never sits unseen on a button.
#include "accessible_walk.h"
#include "contrast.h"
#include "game_run.h"

using namespace fendle;
using testing::GameRun;
using testing::Heard;

namespace {

// Each visible text of the window heard with its role, and the window
// itself heard as a window by the given name.
void checkHeard(QWidget* window, const QString& name) {
    QVERIFY(window && window->isVisible());
    const std::vector<Heard> heard = testing::hear(window);
    QCOMPARE(heard.front().role, QAccessible::Window);
    QCOMPARE(heard.front().name, name);
    const std::vector<Heard> shown = testing::shownTexts(window);
    for (const Heard& t : shown)
        QVERIFY2(testing::contains(heard, t), qPrintable(testing::describe(t) + " unheard in " + name));
}

#define CHECK_HEARD(window, name)            \
    do {                                     \
        checkHeard(window, name);            \
        if (QTest::currentTestFailed()) return; \
    } while (false)

// A board shown as the set-up screens leave it.
Fen1Form* showBoard(GameRun& g, int nplayers, int timeallowed = 0) {
    g.state().nplayers = static_cast<i16>(nplayers);
    g.state().timeallowed = static_cast<i16>(timeallowed);
    auto* f = g.module->screens.get<Fen1Form>(Fen1Form::formName);
    f->game().showPlayers(nplayers);
    f->sync();
    g.module->screens.show(Fen1Form::formName);
    return f;
}

QImage render(QWidget* w) { return w->grab().toImage().convertToFormat(QImage::Format_RGB32); }

double contrastOf(Form* f, const char* name, int index = -1) {
    const kit::Control* c = f->control(name, index);
    return testing::edgeContrast(render(f), c->widget()->geometry().translated(c->widget()->parentWidget()->mapTo(f, QPoint())),
                                 kit::toQColor(c->foreColor()));
}

}  // namespace

class TestLook : public QObject {
    Q_OBJECT

private slots:
    void everyScreenIsHeardWholeAndByName() {
        GameRun g;
        g.open();
        Form* title = g.screen("Titlefrm");
        CHECK_HEARD(title, "Fendle! \u2013 Start");
        // A reader asking after the language changed hears the new name at once.
        g.state().languagenumber = 1;
        QCOMPARE(testing::hear(title).front().name, QString("Fendle! \u2013 Accueil"));
        g.state().languagenumber = 0;

        GameRun::press(title, "Label5");
        CHECK_HEARD(g.screen("Grey"), "Fendle!");
        Form* setup = g.screen("Startplay2");
        GameRun::tick(setup, "Check2");   // the time box and its words show
        CHECK_HEARD(setup, "Fendle! \u2013 Set up the game");
        g.module->screens.show("highscores");
        CHECK_HEARD(g.screen("highscores"), "Fendle! \u2013 High scores");
        GameRun::press(g.screen("highscores"), "Label3", 0);
        GameRun::press(setup, "Label1", 0);
        CHECK_HEARD(g.screen("Startautoplay2"), "Fendle! \u2013 Play against the computer");

        // A timed game against the computer: clocks, the note, a counter.
        GameRun::press(g.screen("Startautoplay2"), "Label7");
        Fen1Form* board = g.board();
        QVERIFY(board);
        g.throwDice({1, 2, 3, 4});
        g.clickHexagon(24);
        CHECK_HEARD(board, "Fendle! \u2013 Game board");
        const std::vector<Heard> heard = testing::hear(board);
        QVERIFY(testing::contains(heard, {QAccessible::Graphic, "24, Blue"}));
        QVERIFY(!testing::contains(heard, {QAccessible::StaticText, "24"}));
        QVERIFY(testing::contains(heard, {QAccessible::StaticText, "20 points"}));
        // The caption a reader hears follows the line as the turn passes.
        g.clock.advance(2000);
        QVERIFY(testing::contains(testing::hear(board), {QAccessible::StaticText, "Red to Play"}));
    }

    // The screens round the game, in English and in Welsh: the language
    // screen, the guide, the Cheat Chart and the five rule pages of the set.
    void theOtherScreensAreHeardWholeAndByName() {
        struct Lang { int number; const char* languages; const char* chart; const char* rules; };
        const Lang langs[] = {
            {0, "Fendle! \u2013 Choose a language", "Fendle! Cheat Chart", "Fendle! \u2013 The rules, page %1 of 5"},
            {6, "Fendle! \u2013 Dewis iaith", "Fendle! Taflen Gymorth", "Fendle! \u2013 Y rheolau, tudalen %1 o 5"},
        };
        for (const Lang& l : langs) {
            GameRun g;
            g.write("numlang.txt", QByteArray::number(l.number) + "\r\n");
            g.open();
            ScreenRegistry& screens = g.module->screens;
            screens.show("languages");
            CHECK_HEARD(g.screen("languages"), l.languages);
            if (l.number == 0) {
                screens.show("TeacherGuide");
                CHECK_HEARD(g.screen("TeacherGuide"), "Fendle! \u2013 Teachers' Guide");
            }
            screens.show("Cheatchart");
            CHECK_HEARD(g.screen("Cheatchart"), l.chart);
            for (int page = 1; page <= 5; ++page) {
                const std::string name = binding::ruleFormName(page, l.number);
                screens.show(name);
                CHECK_HEARD(screens.form(name), QString(l.rules).arg(page));
                screens.unload(name);
            }
        }
    }

    void theBoardSpeaksTheChosenLanguage() {
        GameRun g;
        g.write("numlang.txt", "1\r\n");
        g.open();   // reads the language and the tables
        CHECK_HEARD(g.screen("Titlefrm"), "Fendle! \u2013 Accueil");
        Fen1Form* board = showBoard(g, 2);
        g.throwDice({1, 2, 3, 4});
        g.clickHexagon(24);
        CHECK_HEARD(board, "Fendle! \u2013 Plateau de jeu");
        QVERIFY(testing::contains(testing::hear(board), {QAccessible::Graphic, "24, Bleu"}));
    }

    // The coloured texts straight on the blue board, and the trademark on the
    // set-up screens, stand out from what borders them by 4.5 : 1 at least,
    // whatever colour the turn gives the message line.
    void colouredTextStandsOutOnTheBoard() {
        GameRun g;
        Fen1Form* f = showBoard(g, 4, 600);
        f->model().Label5[6].visible = true;   // the computer's note
        f->sync();
        g.throwDice({1, 2, 3, 4});   // starts the clocks: their heading shows
        QVERIFY(f->control("Label13")->widget()->isVisible());
        const std::pair<const char*, int> texts[] = {{"Label2", -1}, {"Label9", -1}, {"Label13", -1},
                                                     {"Label5", 1},  {"Label5", 2},  {"Label5", 3},
                                                     {"Label5", 4},  {"Label5", 6}};
        for (const auto& [name, index] : texts) {
            const double c = contrastOf(f, name, index);
            QVERIFY2(c >= 4.5, qPrintable(QString("%1(%2): %3").arg(name).arg(index).arg(c)));
        }
        g.clickHexagon(24);
        g.clock.advance(2000);
        QCOMPARE(f->control("Label2")->foreColor(), colour::red);
        QVERIFY2(contrastOf(f, "Label2") >= 4.5, qPrintable(QString::number(contrastOf(f, "Label2"))));

        g.module->screens.show("Startplay2");
        const double tm = contrastOf(g.screen("Startplay2"), "Label7");
        QVERIFY2(tm >= 4.5, qPrintable(QString::number(tm)));
    }

    // Throw Dice clicked: no button takes the focus, none wears a frame, and
    // a Space later presses nothing. Tab shows where the focus is.
    void theFocusComesOnlyFromTheKeyboard() {
        GameRun g;
        Fen1Form* f = showBoard(g, 2);
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f));
        auto focusedButton = [] { return qobject_cast<kit::Button*>(QApplication::focusWidget()); };
        auto framed = [](kit::Control* button) {
            // A dotted frame three pixels in, in the text's colour, on the black face.
            const QImage img = render(button->widget());
            const QRgb dot = kit::toQColor(button->foreColor()).rgb();
            int dots = 0;
            for (int x = 4; x < img.width() - 4; ++x) dots += img.pixel(x, 3) == dot;
            return dots > img.width() / 4;
        };
        QVERIFY(!focusedButton());
        g.scriptDice({1, 2, 3, 4});
        QTest::mouseClick(f->windowHandle(), Qt::LeftButton, {}, f->control("Label3", button::throwDice)->widget()->geometry().center());
        g.clock.advance(2250);
        QVERIFY(!f->control("Label3", button::throwDice)->enabled());
        QVERIFY(!focusedButton());
        QVERIFY(!framed(f->control("Label14")));
        const auto sounds = g.sound->played.size();
        QTest::keyClick(f->windowHandle(), Qt::Key_Space);
        QCOMPARE(g.sound->played.size(), sounds);
        QVERIFY(g.board());

        QTest::keyClick(f->windowHandle(), Qt::Key_Tab);
        kit::Button* b = focusedButton();
        QVERIFY(b && b->window() == f);
        QVERIFY(framed(b));
    }
};

QTEST_MAIN(TestLook)
#include "tst_look.moc"
