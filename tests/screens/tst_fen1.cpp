// The board window on the virtual clock: the flash over the newest counter,
// the message line by language, the bonus banners, and Show me how.
#include "fit_check.h"
#include "game_run.h"

using namespace fendle;

class TestFen1 : public QObject {
    Q_OBJECT

    std::unique_ptr<testing::GameRun> run;

    // A board for nplayers in a language, after the title screen has read
    // the tables.
    Fen1Form* board(int nplayers = 2, int language = 0) {
        run.reset();
        run = std::make_unique<testing::GameRun>();
        run->write("numlang.txt", QByteArray::number(language) + "\r\n");
        run->open();
        return run->showBoard(nplayers);
    }

private slots:
    void cleanup() { run.reset(); }

    void theFlashAndTheCountersShowInFront() {
        Fen1Form* f = board(1);
        run->throwDice({1, 1, 1, 1});
        run->clickHexagon(2);
        run->clock.advance(200);   // first tick of the flash: the white counter shows
        QWidget* flash = f->control("Image3")->widget();
        QVERIFY(flash->isVisible());
        QCOMPARE(flash->pos(), f->control("Image1", 2)->widget()->pos());
        QCOMPARE(f->childAt(testing::GameRun::hexagonPoint(2)), flash);
        run->clock.advance(1800);
        QVERIFY(!flash->isVisible());
        QCOMPARE(f->childAt(testing::GameRun::hexagonPoint(2)), f->control("Image1", 2)->widget());
    }

    // The message line's words, top and font size at each stage of the end
    // of a game, by language: the rows of text.csv, and the design's table of
    // the message line stage by stage; an empty cell keeps what the stage
    // before left.
    void theEndOfAGameByLanguage() {
        const QList<double> plain = {0, 27.75, 0, 27.75, 0, 27.75};
        const struct {
            int language;
            bool draw;
            QList<double> expected;   // top, size: game over, +500, result
        } cases[] = {
            {0, false, plain}, {1, false, {0, 27.75, 120, 19, 120, 19}}, {2, false, {0, 27.75, 0, 24, 0, 24}},
            {3, false, {120, 19, 120, 19, 120, 19}}, {4, false, plain}, {5, false, {120, 19, 120, 19, 120, 22}},
            {6, false, {120, 24, 120, 24, 120, 19}}, {0, true, plain}, {2, true, {0, 27.75, 0, 24, 120, 20}},
        };
        for (const auto& [language, draw, expected] : cases) {
            Fen1Form* f = board(2, language);
            const auto t = run->table("text/text.csv"), r = run->table("text/rules.csv");
            const auto text = [&](int row) { return t[std::size_t(row)][std::size_t(language)]; };
            kit::Control* line = f->control("Label2");
            const auto stage = [&](int k, const QString& caption) {
                QCOMPARE(line->caption(), caption);
                QCOMPARE(line->widget()->y(), kit::px(expected[2 * k]));
                QCOMPARE(line->fontSize(), expected[2 * k + 1]);
            };
            run->layPathBut(1, 2);
            run->throwDice({1, 1, 1, 1});
            run->clickHexagon(1);   // Blue completes the path, with a bonus
            const int blue = f->control("Label6", 1)->caption().toInt();
            run->clock.advance(2000);
            stage(0, text(38));
            run->clock.advance(2000);
            stage(1, text(37) + ' ' + r[37][std::size_t(language)]);
            QCOMPARE(f->control("Label6", 1)->caption(), QString::number(blue + 500));
            if (draw) {
                f->model().Label6[2].caption = std::to_string(blue + 500);
                f->sync();
            }
            run->clock.advance(2000);
            stage(2, text(draw ? 35 : 31));
        }
    }

