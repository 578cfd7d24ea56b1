// The board window on the virtual clock: its controls where the design puts
// them, real clicks at window positions, and the message line by language.
#include <QDir>
#include <QWindow>
#include <QtTest>

#include "game_run.h"

using namespace fendle;

namespace {

struct Place {
    const char* name;
    int index;
    int left, top, width, height;   // twips
};

// fen1's controls as the design lays them out.
const Place designPlaces[] = {
    {"Image2", 0, 90, 120, 840, 840},     {"Image2", 6, 90, 5160, 840, 840},
    {"Label7", 0, 240, 360, 540, 360},    {"Label7", 3, 240, 2880, 540, 360},
    {"Label7", 4, 330, 3720, 360, 360},   {"Label7", 6, 330, 5400, 360, 360},
    {"Label3", 0, 60, 8400, 1695, 495},   {"Label3", 1, 9480, 8400, 2415, 495},
    {"Label3", 2, 1080, 120, 2295, 495},  {"Label14", -1, 1320, 1920, 1815, 375},
    {"Label4", 0, 1680, 720, 495, 495},   {"Label4", 1, 2280, 720, 495, 495},
    {"Label4", 2, 1680, 1320, 495, 495},  {"Label4", 3, 2280, 1320, 495, 495},
    {"Label2", -1, 4680, 0, 3180, 660},   {"Label9", -1, 9435, 0, 2445, 675},
    {"Label10", -1, 1800, 8460, 7560, 360},
    {"Label5", 1, 9360, 5640, 1080, 360}, {"Label5", 2, 9360, 6240, 1080, 360},
    {"Label5", 3, 9240, 6840, 1200, 360}, {"Label5", 4, 9120, 7440, 1320, 360},
    {"Label6", 1, 10560, 5580, 1335, 495}, {"Label6", 4, 10560, 7380, 1335, 495},
    {"Label5", 6, 9000, 6960, 2850, 1200},
    {"Label12", 0, 4320, 8400, 975, 375}, {"Label12", 3, 7560, 8400, 975, 375},
    {"Label13", -1, 2760, 8280, 1560, 600},
    {"Label5", 0, 9960, 4740, 1950, 360}, {"Label5", 5, 10575, 5100, 720, 360},
};

QRect px(int l, int t, int w, int h) { return {kit::px(l), kit::px(t), kit::px(w), kit::px(h)}; }

}  // namespace

class TestFen1 : public QObject {
    Q_OBJECT

    std::unique_ptr<testing::GameRun> run;

    // A board for nplayers, loaded and shown as the set-up screens leave it.
    Fen1Form* board(int nplayers = 2, int language = 0) {
        run.reset();
        run = std::make_unique<testing::GameRun>();
        Module1& module = *run->module;
        module.state.nplayers = static_cast<i16>(nplayers);
        module.state.languagenumber = static_cast<i16>(language);
        auto* f = module.screens.get<Fen1Form>(Fen1Form::formName);
        f->game().showPlayers(nplayers);
        f->sync();
        module.screens.show(Fen1Form::formName);
        return f;
    }
    void throwDice(std::array<int, 4> dice) { run->throwDice(dice); }
    static QPoint hexagonCentre(int n) {
        const geometry::Point c = geometry::hexCentre(n);
        return {kit::px(c.x), kit::px(c.y)};
    }
    void clickAt(int n) { run->clickHexagon(n); }

private slots:
    void cleanup() { run.reset(); }

    void controlsStandWhereTheDesignPutsThem() {
        Fen1Form* f = board(4);
        QCOMPARE(f->size(), QSize(800, 600));
        for (const Place& p : designPlaces) {
            const kit::Control* c = f->control(p.name, p.index);
            QVERIFY2(c, p.name);
            QCOMPARE(c->widget()->geometry(), px(p.left, p.top, p.width, p.height));
        }
        for (int n = 1; n <= 100; ++n) {
            const geometry::LabelPlace label = geometry::numberLabelPlace(n, float(f->model().Label1[100].width));
            const geometry::LabelPlace counter = geometry::counterPlace(n, float(f->model().Label1[100].width));
            QCOMPARE(f->control("Label1", n)->widget()->pos(), QPoint(kit::px(label.left), kit::px(label.top)));
            QCOMPARE(f->control("Label1", n)->widget()->isVisible(), true);
            QCOMPARE(f->control("Image1", n)->widget()->pos(), QPoint(kit::px(counter.left), kit::px(counter.top)));
            QCOMPARE(f->control("Label1", n)->caption(), QString::number(n));
        }
        // 100's label is as wide as its text, centred on its hexagon.
        const QRect l100 = f->control("Label1", 100)->widget()->geometry();
        QVERIFY(qAbs(l100.center().x() - hexagonCentre(100).x()) <= 1);
        // Only the players of the game show their names and scores.
        board(2);
        QVERIFY(run->module->screens.get<Fen1Form>("fen1")->control("Label6", 2)->widget()->isVisible());
        QVERIFY(!run->module->screens.get<Fen1Form>("fen1")->control("Label6", 3)->widget()->isVisible());
    }

