// Whole games through the real screens: from the title screen through the
// set-up screens onto the board, to the end of the game and an entry in the
// high-score table; a game left with Exit and taken up again.
#include "game_run.h"

#include "saved/highscores.h"

using namespace fendle;
using testing::GameRun;

namespace {

// The points of the move the message line announces ("610 points").
int announcedPoints(Form* board) { return GameRun::caption(board, "Label2").section(' ', 0, 0).toInt(); }

HighScores tableOnDisk(const GameRun& g) {
    HighScores t;
    const QByteArray bytes = g.read("highscores.txt");
    readHighScores(std::string_view(bytes.constData(), std::size_t(bytes.size())), t);
    return t;
}

}  // namespace

class TestGames : public QObject {
    Q_OBJECT

    // The title screen's OK, then a number of players on the set-up screen.
    static void startGame(GameRun& g, int playersButton) {
        g.open();
        GameRun::press(g.screen("Titlefrm"), "Label5");
        GameRun::press(g.screen("Startplay2"), "Label1", playersButton);
    }

private slots:
    void twoPlayersToTheEndAndANameInTheTable() {
        GameRun g;
        g.open();
        GameRun::press(g.screen("Titlefrm"), "Label5");
        QVERIFY(!g.loaded("Titlefrm"));
        QVERIFY(g.screen("Grey")->isVisible());
        QCOMPARE(g.lastSound(), std::string("wav\\click.wav"));
        QVERIFY(g.screen("Startplay2")->isVisible());
        GameRun::press(g.screen("Startplay2"), "Label1", 1);
        QVERIFY(!g.loaded("Startplay2"));
        Fen1Form* board = g.board();
        QVERIFY(board->isVisible());
        QVERIFY(GameRun::shows(board, "Label6", 2) && GameRun::shows(board, "Label5", 2));
        QVERIFY(!GameRun::shows(board, "Label6", 3) && !GameRun::shows(board, "Label12", 0));
        QCOMPARE(GameRun::caption(board, "Label2"), QString("Blue to Play"));

        // Blue: 24 is 1 x 2 x 3 x 4.
        g.throwDice({1, 2, 3, 4});
        QCOMPARE(GameRun::caption(board, "Label4", 3), QString("4"));
        g.clickHexagon(24);
        QCOMPARE(GameRun::caption(board, "Label6", 1), QString("20"));
        QVERIFY(GameRun::shows(board, "Image1", 24) && !GameRun::shows(board, "Label1", 24));
        g.clock.advance(2000);
        QCOMPARE(GameRun::caption(board, "Label2"), QString("Red to Play"));
        QCOMPARE(board->control("Label2")->foreColor(), colour::red);
        QCOMPARE(board->control("Label3", button::throwDice)->foreColor(), colour::red);
        QVERIFY(board->control("Label3", button::throwDice)->enabled());

        // Red: four ones cannot make 99, and the turn is lost.
        g.throwDice({1, 1, 1, 1});
        g.clickHexagon(99);
        QVERIFY(GameRun::shows(board, "Label10"));
        QVERIFY(GameRun::shows(board, "Label1", 99));
        QCOMPARE(g.lastSound(), std::string("wav\\boink.wav"));
        g.clock.advance(2000);
        QVERIFY(!GameRun::shows(board, "Label10"));
        QCOMPARE(GameRun::caption(board, "Label2"), QString("Blue to Play"));

        // Blue closes the path with a click on hexagon 1.
        g.layPathBut(1, 2);
        g.throwDice({1, 1, 1, 1});
        g.clickHexagon(1);
        const int final = 20 + announcedPoints(board) + 500;
        g.clock.advance(2000);
        QCOMPARE(g.lastSound(), std::string("wav\\crowd.wav"));
        g.clock.advance(2000);
        QCOMPARE(GameRun::caption(board, "Label6", 1), QString::number(final));
        QVERIFY(!g.loaded("highscores"));
        g.clock.advance(2000);

        // The best score enters the empty table at the top of Open Play.
        Form* scores = g.screen("highscores");
        QVERIFY(scores && scores->isVisible());
        QVERIFY(scores->windowFlags() & Qt::WindowStaysOnTopHint);
        QCOMPARE(GameRun::caption(scores, "Label9", 0), QString::number(final));
        QCOMPARE(GameRun::caption(scores, "Label9", 1), QString("0"));   // the section is filled anew
        QCOMPARE(GameRun::caption(scores, "Label9", 5), QString());
        QWidget* name = scores->control("Text1")->widget();
        QVERIFY(name->isVisible());
        QCOMPARE(name->y(), scores->control("Label8", 0)->widget()->y() - kit::px(60));
        QTRY_VERIFY(name->hasFocus());
        QVERIFY(!board->control("Label3", button::exitGame)->enabled());
        QVERIFY(!board->control("Label3", button::newGame)->enabled());

        // Continue without a name writes the entry with an empty one.
        GameRun::press(scores, "Label3", 0);
        QVERIFY(!g.loaded("highscores"));
        QVERIFY(board->control("Label3", button::exitGame)->enabled());
        QVERIFY(board->control("Label3", button::newGame)->enabled());
        QCOMPARE(g.lastSound(), std::string("wav\\crowd.wav"));   // the end turned the sound off
        const HighScores t = tableOnDisk(g);
        QCOMPARE(t.highnames[0], std::string());
        QCOMPARE(int(t.highpoints[0]), final);
        QVERIFY(g.messages.isEmpty());
    }

