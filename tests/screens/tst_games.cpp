// Whole games through the real screens: from the title screen through the
// set-up screens onto the board, to the end of the game and an entry in the
// high-score table; a game left with Exit and taken up again; the record of
// games that the board keeps for a teacher.
#include "game_run.h"

#include "saved/highscores.h"

using namespace fendle;
using testing::GameRun;

namespace {

HighScores tableOnDisk(const GameRun& g) {
    HighScores t;
    const QByteArray bytes = g.read("highscores.txt");
    readHighScores(std::string_view(bytes.constData(), std::size_t(bytes.size())), t);
    return t;
}

// A file as RFC 4180 writes it: fields split at commas, one in double quotes
// holding commas, line ends and doubled quotes; each line ended by CR LF.
std::vector<QStringList> readCsv(const QString& text) {
    std::vector<QStringList> rows(1);
    QString field;
    bool quoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (quoted && c == '"' && text.mid(i + 1, 1) == "\"") field += text[i++];
        else if (c == '"') quoted = !quoted;
        else if (quoted || (c != ',' && text.mid(i, 2) != "\r\n")) field += c;
        else {
            rows.back() << std::exchange(field, {});
            if (c != ',') rows.emplace_back(), ++i;
        }
    }
    rows.pop_back();   // what follows the last line end
    return rows;
}

}  // namespace

class TestGames : public QObject {
    Q_OBJECT

private slots:
    // The level chosen goes to the board, whose computer throws as soon as
    // the turn passes and plays its move a second after its fourth die, with
    // nobody pressing anything.
    void againstTheComputer() {
        GameRun g;
        g.startGame(0);
        Form* level = g.screen("Startautoplay2");
        QVERIFY(g.board() && !g.board()->isVisible());   // built for one, waiting unseen
        GameRun::tick(level, "Option1", 0);
        GameRun::tick(level, "Option1", 1);
        QCOMPARE(g.lastSound(), std::string("wav\\tink.wav"));
        GameRun::press(level, "Label7");
        QVERIFY(!g.loaded("Startautoplay2"));
        QCOMPARE(int(g.state().computerlevel), 2);
        QCOMPARE(int(g.state().nplayers), 2);

        Fen1Form* board = g.board();
        QVERIFY(board->isVisible());
        g.throwDice({1, 2, 3, 4});
        g.clickHexagon(24);
        g.scriptDice({6, 6, 6, 6});
        g.clock.advance(2000);
        QCOMPARE(GameRun::caption(board, "Label2"), QString("Red to Play"));
        QVERIFY(!board->control("Label3", button::throwDice)->enabled());
        g.clock.advance(2250);
        QCOMPARE(GameRun::caption(board, "Label4", 3), QString("6"));
        QCOMPARE(GameRun::caption(board, "Label6", 2).toInt(), 0);   // its move waits a second
        g.clock.advance(1000);
        QVERIFY(GameRun::caption(board, "Label6", 2).toInt() > 0);
        g.clock.advance(2000);
        QCOMPARE(GameRun::caption(board, "Label2"), QString("Blue to Play"));
        QVERIFY(board->control("Label3", button::throwDice)->enabled());
    }

    // The board's note against the computer, at each level in each language:
    // row 29 of text.csv, blanks by language (for Spanish by level too), and
    // the level chosen. The approved shots show only level 3.
    void theComputersNoteByLanguageAndLevel() {
        const int blanks[7][3] = {{10, 10, 10}, {1, 1, 1}, {1, 1, 1}, {22, 1, 22}, {3, 3, 3}, {1, 1, 1}, {14, 14, 14}};
        for (std::size_t lang = 0; lang < 7; ++lang) {
            GameRun g;
            const auto text = g.table("text/text.csv");
            g.write("numlang.txt", QByteArray::number(int(lang)) + "\r\n");
            g.startGame(0);
            for (std::size_t option = 0; option < 3; ++option) {
                g.module->screens.show("Startautoplay2");
                GameRun::tick(g.screen("Startautoplay2"), "Option1", int(option));
                GameRun::press(g.screen("Startautoplay2"), "Label7");
                QCOMPARE(GameRun::caption(g.board(), "Label5", 6),
                         text[29][lang] + QString(blanks[lang][option], ' ') + text[17 + option][lang]);
            }
        }
    }

