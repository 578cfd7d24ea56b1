// The board window on the virtual clock: its controls where the design puts
// them, real clicks at window positions, and the message line by language.
#include <QDir>
#include <QWindow>
#include <QtTest>

#include "game_run.h"

#include "engine/connarray.h"

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
        readConnarray(run->read("connarray.dat").toStdString(), module.state.connarray);
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

    // The message line's top and font size at each stage of the end of a
    // game, by language: the design's table of the message line, stage by
    // stage; an empty cell keeps what the stage before left.
    void theEndOfAGameByLanguage_data() {
        QTest::addColumn<int>("language");
        QTest::addColumn<bool>("draw");
        QTest::addColumn<QList<double>>("expected");   // top, size: game over, +500, result
        const QList<double> plain = {0, 27.75, 0, 27.75, 0, 27.75};
        QTest::newRow("0") << 0 << false << plain;
        QTest::newRow("1") << 1 << false << QList<double>{0, 27.75, 120, 19, 120, 19};
        QTest::newRow("2") << 2 << false << QList<double>{0, 27.75, 0, 24, 0, 24};
        QTest::newRow("3") << 3 << false << QList<double>{120, 19, 120, 19, 120, 19};
        QTest::newRow("4") << 4 << false << plain;
        QTest::newRow("5") << 5 << false << QList<double>{120, 19, 120, 19, 120, 22};
        QTest::newRow("6") << 6 << false << QList<double>{120, 24, 120, 24, 120, 19};
        QTest::newRow("0, a draw") << 0 << true << plain;
        QTest::newRow("2, a draw") << 2 << true << QList<double>{0, 27.75, 0, 24, 120, 20};
    }
    void theEndOfAGameByLanguage() {
        QFETCH(int, language);
        QFETCH(bool, draw);
        QFETCH(QList<double>, expected);
        Fen1Form* f = board(2, language);
        const ModuleTexts& t = run->module->state.texts;
        kit::Control* line = f->control("Label2");
        const auto stage = [&](int k, const std::string& caption) {
            QCOMPARE(line->caption(), QString::fromStdString(caption));
            QCOMPARE(line->widget()->y(), kit::px(expected[2 * k]));
            QCOMPARE(line->fontSize(), expected[2 * k + 1]);
        };
        run->layPathBut(1, 2);
        throwDice({1, 1, 1, 1});
        clickAt(1);   // Blue completes the path, with a bonus
        const int blue = f->control("Label6", 1)->caption().toInt();
        run->clock.advance(2000);
        stage(0, t.gameovertext);
        run->clock.advance(2000);
        stage(1, "+500 " + t.bluename);
        QCOMPARE(f->control("Label6", 1)->caption(), QString::number(blue + 500));
        if (draw) {
            f->model().Label6[2].caption = std::to_string(blue + 500);
            f->sync();
        }
        run->clock.advance(2000);
        stage(2, draw ? t.drawtext : t.bluewinstext);
    }

    // The two bonus banners flash yellow, and both end red on "FENDLE!".
    void theBonusFlashesEndRed_data() {
        QTest::addColumn<QList<int>>("moves");   // Blue, Red, Blue: the last earns the bonus
        QTest::addColumn<QString>("firstTick");
        QTest::newRow("100 on 1, between 2 and 3") << QList<int>{3, 2, 1} << "FENDLE!";
        QTest::newRow("200 on the prime 2, between 3 and 5") << QList<int>{3, 5, 2} << "DOUBLE";
    }
    void theBonusFlashesEndRed() {
        QFETCH(QList<int>, moves);
        QFETCH(QString, firstTick);
        Fen1Form* f = board(2);
        for (int n : moves) {
            throwDice({1, 2, 3, 4});
            clickAt(n);
            if (n != moves.last()) run->clock.advance(2000);
        }
        kit::Control* banner = f->control("Label9");
        run->clock.advance(250);
        QCOMPARE(banner->foreColor(), colour::yellow);
        QCOMPARE(banner->caption(), firstTick);
        run->clock.advance(9 * 250);
        QCOMPARE(banner->foreColor(), colour::red);
        QCOMPARE(banner->caption(), QString("FENDLE!"));
        run->clock.advance(1000);
        QCOMPARE(banner->foreColor(), colour::red);   // and stays so
    }
};

QTEST_MAIN(TestFen1)
#include "tst_fen1.moc"
