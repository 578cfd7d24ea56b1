// A whole game of one pupil against the computer with the keyboard alone,
// each key going where the window system sends it (to the window with the
// focus): from the title screen through the set-up screens, throw after
// throw on the board, to the high-score table and back to the title. On the
// way: every hexagon as a screen reader finds it, numbers refused, the
// cursor and its ring, keys in the computer's turn, the chart and the name box.
#include "contrast.h"
#include "game_run.h"

#include "screens/board_keys.h"
#include "screens/kit/accessible.h"

#include <QAccessible>

using namespace fendle;
using testing::GameRun;

namespace {

void key(int k) {
    QWindow* w = QGuiApplication::focusWindow();
    QVERIFY(w);
    QTest::keyClick(w, Qt::Key(k));
}
void type(int number) {
    for (const QChar d : QString::number(number)) key(Qt::Key_0 + d.digitValue());
}
// Tab until the control has the focus, then Space: a control Tab never reaches fails.
void pressByTab(Form* f, const char* name, int index = -1) {
    QVERIFY(f && QTest::qWaitForWindowActive(f));
    const QWidget* target = f->control(name, index)->widget();
    for (int i = 0; i < 40 && QApplication::focusWidget() != target; ++i) key(Qt::Key_Tab);
    QVERIFY2(QApplication::focusWidget() == target, name);
    key(Qt::Key_Space);
}

// The zones of the board's numbers, by their highest number, in English.
QString zoneName(int n) {
    const std::pair<int, const char*> zones[] = {{15, "Orange"}, {28, "Turquoise"}, {45, "Yellow"}, {64, "Blue"},
                                                 {79, "Green"},  {90, "Purple"},    {100, "Red"}};
    for (const auto& [high, name] : zones)
        if (n <= high) return name;
    return {};
}

// Every hexagon a focusable push button of the board, named by its number
// and what lies on it.
void hexagonsHeard(Form* board, const std::array<i16, 101>& owners) {
    std::map<QString, bool> buttons;   // name: focusable
    QAccessibleInterface* window = QAccessible::queryAccessibleInterface(board);
    for (int i = 0; i < window->childCount(); ++i)
        if (QAccessibleInterface* c = window->child(i); c->role() == QAccessible::Button)
            buttons[c->text(QAccessible::Name)] = c->state().focusable;
    const char* colours[] = {"", "Blue", "Red"};
    for (int n = 1; n <= 100; ++n) {
        const int owner = owners[std::size_t(n)];
        const QString name = owner ? QStringLiteral("%1, %2's counter").arg(n).arg(colours[owner])
                                   : QStringLiteral("%1, %2 zone, free").arg(n).arg(zoneName(n));
        QVERIFY2(buttons.count(name) && buttons[name], qPrintable(name));
    }
}

}  // namespace

