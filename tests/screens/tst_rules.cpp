// The rule pages: the way through the pages in every set, the controls where
// each set puts them, the plain last page, and the dice of page 2.
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

QRect pixels(double left, double top, double width, double height) {
    return {kit::px(left), kit::px(top), kit::px(width), kit::px(height)};
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
                    RulePage* page = g.show(p, set);
                    QVERIFY(page);
                    QCOMPARE(page->control("Label3", button) != nullptr, to >= 0);
                    if (to < 0) {
                        g.module->screens.unload(pageName(p, set));
                        continue;
                    }
                    GameRun::press(page, "Label3", button);
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

    // Where the sets put the buttons, the dice, the zone table, the pictures
    // and the path over the end picture.
    void theControlsStandWhereTheirSetPutsThem() {
        struct Set {
            int exit[2], next[2], previous[2], chart[3], dice[3];
            int diceLefts[2], diceTops[2];
            int zoneTop, zoneLefts[3];   // ranges, colour names, rewards
            int page5[2];                // Label3(1) on page 5
            const char* start;
        };
        const Set sets[7] = {
            {{11160, 735}, {10080, 1815}, {7680, 2295}, {5280, 1575, 7680}, {6600, 2055, 2040}, {7080, 7680}, {2640, 3240},
             4440, {840, 3480, 5820}, {7680, 2295}, "images\\start.jpg"},
            {{10680, 1215}, {9360, 2535}, {6720, 2535}, {5040, 2175, 7920}, {7680, 2535, 2160}, {8400, 9000}, {2760, 3360},
             4440, {840, 3480, 5820}, {6720, 2535}, "images\\startfr.jpg"},
            {{10080, 1815}, {9240, 2655}, {6480, 2655}, {4440, 2895, 7920}, {7800, 2295, 2160}, {8400, 9000}, {2760, 3360},
             5160, {720, 2760, 4980}, {9240, 2655}, "images\\startge.jpg"},
            {{10080, 1815}, {9240, 2655}, {6480, 2655}, {4440, 2895, 7920}, {7440, 3015, 2160}, {8400, 9000}, {2760, 3360},
             5040, {840, 3120, 5580}, {9240, 2655}, "images\\startsp.jpg"},
            {{10080, 1815}, {9240, 2655}, {6480, 2655}, {4560, 2655, 7920}, {7800, 2295, 2160}, {8400, 9000}, {2760, 3360},
             4920, {720, 3120, 5580}, {9240, 2655}, "images\\startit.jpg"},
            {{10680, 1215}, {9360, 2535}, {6720, 2535}, {5040, 2175, 7920}, {7680, 2535, 2040}, {8400, 9000}, {2640, 3240},
             5040, {720, 3120, 5460}, {6720, 2535}, "images\\startdu.jpg"},
            {{10080, 1815}, {9000, 2895}, {6000, 2895}, {4680, 2415, 7920}, {7440, 3015, 2160}, {8400, 9000}, {2760, 3360},
             4800, {960, 3240, 5460}, {9000, 2895}, "images\\startwe.jpg"},
        };
        // The path over the end picture: Line1 to Line7 from their start to their end.
        const int path[8][4] = {{}, {6150, 7050, 7170, 5280}, {7170, 5280, 7995, 5280}, {7995, 5280, 8610, 4200},
                                {8610, 4200, 9810, 4200}, {11250, 4560, 11670, 3840}, {10050, 4560, 11250, 4560},
                                {9810, 4200, 10050, 4560}};
        // Label1 index of each zone's colour name, range and reward, zone 1 to 15 first.
        const int zones[7][3] = {{9, 16, 28}, {10, 17, 27}, {11, 18, 26}, {12, 19, 25}, {13, 20, 24}, {14, 21, 23}, {15, 22, 30}};

        for (int set = 0; set < 7; ++set) {
            const Set& s = sets[set];
            RulesRun g(set);
            auto at = [&](Form* f, const char* name, int index, QRect want) {
                const kit::Control* c = f->control(name, index);
                QVERIFY2(c, name);
                if (c->widget()->geometry() != want)
                    QFAIL(qPrintable(QString("%1 %2(%3)").arg(QString::fromStdString(f->name()), name).arg(index)));
            };
            for (int p = 1; p <= 5; ++p) {
                RulePage* page = g.show(p, set);
                QCOMPARE(page->size(), QSize(800, 600));
                static const int itPage4Exit[2] = {10920, 975};
                const int* exit = set == 4 && p == 4 ? itPage4Exit : s.exit;
                at(page, "Label3", 0, pixels(exit[0], 60, exit[1], 375));
                const bool duPage3 = set == 5 && p == 3;
                if (p < 5) at(page, "Label3", 1, duPage3 ? pixels(9240, 8520, 2655, 375) : pixels(s.next[0], 8520, s.next[1], 375));
                else at(page, "Label3", 1, pixels(s.page5[0], 8520, s.page5[1], 375));
                if (p > 1 && p < 5)
                    at(page, "Label3", 2, duPage3 ? pixels(6480, 8520, 2655, 375) : pixels(s.previous[0], 8520, s.previous[1], 375));
            }
            at(g.page(1, set), "Image1", -1, pixels(8940, 4560, 2835, 3525));
            QCOMPARE(g.page(1, set)->get<kit::Image>("Image1")->picture(), std::string(s.start));
            Form* p2 = g.page(2, set);
            at(p2, "Label14", -1, pixels(s.chart[0], s.chart[2], s.chart[1], 375));
            at(p2, "Label2", -1, pixels(s.dice[0], s.dice[2], s.dice[1], 495));
            for (int d = 0; d < 4; ++d) at(p2, "Label4", d, pixels(s.diceLefts[d % 2], s.diceTops[d / 2], 495, 495));
            Form* p3 = g.page(3, set);
            at(p3, "Image1", -1, pixels(5760, 4440, 5985, 3720));
            for (int z = 0; z < 7; ++z)
                for (int column = 0; column < 3; ++column) {
                    const kit::Control* c = p3->control("Label1", zones[z][column == 0 ? 1 : column == 1 ? 0 : 2]);
                    QCOMPARE(c->widget()->pos(), QPoint(kit::px(s.zoneLefts[column]), kit::px(s.zoneTop + 240 * z)));
                }
            for (int h = 6; h <= 8; ++h) QCOMPARE(p3->control("Label1", h)->widget()->y(), kit::px(s.zoneTop - 360));
            Form* p4 = g.page(4, set);
            at(p4, "Image1", -1, pixels(9240, 960, 2490, 2820));
            at(p4, "Image2", -1, pixels(8460, 5040, 3255, 2850));
            Form* p5 = g.page(5, set);
            const int lift = set == 6 ? 120 : 0;
            at(p5, "Image1", -1, pixels(5940, 3600 - lift, 5955, 3720));
            for (int l = 1; l <= 7; ++l) {
                const auto* line = p5->get<kit::Line>("Line" + std::to_string(l));
                const int* e = path[l];
                QCOMPARE(QRectF(QPointF(line->row().x1, line->row().y1), QPointF(line->row().x2, line->row().y2)),
                         QRectF(QPointF(e[0], e[1] - lift), QPointF(e[2], e[3] - lift)));
                QCOMPARE(line->foreColor(), colour::white);
            }
        }
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
        QCOMPARE(GameRun::caption(last, "Label1", 70), QString("Page 5 of 5"));
        QCOMPARE(GameRun::caption(last, "Label1", 11), QString("Fendle! was devised by the Fendle! Team."));
        // Every other set writes the language's column, even on page 5.
        QCOMPARE(GameRun::caption(g.show(5, 1), "Label1", 2), QString("Changed 53"));
    }

    // The dice of page 2 stop one by one, each on its thrown value.
    void theDiceRoll_data() {
        QTest::addColumn<int>("soundon");
        QTest::addColumn<std::vector<int>>("stops");   // ms after the click
        QTest::newRow("sound on") << 1 << std::vector<int>{1500, 1750, 2000, 2250};
        QTest::newRow("sound off") << 0 << std::vector<int>{300, 550, 800, 1050};
    }
    void theDiceRoll() {
        QFETCH(int, soundon);
        QFETCH(std::vector<int>, stops);
        RulesRun g;
        g.state().soundon = static_cast<i16>(soundon);
        RulePage* page = g.show(2);
        g.sound->played.clear();
        const std::array<int, 4> thrown = {6, 1, 4, 3};
        g.scriptDice(thrown);
        GameRun::press(page, "Label2");
        QCOMPARE(g.sound->played, soundon ? std::vector<std::string>{"wav\\cupdice.wav"} : std::vector<std::string>{});
        for (int d = 0; d < 4; ++d) QCOMPARE(GameRun::caption(page, "Label4", d), QString());
        int now = 0;
        for (int d = 0; d < 4; ++d) {
            g.clock.advance(stops[std::size_t(d)] - 1 - now);
            QCOMPARE(int(page->dicerevealed), d);
            QVERIFY(page->control("Label4", d)->enabled());
            g.clock.advance(1);
            now = stops[std::size_t(d)];
            QCOMPARE(int(page->dicerevealed), d + 1);
            QCOMPARE(GameRun::caption(page, "Label4", d), QString::number(thrown[std::size_t(d)]));
        }
        QVERIFY(page->control("Label2")->enabled());
        g.clock.advance(500);
        QVERIFY(!page->timers().running(5) && !page->timers().running(8));
        for (int d = 0; d < 4; ++d) QCOMPARE(GameRun::caption(page, "Label4", d), QString::number(thrown[std::size_t(d)]));
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
