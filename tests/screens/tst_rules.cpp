// The rule pages: the way through the pages in every set, the plain last
// page, the dice of page 2 and the keyboard. Where each set puts its controls
// is held by the approved shots of every page (tst_golden).
#include "game_run.h"

#include "screens/rulepages.h"

using namespace fendle;
using testing::GameRun;

namespace {

// Form names of the pages, by page 1 to 5 and set 0 to 6.
const char* const pageForms[] = {"Fendlerules", "Fendlerules2", "Fendlerules2b", "Fendlerules3", "Fendlerules4"};
const char* const suffixes[] = {"", "fr", "ge", "sp", "it", "du", "we"};
std::string pageName(int page, int set) { return std::string(pageForms[page - 1]) + suffixes[set]; }

// A run in a language, on the set-up screen.
struct RulesRun : GameRun {
    explicit RulesRun(int lang = 0) {
        if (lang) write("numlang.txt", QByteArray::number(lang) + "\r\n");
        setUp();
    }
    Form* setup() { return screen("Startplay2"); }
    RulePage* page(int p, int set = 0) { return screen<RulePage>(pageName(p, set).c_str()); }
    RulePage* show(int p, int set = 0) {
        module->screens.show(pageName(p, set));
        return page(p, set);
    }
    // The rule pages that are open, by name.
    QStringList openPages() const {
        QStringList open;
        for (int set = 0; set < 7; ++set)
            for (int p = 1; p <= 5; ++p)
                if (loaded(pageName(p, set).c_str())) open << QString::fromStdString(pageName(p, set));
        return open;
    }
};

// The next control after `w` that the Tab key reaches.
QWidget* nextTabStop(QWidget* w) {
    for (QWidget* n = w->nextInFocusChain(); n && n != w; n = n->nextInFocusChain())
        if ((n->focusPolicy() & Qt::TabFocus) && n->isVisibleTo(n->window()) && n->window() == w->window()) return n;
    return nullptr;
}

}  // namespace

class TestRules : public QObject {
    Q_OBJECT

private slots:
    // Next, Previous and Exit, page by page, in every set: each opens its
    // page of the same set and closes its own.
    void theWayThroughThePages() {
        // Page reached by Label3(0), (1), (2); 0 only closes, -1 no button.
        const int reached[5][3] = {{0, 2, -1}, {0, 3, 1}, {0, 4, 2}, {0, 5, 3}, {0, 4, -1}};
        for (int set = 0; set < 7; ++set) {
            RulesRun g(set);
            for (int p = 1; p <= 5; ++p) {
                for (int button = 0; button < 3; ++button) {
                    const int to = reached[p - 1][button];
                    if (to < 0) continue;
                    GameRun::press(g.show(p, set), "Label3", button);
                    const QStringList want = to ? QStringList{QString::fromStdString(pageName(to, set))} : QStringList{};
                    QCOMPARE(g.openPages(), want);
                    QVERIFY(g.setup()->isVisible());
                    if (to) g.module->screens.unload(pageName(to, set));
                }
            }
        }
    }

    // The Rules opens page 1 of the language, again from the start; with no
    // set for the language it does nothing.
    void theRulesButton() {
        RulesRun g(2);
        GameRun::press(g.setup(), "Label6");
        QCOMPARE(g.openPages(), QStringList{"Fendlerulesge"});
        QVERIFY(g.page(1, 2)->isVisible() && g.setup()->isVisible());
        QVERIFY(g.sound->played.size() == 1);   // only OK's click on the title screen
        GameRun::press(g.page(1, 2), "Label3", 1);
        GameRun::press(g.page(2, 2), "Label3", 1);
        QCOMPARE(g.openPages(), QStringList{"Fendlerules2bge"});
        GameRun::press(g.setup(), "Label6");
        QCOMPARE(g.openPages(), QStringList{"Fendlerulesge"});
        GameRun::press(g.page(1, 2), "Label3", 0);
        QCOMPARE(g.openPages(), QStringList{});
        QVERIFY(g.setup()->isVisible());

        g.state().languagenumber = 7;
        GameRun::press(g.setup(), "Label6");
        QCOMPARE(g.openPages(), QStringList{});
    }