    // A game of two moves against the clock left with Exit and taken up
    // again with Restart Previous Game: counters, scores and clocks come
    // back, and so do the game's own backdrop and sound setting, whatever
    // this run has meanwhile.
    void exitAfterTwoMovesAndRestart() {
        for (const auto& [greyback, soundon] : {std::pair{1, 0}, {0, 1}}) {   // backdrop, no sound; sound, no backdrop
            GameRun g;
            // A file that holds no saved game: Restart Previous Game seems to do nothing.
            g.write("lastgame.inf", "an older game\r\n");
            g.open();
            GameRun::press(g.screen("Titlefrm"), "Label6");
            QVERIFY(g.screen("Titlefrm")->isVisible() && !g.loaded("fen1"));
            QVERIFY(g.sound->played.empty() && g.state().restartgame == 0);
            GameRun::tick(g.setUp(), "Check2");   // 600 seconds each
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
    }

    // A new entry: at the top of a table not yet written, left without a
    // name; in the fifth row of Open Play and in the tenth, the last of the
    // computer's section, under older entries. The table stands on top of the
    // board, whose ways out wait for it.
    void aNewEntryInTheTable() {
        const struct {
            int computerlevel, row;   // row 0-based
            QString name;
        } cases[] = {{0, 0, QString()}, {0, 4, "Eve"}, {3, 9, "Eve"}};   // row 1: no file, no name
        for (const auto& [computerlevel, row, name] : cases) {
            GameRun g;
            HighScores old;
            const int first = row / 5 * 5;
            for (int r = first; r < row; ++r) {
                old.highnames[std::size_t(r)] = std::string(1, char('A' + r - first));
                old.highpoints[std::size_t(r)] = static_cast<i16>(30000 - 1000 * (r - first));
            }
            old.highnames[std::size_t(row)] = "Gone";
            old.highpoints[std::size_t(row)] = 5;
            if (row > 0) g.write("highscores.txt", QByteArray::fromStdString(highscoresText(old)));
            g.startGame(1);
            g.state().computerlevel = static_cast<i16>(computerlevel);   // Blue's score goes to that section
            g.layPathBut(1, 2);
            g.throwDice({1, 1, 1, 1});
            g.clickHexagon(1);
            g.clock.advance(6000);
            Fen1Form* board = g.board();
            const int score = GameRun::caption(board, "Label6", 1).toInt();

            Form* scores = g.screen("highscores");
            QVERIFY(scores && scores->isVisible());
            QVERIFY(scores->windowFlags() & Qt::WindowStaysOnTopHint);
            for (int r = 0; r < 10; ++r) {
                // The section's five rows, free ones as 0; the other section empty.
                const QString points = r / 5 != row / 5 ? QString()
                                       : r < row        ? QString::number(30000 - 1000 * (r - first))
                                       : r == row       ? QString::number(score)
                                                        : QString("0");
                QCOMPARE(GameRun::caption(scores, "Label9", r), points);
            }
            if (row > 0) QCOMPARE(GameRun::caption(scores, "Label8", row), QString("Gone"));   // until the name is written
            QWidget* box = scores->control("Text1")->widget();
            QVERIFY(box->isVisible());
            QCOMPARE(box->y(), scores->control("Label8", row)->widget()->y() - kit::px(60));
            QTRY_VERIFY(box->hasFocus());
            QVERIFY(!board->control("Label3", button::exitGame)->enabled());
            QVERIFY(!board->control("Label3", button::newGame)->enabled());
            QTest::keyClicks(box, name);
            const std::size_t heard = g.sound->played.size();
            GameRun::press(scores, "Label3", 0);
            QVERIFY(!g.loaded("highscores"));
            QVERIFY(board->control("Label3", button::exitGame)->enabled());
            QVERIFY(board->control("Label3", button::newGame)->enabled());
            QCOMPARE(g.sound->played.size(), heard);   // the end turned the sound off
            const HighScores t = tableOnDisk(g);
            QCOMPARE(QString::fromStdString(t.highnames[std::size_t(row)]), name);
            QCOMPARE(int(t.highpoints[std::size_t(row)]), score);
            if (row > 0) QCOMPARE(t.highnames[std::size_t(row - 1)], std::string("D"));
            QVERIFY(g.messages.isEmpty());
        }
    }

    // Three moves of two players left with Exit, then a game of one move left
    // with New Game: games.csv, read back here, holds its mark, one heading
    // and a row per move. Four 2s make at most 16, worth 20 on an empty board;
    // 1, 4, 4 and 6 make 17 only by rounding 50/3.
    void theRecordOfGames() {
        GameRun g;
        g.startGame(1);
        const std::pair<std::array<int, 4>, int> moves[] = {{{2, 2, 2, 2}, 50}, {{6, 6, 6, 6}, 24}, {{1, 4, 4, 6}, 17}};
        for (const auto& [dice, n] : moves) {
            g.throwDice(dice);
            g.clickHexagon(n);
            g.clock.advance(2000);
        }
        GameRun::press(g.board(), "Label3", button::exitGame);
        g.startGame(1);
        g.throwDice({1, 1, 1, 1});
        g.clickHexagon(4);
        GameRun::press(g.board(), "Label3", button::newGame);

        // Read back as a spreadsheet reads it.
        const QByteArray bytes = g.read("games.csv");
        QVERIFY(bytes.startsWith("\xEF\xBB\xBF") && bytes.endsWith("\r\n"));
        // A field is quoted only where it needs to be.
        QVERIFY(bytes.contains(",Red,Red,6,6,6,6,24,yes,20,0,,6 + 6 + 6 + 6\r\n"));
        const std::vector<QStringList> rows = readCsv(QString::fromUtf8(bytes.mid(3)));
        const QString x = QStringLiteral(" \u00d7 ");
        const std::vector<QStringList> expected = {
            {"Date and time", "Game", "Colour", "Name", "Die 1", "Die 2", "Die 3", "Die 4", "Number", "Legal", "Points", "Bonus", "Best number", "Expression"},
            {"", "1", "Blue", "Blue", "2", "2", "2", "2", "50", "no", "0", "0", "16", "2" + x + "2" + x + "2" + x + "2"},
            {"", "1", "Red", "Red", "6", "6", "6", "6", "24", "yes", "20", "0", "", "6 + 6 + 6 + 6"},
            {"", "1", "Blue", "Blue", "1", "4", "4", "6", "17", "yes", "20", "0", "", "4" + x + "(4 + 1 \u00f7 6) = 50/3"},
            {"", "2", "Blue", "Blue", "1", "1", "1", "1", "4", "yes", "10", "0", "", "1 + 1 + 1 + 1"},
        };
        QCOMPARE(rows.size(), expected.size());
        QCOMPARE(rows[0], expected[0]);
        for (std::size_t i = 1; i < rows.size(); ++i) {
            QVERIFY(QRegularExpression("^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d$").match(rows[i].value(0)).hasMatch());
            QCOMPARE(rows[i].mid(1), expected[i].mid(1));
        }
    }
};

QTEST_MAIN(TestGames)
#include "tst_games.moc"
