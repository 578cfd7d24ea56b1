// The Cheat Chart: the panel sliding under the fixed column, the wheel and
// the keys, and the chart open beside a game on the board. Its grid, cells
// out of view included, is held by its approved shot (tst_golden).
#include <QApplication>
#include <QWheelEvent>
#include <QtTest>

#include "game_run.h"
#include "screens/cheatchart.h"

using namespace fendle;
using testing::GameRun;

namespace {

int px(double twips) { return kit::px(twips); }

QPoint onForm(const Form* f, const kit::Control* c) { return c->widget()->mapTo(f, QPoint(0, 0)); }

}  // namespace

class TestCheatchart : public QObject {
    Q_OBJECT

    std::unique_ptr<GameRun> run;

    Form* openChart() {
        run.reset();   // the old run gives back the working folder first
        run = std::make_unique<GameRun>();
        run->module->screens.show("Cheatchart");
        Form* f = run->screen("Cheatchart");
        return f && QTest::qWaitForWindowExposed(f) ? f : nullptr;
    }
    QScrollBar* bar(Form* f) { return f->get<kit::HScrollBar>("HScroll1")->bar(); }
    int panelX(Form* f) { return f->control("Frame2")->widget()->x(); }

    // A board with clocks, as the set-up screens leave it.
    Fen1Form* board(int nplayers, int seconds) {
        run.reset();   // the old run gives back the working folder first
        run = std::make_unique<GameRun>();
        return run->showBoard(nplayers, seconds);
    }
    int chartWindows() const {
        int n = 0;
        for (QWidget* w : QApplication::topLevelWidgets()) n += w->isVisible() && qobject_cast<Cheatchart*>(w);
        return n;
    }

private slots:
    void cleanup() { run.reset(); }

    void theRowNumbersStayWhileThePanelSlides() {
        Form* f = openChart();
        QVERIFY(f);
        QScrollBar* b = bar(f);
        // The chart opens at its start, which the bar's left end shows again.
        QCOMPARE(b->value(), b->minimum());
        QCOMPARE(b->maximum(), 100);

        for (int v = b->minimum(); v <= b->maximum(); ++v) {
            b->setValue(v);
            QCOMPARE(panelX(f), px(-105 * v));
            for (int r = 0; r <= 10; ++r) {   // Label2 holds the column heads, Label3 to Label12 the rows
                const std::string array = "Label" + std::to_string(r + 2);
                const int last = r == 0 ? 50 : std::min(50, 100 / r);   // products up to 100, 50 columns
                const kit::Control* first = f->control(array, 0);
                QCOMPARE(onForm(f, first), QPoint(px(120), px(120 + 360 * r)));
                // In front of the cells that pass under it; no sliver of a
                // cell shows beside it: a cell that has slid under it, or into
                // the gap after it, is hidden whole.
                QCOMPARE(f->childAt(onForm(f, first) + QPoint(px(345) / 2, px(330) / 2)), first->widget());
                for (int j = 1; j <= last; ++j)
                    QCOMPARE(f->control(array, j)->widget()->isVisible(), 120 + 375 * j - 105 * v >= 120 + 345 + 30);
            }
        }
        // At the end, column 50 stands 8370 from the form's edge, inside the window.
        const kit::Control* last = f->control("Label2", 50);
        QCOMPARE(onForm(f, last).x(), px(8370));
        QVERIFY(onForm(f, last).x() + last->widget()->width() <= f->width());
    }

    void theWheelAndTheKeysTurnTheBar() {
        Form* f = openChart();
        QVERIFY(f);
        QScrollBar* b = bar(f);

        // Keys go where the window system sends them: to the focus, else the window.
        const struct {
            Qt::Key key;
            int from, to;
        } keys[] = {
            {Qt::Key_Right, 0, 1}, {Qt::Key_Left, 0, 0}, {Qt::Key_PageDown, 0, 10}, {Qt::Key_End, 3, 100}, {Qt::Key_Home, 100, 0},
        };
        for (const auto& k : keys) {
            b->setValue(k.from);
            QTest::keyClick(f->focusWidget() ? f->focusWidget() : f, k.key);
            QCOMPARE(b->value(), k.to);
            QCOMPARE(panelX(f), px(-105 * k.to));
        }

        // One notch of the wheel, anywhere over the chart, as the window system
        // delivers it: to the widget under the pointer, and up from there.
        const int lines = QApplication::wheelScrollLines();
        const QPoint cell(300, px(120 + 360 * 6) + 5), fixed(px(120) + 5, px(120 + 360 * 3) + 5);
        const QPoint pastRow9(500, px(120 + 360 * 9) + 5), margin(3, 100);
        const struct {
            const char* what;
            QPoint at;
            int angle, from, to;
        } notches[] = {
            {"down over a cell", cell, -120, 0, lines},           {"up over a cell", cell, 120, 50, 50 - lines},
            {"down over a row number", fixed, -120, 20, 20 + lines}, {"down past the end of row 9", pastRow9, -120, 0, lines},
            {"down over the margin", margin, -120, 0, lines},
        };
        for (const auto& n : notches) {
            b->setValue(n.from);
            QWheelEvent e(QPointF(n.at), QPointF(f->mapToGlobal(n.at)), QPoint(), QPoint(0, n.angle), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
            QSpontaneKeyEvent::setSpontaneous(&e);
            qApp->notify(f->windowHandle(), &e);
            QVERIFY2(b->value() == n.to, n.what);
            QVERIFY2(panelX(f) == px(-105 * n.to), n.what);
        }
    }

    void openBesideAGameThatGoesOn() {
        Fen1Form* f = board(2, 100);
        GameRun::press(f, "Label14");
        Form* chart = run->screen("Cheatchart");
        QVERIFY(chart && chart->isVisible());
        QVERIFY(QTest::qWaitForWindowActive(chart));

        // The board still takes clicks, and the clock runs on.
        run->throwDice({1, 2, 3, 4});
        const int before = GameRun::caption(f, "Label12", 0).toInt();
        run->clock.advance(5000);
        QCOMPARE(GameRun::caption(f, "Label12", 0).toInt(), before - 5);
        run->clickHexagon(24);
        QVERIFY(f->model().Image1[24].visible);
        QCOMPARE(GameRun::caption(f, "Label6", 1), QString("20"));

        // A second press brings the open chart forward, as it is.
        bar(chart)->setValue(30);
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f));
        GameRun::press(f, "Label14");
        QVERIFY(QTest::qWaitForWindowActive(chart));
        QCOMPARE(run->module->screens.loads("Cheatchart"), 1);
        QCOMPARE(chartWindows(), 1);
        QCOMPARE(bar(chart)->value(), 30);

        // Leaving the board by either way closes the chart.
        const struct {
            int button;
            const char* next;
        } exits[] = {{button::exitGame, "Titlefrm"}, {button::newGame, "Startplay2"}};
        for (const auto& e : exits) {
            Fen1Form* b = board(1, 0);
            GameRun::press(b, "Label14");
            QVERIFY(run->loaded("Cheatchart"));
            GameRun::press(b, "Label3", e.button);
            QVERIFY2(!run->loaded("Cheatchart") && run->loaded(e.next), e.next);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCOMPARE(chartWindows(), 0);
        }
    }

};

QTEST_MAIN(TestCheatchart)
#include "tst_cheatchart.moc"