    // The plain page 5 keeps the words it was drawn with, whatever the
    // English column says; the other plain pages take the column's words.
    void thePlainLastPageKeepsItsDesign() {
        RulesRun g;
        QByteArray rules = g.read("text/rules.csv");
        rules.replace("\"Play continues with each player taking their turn in sequence.\"", "\"Changed 53\"");
        rules.replace("\"Summary of the rules\"", "\"Changed 7\"");
        g.write("text/rules.csv", rules);
        g.module->screens.unload("Startplay2");
        g.setUp();
        QCOMPARE(GameRun::caption(g.show(1), "Label1", 1), QString("Changed 7"));
        RulePage* last = g.show(5);
        QCOMPARE(GameRun::caption(last, "Label1", 2), QString("Play continues with each player taking their turn in sequence."));
        // Every other set writes the language's column, even on page 5.
        QCOMPARE(GameRun::caption(g.show(5, 1), "Label1", 2), QString("Changed 53"));
    }

    // The dice of page 2 roll as the board's do (their timing is the engine
    // tests'): with the cup's sound the first stops at 1500 ms, without it at
    // 300, and the last shows its thrown value 750 ms later.
    void theDiceRoll() {
        const std::array<int, 4> thrown = {6, 1, 4, 3};
        for (const int soundon : {1, 0}) {
            RulesRun g;
            g.state().soundon = static_cast<i16>(soundon);
            RulePage* page = g.show(2);
            g.sound->played.clear();
            g.scriptDice(thrown);
            GameRun::press(page, "Label2");
            QCOMPARE(g.sound->played, soundon ? std::vector<std::string>{"wav\\cupdice.wav"} : std::vector<std::string>{});
            for (int d = 0; d < 4; ++d) QCOMPARE(GameRun::caption(page, "Label4", d), QString());
            g.clock.advance(soundon ? 1499 : 299);
            QCOMPARE(int(page->dicerevealed), 0);
            g.clock.advance(1);
            QCOMPARE(int(page->dicerevealed), 1);
            QVERIFY(page->control("Label2")->enabled() && page->control("Label4", 3)->enabled());
            g.clock.advance(750);
            QCOMPARE(int(page->dicerevealed), 4);
            g.clock.advance(500);
            QVERIFY(!page->timers().running(5) && !page->timers().running(8));
            for (int d = 0; d < 4; ++d) QCOMPARE(GameRun::caption(page, "Label4", d), QString::number(thrown[std::size_t(d)]));
        }
    }

    // A second click empties the dice and starts over; a die drawn no time
    // keeps its value, which is 1 before any.
    void clicksDuringARollAndDiceNotThrown() {
        RulesRun g;
        g.state().soundon = 0;
        RulePage* page = g.show(2);
        g.scriptDice({2, 2, 2, 2});
        GameRun::press(page, "Label2");
        g.clock.advance(400);
        QCOMPARE(int(page->dicerevealed), 1);
        // Die 0 drawn no time: it keeps its 2.
        g.random->script({0.001, 0.015, 0.51, 0.015, 0.51, 0.015, 0.51});
        GameRun::press(page, "Label2");
        QCOMPARE(int(page->dicerevealed), 0);
        for (int d = 0; d < 4; ++d) QCOMPARE(GameRun::caption(page, "Label4", d), QString());
        g.clock.advance(299);
        QCOMPARE(int(page->dicerevealed), 0);
        g.clock.advance(800);
        QCOMPARE(int(page->dicerevealed), 4);
        const QStringList shown = {"2", "4", "4", "4"};
        for (int d = 0; d < 4; ++d) QCOMPARE(GameRun::caption(page, "Label4", d), shown[d]);

        // On a fresh page no die has a value yet: one drawn no time shows 1.
        g.module->screens.unload(pageName(2, 0));
        page = g.show(2);
        g.random->script({0.001, 0.015, 0.51, 0.001, 0.001});
        GameRun::press(page, "Label2");
        g.clock.advance(1100);
        const QStringList fresh = {"1", "4", "1", "1"};
        for (int d = 0; d < 4; ++d) QCOMPARE(GameRun::caption(page, "Label4", d), fresh[d]);
    }