class TestKeyboard : public QObject {
    Q_OBJECT

private slots:
    void aWholeGameAgainstTheComputer() {
        GameRun g;
        g.open();
        pressByTab(g.screen("Titlefrm"), "Label5");
        pressByTab(g.screen("Startplay2"), "Label1", 0);
        pressByTab(g.screen("Startautoplay2"), "Label7");
        Fen1Form* board = g.board();
        QVERIFY(board && QTest::qWaitForWindowActive(board));
        BoardKeys& keys = *board->keys();
        const BoardModel& m = board->model();
        QCOMPARE(QApplication::focusWidget(), keys.hexagon(1));
        hexagonsHeard(board, g.state().boardowner);
        const QImage plain = board->grab().toImage();

        // The arrows go from neighbour to neighbour (the board's grid: 3 is
        // right of 1, 5 and 4 above, 2 below), and the ring shows.
        for (const auto& [arrow, to] : {std::pair{Qt::Key_Right, 3}, {Qt::Key_Up, 5}, {Qt::Key_Up, 4},
                                        {Qt::Key_Down, 2}, {Qt::Key_Left, 2}}) {
            key(arrow);
            QCOMPARE(keys.cursor(), to);
            QCOMPARE(QApplication::focusWidget(), keys.hexagon(to));
        }
        QVERIFY(keys.ringShown());
        // The ring stands out from each zone by 3 : 1: some of what it
        // changed on the board differs so from the zone's own colour.
        for (const int n : {8, 20, 40, 50, 70, 85, 95}) {
            type(n);
            key(Qt::Key_Escape);
            const QImage ringed = board->grab().toImage();
            const QRect box = keys.hexagon(n)->geometry();
            std::map<QRgb, int> under;
            std::vector<std::pair<QRgb, QRgb>> changed;
            for (int y = box.top(); y <= box.bottom(); ++y)
                for (int x = box.left(); x <= box.right(); ++x)
                    if (plain.pixel(x, y) != ringed.pixel(x, y)) {
                        ++under[plain.pixel(x, y)];
                        changed.emplace_back(plain.pixel(x, y), ringed.pixel(x, y));
                    }
            const QRgb zone = std::max_element(under.begin(), under.end(), [](auto& a, auto& b) { return a.second < b.second; })->first;
            const auto standsOut = std::count_if(changed.begin(), changed.end(), [zone](auto& c) {
                return testing::contrastRatio(QColor(c.second), QColor(zone)) >= 3;
            });
            QVERIFY2(changed.size() > 100 && standsOut * 3 > qsizetype(changed.size()), qPrintable(QString::number(n)));
        }
        key(Qt::Key_Down);   // from 95 to 92
        QCOMPARE(keys.cursor(), 92);

        // Space throws; numbers off the board are refused, Backspace takes a
        // digit back, and Enter claims the ring's hexagon.
        g.scriptDice({1, 1, 1, 1});
        key(Qt::Key_Space);
        g.clock.advance(2250);
        for (const int n : {101, 0}) {   // off the board: refused, the turn stays
            type(n);
            QCOMPARE(keys.line(), QString::number(n));
            key(Qt::Key_Return);
            QCOMPARE(keys.line(), QStringLiteral("%1 is not on the board").arg(n));
            QCOMPARE(keys.announcer()->said(), QStringLiteral("%1 is not on the board").arg(n));
        }
        type(3);
        key(Qt::Key_Backspace);
        QVERIFY(keys.typed().isEmpty() && keys.line().isEmpty());
        key(Qt::Key_Left);
        key(Qt::Key_Up);
        QCOMPARE(keys.cursor(), 2);
        key(Qt::Key_Return);   // 2 = 1 + 1 times 1 times 1
        QVERIFY(m.Image1[2].visible);
        QCOMPARE(keys.announcer()->said(), QString("Blue takes 2: 10 points"));

        // Throw after throw until the end: the pupil claims the highest free
        // number the dice make; the computer's turn takes no claim.
        int moves = 0;
        while (board->game().winner == 0 && ++moves < 120) {
            g.clock.advance(2000);
            if (board->game().winner) break;
            QVERIFY(board->game().computersTurn());
            QCOMPARE(QApplication::focusWidget(), keys.hexagon(keys.cursor()));
            g.clock.advance(2250);
            const auto owners = g.state().boardowner;
            type(10);
            key(Qt::Key_Return);
            QVERIFY(keys.typed().isEmpty() && g.state().boardowner == owners);
            g.clock.advance(3000);
            if (board->game().winner) break;
            key(Qt::Key_Return);
            g.clock.advance(2250);
            int best = 0;
            for (int n = 1; n <= 100; ++n)
                if (board->game().search.allowed[std::size_t(n)] && !m.Image1[std::size_t(n)].visible) best = n;
            if (moves == 2) {   // a covered number is refused
                type(2);
                key(Qt::Key_Return);
                QCOMPARE(keys.announcer()->said(), QString("2 is already covered"));
            }
            type(best);
            key(Qt::Key_Return);
            QVERIFY(m.Image1[std::size_t(best)].visible);
        }
        QVERIFY(board->game().winner);
        hexagonsHeard(board, g.state().boardowner);
        g.clock.advance(6000);

        // The name box says whose score it is; Enter keeps the name.
        Form* table = g.screen("highscores");
        QVERIFY(table && QTest::qWaitForWindowActive(table));
        QWidget* box = table->control("Text1")->widget();
        QCOMPARE(QApplication::focusWidget(), box);
        QCOMPARE(box->accessibleName(), QStringLiteral("Type the name for Blue's score of %1 points").arg(g.board()->game().scoreboxValue(1)));
        QTest::keyClicks(box, "Ada");
        key(Qt::Key_Return);
        QVERIFY(!g.loaded("highscores"));
        QCOMPARE(g.module->highnames[5], std::string("Ada"));

        // Back on the board: the chart opens clear of the dice and the turn
        // line, Escape closes it, and the keyboard comes back to the board.
        QVERIFY(QTest::qWaitForWindowActive(board));
        pressByTab(board, "Label14");
        Form* chart = g.screen("Cheatchart");
        QVERIFY(chart && QTest::qWaitForWindowActive(chart));
        const QRect top = board->geometry().adjusted(0, 0, 0, -board->height() + kit::px(2295));
        QVERIFY(!chart->frameGeometry().intersects(top));
        key(Qt::Key_Escape);
        QVERIFY(!g.loaded("Cheatchart"));
        QVERIFY(QTest::qWaitForWindowActive(board));
        pressByTab(board, "Label3", button::exitGame);
        QVERIFY(QTest::qWaitForWindowActive(g.screen("Titlefrm")));
    }
};

QTEST_MAIN(TestKeyboard)
#include "tst_keyboard.moc"