    void againstTheComputer() {
        GameRun g;
        g.open();
        GameRun::press(g.screen("Titlefrm"), "Label5");
        GameRun::press(g.screen("Startplay2"), "Label1", 0);
        Form* level = g.screen("Startautoplay2");
        QVERIFY(level->isVisible());
        QVERIFY(g.board() && !g.board()->isVisible());   // built for one, waiting unseen
        QVERIFY(level->get<kit::OptionButton>("Option1", 2)->value());
        GameRun::tick(level, "Option1", 0);
        GameRun::tick(level, "Option1", 1);
        QCOMPARE(g.lastSound(), std::string("wav\\tink.wav"));
        GameRun::press(level, "Label7");
        QVERIFY(!g.loaded("Startautoplay2"));
        QCOMPARE(int(g.state().computerlevel), 2);
        QCOMPARE(int(g.state().nplayers), 2);

        Fen1Form* board = g.board();
        QVERIFY(board->isVisible());
        QVERIFY(GameRun::shows(board, "Label5", 6) && GameRun::shows(board, "Label6", 2));

        g.throwDice({1, 2, 3, 4});
        g.clickHexagon(24);
        // The computer throws as soon as the turn passes, and plays its move
        // a second after its fourth die, with nobody pressing anything.
        g.scriptDice({6, 6, 6, 6});
        g.clock.advance(2000);
        QCOMPARE(GameRun::caption(board, "Label2"), QString("Red to Play"));
        QVERIFY(!board->control("Label3", button::throwDice)->enabled());
        g.clock.advance(2250);
        for (int d = 0; d < 4; ++d) {   // the computer's dice: white on red
            QCOMPARE(board->control("Label4", d)->backColor(), colour::red);
            QCOMPARE(board->control("Label4", d)->foreColor(), colour::white);
            QCOMPARE(GameRun::caption(board, "Label4", d), QString("6"));
        }
        g.clock.advance(1000);
        QVERIFY(GameRun::caption(board, "Label6", 2).toInt() > 0);
        g.clock.advance(2000);
        QCOMPARE(GameRun::caption(board, "Label2"), QString("Blue to Play"));
        QVERIFY(board->control("Label3", button::throwDice)->enabled());
    }

    // A game of two moves against the clock left with Exit and taken up
    // again with Restart Previous Game: counters, scores and clocks come
    // back, and so do the game's own backdrop and sound setting, whatever
    // this run has meanwhile.
    void exitAfterTwoMovesAndRestart_data() {
        QTest::addColumn<int>("greyback");
        QTest::addColumn<int>("soundon");
        QTest::newRow("backdrop, no sound") << 1 << 0;
        QTest::newRow("sound, no backdrop") << 0 << 1;
    }
    void exitAfterTwoMovesAndRestart() {
        QFETCH(int, greyback);
        QFETCH(int, soundon);
        GameRun g;
        g.open();
        GameRun::press(g.screen("Titlefrm"), "Label5");
        GameRun::tick(g.screen("Startplay2"), "Check2");   // 600 seconds each
        GameRun::press(g.screen("Startplay2"), "Label1", 1);
        g.throwDice({1, 2, 3, 4});
        g.clock.advance(3000);   // Blue's clock runs three seconds
        g.clickHexagon(24);
        g.clock.advance(2000);
        g.throwDice({1, 1, 1, 1});
        g.clock.advance(2000);
        g.clickHexagon(4);
        g.clock.advance(2000);
        Fen1Form* board = g.board();
        const BoardModel before = board->model();
        QCOMPARE(before.Label12[0].caption, std::string("597"));
        QCOMPARE(before.Label12[1].caption, std::string("598"));

        g.state().greyback = static_cast<i16>(greyback);
        g.state().soundon = static_cast<i16>(soundon);
        GameRun::press(board, "Label3", button::exitGame);
        QVERIFY(!g.loaded("fen1"));
        QVERIFY(g.screen("Titlefrm")->isVisible());
        // Blue's and Red's seconds, then the clock boxes of the absent players.
        const QList<QByteArray> lines = g.read("lastgame.inf").split('\n');
        QCOMPARE(lines.mid(209, 4), (QList<QByteArray>{"597\r", "598\r", "2000\r", "2000\r"}));
        g.state().greyback = static_cast<i16>(1 - greyback);
        g.module->screens.unload("Grey");
        g.sound->played.clear();

        GameRun::press(g.screen("Titlefrm"), "Label6");
        QVERIFY(!g.loaded("Titlefrm"));
        QCOMPARE(int(g.state().restartgame), 0);
        QCOMPARE(g.loaded("Grey") && g.screen("Grey")->isVisible(), greyback == 1);
        QCOMPARE(int(g.state().soundon), soundon);
        board = g.board();
        QVERIFY(board->isVisible());
        g.clock.advance(1);   // the restored board hands the turn on at once
        for (int n = 1; n <= 100; ++n) {
            const auto i = std::size_t(n);
            QCOMPARE(board->model().Image1[i].picture, before.Image1[i].picture);
            QCOMPARE(GameRun::shows(board, "Image1", n), before.Image1[i].visible);
        }
        for (int p = 1; p <= 2; ++p) QCOMPARE(GameRun::caption(board, "Label6", p), QString::fromStdString(before.Label6[std::size_t(p)].caption));
        QCOMPARE(GameRun::caption(board, "Label12", 0), QString("597"));
        QCOMPARE(GameRun::caption(board, "Label12", 1), QString("598"));
        QVERIFY(GameRun::shows(board, "Label6", 2) && GameRun::shows(board, "Label5", 2));
        QVERIFY(GameRun::shows(board, "Label12", 1) && !GameRun::shows(board, "Label6", 3));
        QCOMPARE(GameRun::caption(board, "Label2"), QString("Blue to Play"));
        g.throwDice({1, 2, 3, 4});
        const std::vector<std::string> heard = {"wav\\click.wav", "wav\\cupdice.wav"};
        QCOMPARE(g.sound->played, soundon ? heard : std::vector<std::string>{});
    }