    // The Cheat Chart opens over page 2 and closes when the page is left by
    // any of its three buttons.
    void theCheatChartGoesWithPage2() {
        RulesRun g;
        for (int button = 0; button < 3; ++button) {
            RulePage* page = g.show(2);
            GameRun::press(page, "Label14");
            QVERIFY(g.loaded("Cheatchart") && g.loaded("Fendlerules2"));
            GameRun::press(page, "Label3", button);
            QVERIFY2(!g.loaded("Cheatchart"), qPrintable(QString::number(button)));
            for (int p = 1; p <= 3; ++p) g.module->screens.unload(pageName(p, 0));
        }
        // The title bar's close unloads a page, as it does any screen that
        // does not answer it otherwise.
        GameRun::closeByTitleBar(g.show(3));
        QVERIFY(!g.loaded("Fendlerules2b"));
    }

    // Page Down and Page Up turn the pages, Escape leaves; Tab goes from
    // the demonstration to Next, Previous and Exit.
    void theKeyboard() {
        RulesRun g(6);
        RulePage* page = g.show(1, 6);
        QTest::keyClick(page->focusWidget() ? page->focusWidget() : page, Qt::Key_PageDown);
        QCOMPARE(g.openPages(), QStringList{"Fendlerules2we"});
        page = g.page(2, 6);
        QWidget* next = page->control("Label3", 1)->widget();
        QCOMPARE(nextTabStop(page->control("Label2")->widget()), page->control("Label14")->widget());
        QCOMPARE(nextTabStop(page->control("Label14")->widget()), next);
        QCOMPARE(nextTabStop(next), page->control("Label3", 2)->widget());
        QCOMPARE(nextTabStop(page->control("Label3", 2)->widget()), page->control("Label3", 0)->widget());
        QCOMPARE(page->focusWidget(), next);
        QTest::keyClick(next, Qt::Key_PageUp);
        QCOMPARE(g.openPages(), QStringList{"Fendleruleswe"});
        QTest::keyClick(g.page(1, 6), Qt::Key_PageUp);   // no page before the first
        QCOMPARE(g.openPages(), QStringList{"Fendleruleswe"});
        g.show(5, 6);
        g.module->screens.unload(pageName(1, 6));
        QTest::keyClick(g.page(5, 6), Qt::Key_PageDown);   // nor after the last
        QTest::keyClick(g.page(5, 6), Qt::Key_PageUp);
        QCOMPARE(g.openPages(), QStringList{"Fendlerules3we"});
        QTest::keyClick(g.page(4, 6), Qt::Key_Escape);
        QCOMPARE(g.openPages(), QStringList{});
    }

    // Without its picture a page shows the rest.
    void aMissingPicture() {
        RulesRun g(2);
        QVERIFY(QFile::remove(g.file("images/startge.jpg")));
        RulePage* page = g.show(1, 2);
        QVERIFY(page && page->isVisible());
        QVERIFY(!page->get<kit::Image>("Image1")->hasPicture());
        QVERIFY(g.show(3, 2)->get<kit::Image>("Image1")->hasPicture());
        GameRun::press(page, "Label3", 1);
        QCOMPARE(g.openPages(), (QStringList{"Fendlerules2ge", "Fendlerules2bge"}));
    }
};

QTEST_MAIN(TestRules)
#include "tst_rules.moc"