    // The two bonus banners flash yellow, and both end red on "FENDLE!".
    void theBonusFlashesEndRed() {
        const std::pair<QList<int>, QString> cases[] = {   // Blue, Red, Blue: the last earns the bonus
            {{3, 2, 1}, "FENDLE!"},   // 100 on 1, between 2 and 3
            {{3, 5, 2}, "DOUBLE"},    // 200 on the prime 2, between 3 and 5
        };
        for (const auto& [moves, firstTick] : cases) {
            Fen1Form* f = board(2);
            for (int n : moves) {
                run->throwDice({1, 2, 3, 4});
                run->clickHexagon(n);
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
    }

    // Show me how against the computer, in English and French, with the
    // words of messages.csv read here. Four 2s make at most 16 (2 x 2 x 2 x
    // 2), worth 20 on an empty board: the best after Blue's 99, and the Level
    // 3 computer's move. 1, 4, 4 and 6 make 17 only by rounding 4 x (4 + 1/6)
    // = 50/3. Asking plays nothing and passes no turn; the throw takes the
    // button away. Then, in all seven languages, the answer to a refused 89
    // fits unshrunk, clear of every other control.
    void showMeHow() {
        const QString x = QStringLiteral(" \u00d7 "), sixteen = "16 =" + QString(" 2" + x + "2" + x + "2" + x + "2");
        for (int language = 0; language < 7; ++language) {
            run.reset();
            run = std::make_unique<testing::GameRun>();
            run->write("numlang.txt", QByteArray::number(language) + "\r\n");
            run->open();
            std::map<QString, QString> words;
            for (const auto& row : run->table("text/messages.csv", 8)) words[row[0]] = row[std::size_t(language) + 1];
            const auto fill = [&](const char* key, const QStringList& args) {
                QString text = words[key];
                for (int i = 0; i < args.size(); ++i) text.replace(QString("%%1").arg(i + 1), args[i]);
                return text;
            };
            run->state().computerlevel = 3;
            Fen1Form* f = run->showBoard(2);
            kit::Control* how = f->control("HowText");
            bool quiet = true;
            const auto ask = [&](bool byKey) {
                const auto sounds = run->sound->played.size();
                const i16 turn = f->game().turn;
                if (byKey) QTest::keyClick(f, Qt::Key_H);
                else testing::GameRun::press(f, "ShowHow");
                quiet = quiet && run->sound->played.size() == sounds && f->game().turn == turn;
                return how->widget()->isVisible() ? how->caption() : QString();
            };
            QVERIFY(!f->control("ShowHow")->widget()->isVisible());
            if (language > 1) {
                run->throwDice({5, 5, 5, 6});
                run->clickHexagon(89);
                ask(false);
                const testing::FitReport fit = testing::checkFit(*f);
                QVERIFY2(fit.faults.isEmpty(), qPrintable(fit.faults.join('\n')));
                QCOMPARE(static_cast<kit::Label*>(how)->drawnPixelSize(), kit::fontPixels(how->fontSize()));
                continue;
            }
            run->throwDice({2, 2, 2, 2});
            run->clickHexagon(99);
            QCOMPARE(ask(false), fill("howCannot", {"99", "2", "2", "2", "2"}) + "\n" + fill("howBest", {"16", "20", sixteen}));
            run->scriptDice({2, 2, 2, 2});
            run->clock.advance(2000);   // Red's turn: the computer throws at once
            QVERIFY(!f->control("ShowHow")->widget()->isVisible() && !how->widget()->isVisible());
            run->clock.advance(2250 + 1000);
            QCOMPARE(ask(true), sixteen);
            QCOMPARE(ask(true), QString());   // asked again, it closes
            run->clock.advance(2000);
            run->throwDice({1, 4, 4, 6});
            run->clickHexagon(17);
            QCOMPARE(ask(true), fill("howRounded", {"4" + x + "(4 + 1 \u00f7 6)", "50/3", "17"}));
            QVERIFY(quiet);
        }
    }
};

QTEST_MAIN(TestFen1)
#include "tst_fen1.moc"