    void aClickOnAHexagonPlaysItsNumberAndACounterTakesNoClick() {
        Fen1Form* f = board(2);
        auto* die = f->control("Label4", 0);
        QVERIFY(!die->enabled());
        throwDice({1, 2, 3, 4});
        QCOMPARE(die->caption(), QString("1"));
        QCOMPARE(f->control("Label4", 3)->caption(), QString("4"));
        QVERIFY(!f->control("Label3", 2)->enabled());

        clickAt(24);   // 1 x 2 x 3 x 4
        QVERIFY(!f->control("Label1", 24)->widget()->isVisible());
        auto* counter = f->get<kit::Image>("Image1", 24);
        QVERIFY(counter->isVisible());
        QCOMPARE(counter->picture(), std::string("counters\\cybl1.bmp"));
        QCOMPARE(f->control("Label6", 1)->caption(), QString("20"));
        QCOMPARE(f->control("Label2")->caption(), QString("20 points"));
        QCOMPARE(run->sound->played.back(), std::string("wav\\click.wav"));

        run->clock.advance(2000);
        QCOMPARE(f->control("Label2")->caption(), QString("Red to Play"));
        QCOMPARE(f->control("Label2")->foreColor(), colour::red);
        QCOMPARE(f->control("Label3", 2)->foreColor(), colour::red);
        QVERIFY(f->control("Label3", 2)->enabled());

        // Red throws and clicks where the counter is: the click lands on the
        // counter, which has no click action. Nothing is lost.
        throwDice({1, 2, 3, 4});
        clickAt(24);
        QCOMPARE(f->game().turn, i16(0));
        QCOMPARE(f->model().Image1[24].picture, std::string("counters\\cybl1.bmp"));
        // An illegal number loses the turn, and the line says so over the clocks.
        clickAt(99);
        QCOMPARE(f->game().turn, i16(1));
        QVERIFY(f->control("Label10")->widget()->isVisible());
        QCOMPARE(run->sound->played.back(), std::string("wav\\boink.wav"));
        run->clock.advance(2000);
        QVERIFY(!f->control("Label10")->widget()->isVisible());
        QCOMPARE(f->control("Label2")->caption(), QString("Blue to Play"));
    }

    void welshShrinksTheMessageLineForPoints() {
        Fen1Form* f = board(2, 6);
        QCOMPARE(f->control("Label2")->left(), 4740.0);
        QCOMPARE(f->control("Label3", 2)->left(), 1020.0);
        QCOMPARE(f->control("Label13")->width(), 1080.0);
        throwDice({1, 1, 1, 1});
        clickAt(4);
        QCOMPARE(f->control("Label2")->fontSize(), 19.0);
        QCOMPARE(f->control("Label2")->widget()->y(), kit::px(120));
        run->clock.advance(2000);
        QCOMPARE(f->control("Label2")->fontSize(), 28.0);
        QCOMPARE(f->control("Label2")->widget()->y(), 0);
    }

    void theFlashAndTheCountersShowInFront() {
        Fen1Form* f = board(1);
        throwDice({1, 1, 1, 1});
        clickAt(2);
        run->clock.advance(200);   // first tick of the flash: the white counter shows
        QWidget* flash = f->control("Image3")->widget();
        QVERIFY(flash->isVisible());
        QCOMPARE(flash->pos(), f->control("Image1", 2)->widget()->pos());
        QCOMPARE(f->childAt(hexagonCentre(2)), flash);
        run->clock.advance(1800);
        QVERIFY(!flash->isVisible());
        QCOMPARE(f->childAt(hexagonCentre(2)), f->control("Image1", 2)->widget());
    }
};

QTEST_MAIN(TestFen1)
#include "tst_fen1.moc"
