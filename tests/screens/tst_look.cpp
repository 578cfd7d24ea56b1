// How the screens meet the people who use them: every text of every screen
// readable whole and heard by a screen reader, each window named in the
// player's language, in all seven languages; coloured text on the blue board
// readable on a projector; and a keyboard focus that never sits unseen on a
// button.
#include "accessible_walk.h"
#include "contrast.h"
#include "fit_check.h"
#include "game_run.h"

#include "screens/rulepages.h"

using namespace fendle;
using testing::GameRun;
using testing::Heard;

namespace {

// Page 3's rewards stand at the left edge of the board picture, in front of
// it, in every set but ge: the table of zones puts them there.
bool rewardOnBoard(const kit::Control& text, const kit::Control& picture) {
    const bool reward = text.name() == "Label1" && ((text.index() >= 23 && text.index() <= 28) || text.index() == 30);
    return reward && picture.name() == "Image1" && text.leftTwips() < picture.leftTwips();
}

// The window heard as a window by `name`, and each text it shows heard with
// the role of its control.
void checkHeard(QWidget* window, const QString& name, QStringList& faults) {
    const std::vector<Heard> heard = testing::hear(window);
    if (heard.empty() || heard.front().role != QAccessible::Window || heard.front().name != name)
        faults << QStringLiteral("window heard as \"%1\", not \"%2\"").arg(heard.empty() ? "" : heard.front().name, name);
    for (const Heard& t : testing::shownTexts(window))
        if (!testing::contains(heard, t)) faults << testing::describe(t) + " unheard in " + name;
}

QImage render(QWidget* w) { return w->grab().toImage().convertToFormat(QImage::Format_RGB32); }

QRect placeOf(Form* f, const kit::Control* c) {
    return c->widget()->geometry().translated(c->widget()->parentWidget()->mapTo(f, QPoint()));
}

// Of a text, or of the part of it that lies over the control `over`.
double contrastOf(Form* f, const char* name, int index = -1, const char* over = nullptr) {
    const kit::Control* c = f->control(name, index);
    const QRect area = placeOf(f, c) & (over ? placeOf(f, f->control(over)) : f->rect());
    return testing::edgeContrast(render(f), area, kit::toQColor(c->foreColor()));
}

}  // namespace

class TestLook : public QObject {
    Q_OBJECT

private slots:
    // Every screen the game defines, in each of the seven languages: no text
    // cut, overlapped or outside its window, every text heard, and the
    // window named in the language.
    void everyScreenInEachLanguage() {
        const std::map<std::string, std::string> keys = {
            {"Titlefrm", "windowTitlefrm"}, {"Startplay2", "windowStartplay2"}, {"Startautoplay2", "windowStartautoplay2"},
            {"fen1", "windowFen1"}, {"highscores", "windowHighscores"}, {"languages", "windowLanguages"},
            {"TeacherGuide", "windowTeacherGuide"}, {"Grey", "windowGrey"}};
        QStringList faults, shrunk;
        for (int lang = 0; lang < 7; ++lang) {
            GameRun g;
            // The windows' names in the language, from messages.csv: a key and
            // seven names, with "%1" where a rule page puts its number.
            std::map<std::string, QString> names;
            for (const auto& row : g.table("text/messages.csv", 8)) names[row[0].toStdString()] = row[std::size_t(lang) + 1];
            g.write("numlang.txt", QByteArray::number(lang) + "\r\n");
            g.open();
            QCOMPARE(int(g.state().languagenumber), lang);
            for (const std::string& name : g.module->screens.names()) {
                // The rule pages a language reaches are those of its own set.
                int page = 0;
                for (int p = 1; p <= 5; ++p) page = name == binding::ruleFormName(p, lang) ? p : page;
                if (name.starts_with("Fendlerules") && !page) continue;
                g.module->screens.show(name);
                Form* f = g.module->screens.form(name);
                QVERIFY(f);
                // The time box and its words show with Timers On.
                if (name == "Startplay2") GameRun::tick(f, "Check2");
                const testing::FitReport r = testing::checkFit(*f, rewardOnBoard);
                faults << r.faults;
                shrunk << r.shrunk;
                // The flow of a rule page gives each of its texts the room it
                // needs: none is left for the label to shrink.
                if (page)
                    for (const QString& s : r.shrunk)
                        if (s.contains(" Label1(")) faults << s + " had no room";
                if (auto* rules = dynamic_cast<RulePage*>(f); rules && rules->textShrink() > 0)
                    shrunk << QStringLiteral("%1 plain text -%2 px").arg(QString::fromStdString(name)).arg(rules->textShrink());
                QString heardAs = name == "Cheatchart" ? f->windowTitle() : names.at(page ? "windowRules" : keys.at(name));
                checkHeard(f, heardAs.replace("%1", QString::number(page)), faults);
                // Its title bar names the screen; the desktop adds "— Fendle!".
                const QString title = heardAs == "Fendle!" ? heardAs : heardAs.section(QStringLiteral(" \u2013 "), 1);
                if (name != "Cheatchart" && f->windowTitle() != title) faults << QString::fromStdString(name) + " titled " + f->windowTitle();
                if (name != "Titlefrm") g.module->screens.unload(name);
            }
        }
        shrunk.removeDuplicates();
        for (const QString& s : shrunk) qInfo().noquote() << "shrunk:" << s;
        for (const QString& s : faults) qWarning().noquote() << s;
        QVERIFY2(faults.isEmpty(), qPrintable(QString::number(faults.size()) + " faults"));
    }