    // A new entry in the last row of a section: the fifth of Open Play, the
    // tenth in all, the last of the computer's section.
    void aNewEntryInTheLastRowOfASection_data() {
        QTest::addColumn<int>("computerlevel");
        QTest::addColumn<int>("row");   // 0-based
        QTest::newRow("row 5") << 0 << 4;
        QTest::newRow("row 10") << 3 << 9;
    }
    void aNewEntryInTheLastRowOfASection() {
        QFETCH(int, computerlevel);
        QFETCH(int, row);
        GameRun g;
        HighScores old;
        const int first = row - 4;
        for (int r = first; r < row; ++r) {
            old.highnames[std::size_t(r)] = std::string(1, char('A' + r - first));
            old.highpoints[std::size_t(r)] = static_cast<i16>(30000 - 1000 * (r - first));
        }
        old.highnames[std::size_t(row)] = "Gone";
        old.highpoints[std::size_t(row)] = 5;
        g.write("highscores.txt", QByteArray::fromStdString(highscoresText(old)));
        startGame(g, 1);
        g.state().computerlevel = static_cast<i16>(computerlevel);   // Blue's score goes to that section
        g.layPathBut(1, 2);
        g.throwDice({1, 1, 1, 1});
        g.clickHexagon(1);
        g.clock.advance(6000);
        const int score = GameRun::caption(g.board(), "Label6", 1).toInt();

        Form* scores = g.screen("highscores");
        QVERIFY(scores && scores->isVisible());
        for (int r = 0; r < 10; ++r) {
            const bool section = r >= first && r <= row;
            const QString points = r == row ? QString::number(score) : section ? QString::number(30000 - 1000 * (r - first)) : QString();
            QCOMPARE(GameRun::caption(scores, "Label9", r), points);
        }
        QCOMPARE(GameRun::caption(scores, "Label8", row), QString("Gone"));   // until the name is written
        QWidget* name = scores->control("Text1")->widget();
        QVERIFY(name->isVisible());
        QCOMPARE(name->y(), scores->control("Label8", row)->widget()->y() - kit::px(60));
        QTest::keyClicks(name, "Eve");
        GameRun::press(scores, "Label3", 0);
        const HighScores t = tableOnDisk(g);
        QCOMPARE(t.highnames[std::size_t(row)], std::string("Eve"));
        QCOMPARE(int(t.highpoints[std::size_t(row)]), score);
        QCOMPARE(t.highnames[std::size_t(row - 1)], std::string("D"));
    }

    // A file that holds no saved game: Restart Previous Game seems to do nothing.
    void aRestartWithoutASavedGame() {
        GameRun g;
        g.write("lastgame.inf", "an older game\r\n");
        g.open();
        g.sound->played.clear();
        GameRun::press(g.screen("Titlefrm"), "Label6");
        QVERIFY(g.screen("Titlefrm")->isVisible());
        QVERIFY(!g.loaded("fen1"));
        QCOMPARE(int(g.state().restartgame), 0);
        QVERIFY(g.sound->played.empty());
    }
};

QTEST_MAIN(TestGames)
#include "tst_games.moc"