    // A game against the clock and the computer, in English and in French:
    // the clocks, the note and a counter are heard, the counter by its number
    // and colour, and the message line as it changes.
    void theBoardIsHeardAsItPlays() {
        for (const bool french : {false, true}) {
            GameRun g;
            if (french) g.write("numlang.txt", "1\r\n");
            g.open();
            Fen1Form* board = g.showBoard(2, 600);
            board->model().Label5[6].visible = true;   // the computer's note
            g.throwDice({1, 2, 3, 4});
            g.clickHexagon(24);
            QStringList faults;
            checkHeard(board, french ? "Fendle! \u2013 Plateau de jeu" : "Fendle! \u2013 Game board", faults);
            QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
            const std::vector<Heard> heard = testing::hear(board);
            QVERIFY(testing::contains(heard, {QAccessible::Graphic, french ? "24, Bleu" : "24, Blue"}));
            QVERIFY(!testing::contains(heard, {QAccessible::StaticText, "24"}));
            if (french) continue;
            QVERIFY(testing::contains(heard, {QAccessible::StaticText, "20 points"}));
            g.clock.advance(2000);
            QVERIFY(testing::contains(testing::hear(board), {QAccessible::StaticText, "Red to Play"}));
            // A reader that asks after the language changed hears the new name.
            g.state().languagenumber = 1;
            QCOMPARE(testing::hear(board).front().name, QString("Fendle! \u2013 Plateau de jeu"));
        }
    }

    // The coloured texts straight on the blue board, the digits of the dice
    // and the clock, the rewards over the board picture of the rules, and
    // the trademarks stand out from what borders them by 4.5 : 1 at least,
    // whatever colour the turn gives the message line and the dice.
    void colouredTextStandsOutOnTheBoard() {
        GameRun g;
        g.open();
        QStringList faults;
        auto measure = [&](Form* f, const char* name, int index = -1, const char* over = nullptr) {
            const double c = contrastOf(f, name, index, over);
            if (over && c == 0) return;   // none of it lies there
            if (c < 4.5) faults << QString("%1 %2(%3): %4").arg(QString::fromStdString(f->name()), name).arg(index).arg(c);
        };
        Fen1Form* f = g.showBoard(4, 600);
        f->model().Label5[6].visible = true;   // the computer's note
        f->sync();
        g.throwDice({1, 2, 3, 4});   // starts the clocks: their heading and blue's clock show
        QVERIFY(f->control("Label13")->widget()->isVisible());
        const std::pair<const char*, int> texts[] = {{"Label2", -1}, {"Label9", -1}, {"Label13", -1}, {"Label5", 1},
                                                     {"Label5", 2},  {"Label5", 3},  {"Label5", 4},   {"Label5", 6},
                                                     {"Label12", 0}, {"Label4", 0},  {"Label4", 3}};
        for (const auto& [name, index] : texts) measure(f, name, index);
        g.clickHexagon(24);
        g.clock.advance(2000);
        QCOMPARE(f->control("Label2")->foreColor(), colour::red);
        g.throwDice({1, 2, 3, 4});   // red's dice: white on red
        for (const auto& [name, index] : {std::pair{"Label2", -1}, {"Label4", 0}, {"Label4", 3}}) measure(f, name, index);

        for (const char* screen : {"Startplay2", "TeacherGuide", "languages", "highscores"}) {
            g.module->screens.show(screen);
            measure(g.screen(screen), "Label7");
        }
        const std::string page2 = binding::ruleFormName(2, 0);
        g.module->screens.show(page2);
        GameRun::press(g.screen(page2.c_str()), "Label2");
        g.clock.advance(3000);
        for (int d = 0; d < 4; ++d) measure(g.screen(page2.c_str()), "Label4", d);
        // Page 3's rewards, 10 to 500, where they lie over the board picture.
        for (int set = 0; set < 7; ++set) {
            const std::string page3 = binding::ruleFormName(3, set);
            g.module->screens.show(page3);
            for (int reward : {23, 24, 25, 26, 27, 28, 30}) measure(g.screen(page3.c_str()), "Label1", reward, "Image1");
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
    }

    // Throw Dice clicked: no button takes the focus, none wears a frame, and
    // a Space later presses nothing. Tab shows where the focus is.
    void theFocusComesOnlyFromTheKeyboard() {
        GameRun g;
        Fen1Form* f = g.showBoard(2);
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f));
        auto focusedButton = [] { return dynamic_cast<kit::Button*>(kit::Control::of(QApplication::focusWidget())); };
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
        QVERIFY(b && b->widget()->window() == f);
        QVERIFY(framed(b));
    }
};

QTEST_MAIN(TestLook)
#include "tst_look.moc"
