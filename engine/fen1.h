// fen1, the board window's game: its form variables and every handler of a
// turn. The window forwards each click and each timer tick here, then redraws
// what changed from `model`. Nothing here touches a widget, a file or a clock:
// time, chance, sound and the other screens come in through the ports.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "engine/game_state.h"
#include "engine/ports.h"
#include "engine/reachable.h"
#include "engine/show_how.h"

namespace fendle {

// fen1's eleven timers.
enum TimerNumber : int {
    Timer1 = 1,   // wind-up of a move, 2000 ms
    Timer2,       // Fendle! flash, 250 ms
    Timer3,       // end-of-game flash of the message line, 250 ms
    Timer4,       // double Fendle! flash, 250 ms
    Timer5,       // reveals the dice one by one
    Timer6,       // the computer's move, 1000 ms
    Timer7,       // the clock, 1000 ms
    Timer8,       // spins the dice
    Timer9,       // flashes the new counter, 200 ms
    Timer10,      // the path bonus, 2000 ms
    Timer11,      // decides the winner, 2000 ms
};

// What happened in a game, as it happens, for those who cannot see the
// board: the window tells a screen reader. Players are indices 0 to 3.
struct GameEvent {
    enum class Kind {
        thrown,      // the fourth die has stopped: dice
        claimed,     // a counter laid on number for points, bonus 0, 100 or 200
        illegal,     // number was not one the dice make: the turn is lost
        turn,        // player is on turn
        outOfTime,   // player's clock has run out
        gameOver,    // a path is complete, or every clock has run out
        timeUp,      // the one player of a solo game is out of time
        pathBonus,   // player gets the 500 of the path
        won,         // player has won
        draw,
    };
    Kind kind = Kind::turn;
    int player = 0;
    int number = 0;
    int points = 0;
    int bonus = 0;
    std::array<i16, 4> dice{};
};

struct Ports {
    TimerBank& timers;
    Random& random;
    Sound& sound;
    Screens& screens;
};

class Fen1 {
public:
    // Builds the board at its design values (English captions) and binds the
    // timers. The window then applies its language and calls Form_Load.
    Fen1(ModuleState& module, Ports ports);
    ~Fen1();
    Fen1(const Fen1&) = delete;
    Fen1& operator=(const Fen1&) = delete;

    // The load's game part: turn, move list, clocks, scores, the number labels
    // and counters, colourprimes, positionnumbers (and previousposition for a
    // restored game). label100Width: the width Label1(100) takes for "100".
    void Form_Load(float label100Width = 525.0f);

    // Hears every event of the game; none by default.
    std::function<void(const GameEvent&)> onEvent;

    // A click on a number would count now: the dice are shown, no move is
    // being shown and the game goes on (Label1_Click's guards).
    bool takesANumber() const;
    // The computer is on turn, or about to be.
    bool computersTurn() const;

    // Input.
    void Label3_Click(i16 Index);   // 0 Exit, 1 New Game, 2 Throw Dice
    void Label1_Click(i16 Index);   // a click on number Index, 1 to 100
    void timerTick(int timer);      // dispatches to TimerN_Timer
    // Show me how: opens the explanation of the latest move, or closes it.
    // Changes nothing of the game.
    void ShowHow_Click();

    void Timer1_Timer();
    void Timer2_Timer();
    void Timer3_Timer();
    void Timer4_Timer();
    void Timer5_Timer();
    void Timer6_Timer();
    void Timer7_Timer();
    void Timer8_Timer();
    void Timer9_Timer();
    void Timer10_Timer();
    void Timer11_Timer();

    // Rules.
    i16 checkfendle(i16 n) const;   // bonus a counter on n would earn: 0, 100 or 200
    // The Level 3 computer's choice on this throw: of the free numbers the
    // throw makes, the one of the highest reward plus bonus, the lowest of
    // equals; 0 when there is none.
    i16 bestChoice() const;
    void checkendofgame();
    i16 okToCheck();
    void findPath();
    void checkelement(i16& element);
    bool inPrevPath() const;
    void inArraytest();
    void saveJump();
    void doJumpBack();
    void colourprimes();
    void positionnumbers();
    void previousposition();

    // Players 1 to count take part: their colour names and score boxes show.
    // The set-up screens and the restore do this once the board is built.
    void showPlayers(int count);

    // The turn line: "Blue to Play", word order by language.
    std::string turnLine(int playerIndex) const;

    // Texts the board takes from the text table (rows 26 and 37).
    std::string playword = "to Play";
    std::string pathbonustext = "+500";
    // The words of Show me how in the board's language.
    HowWords howWords;

    // Every move made on this board, in order: the record of the game.
    std::vector<MoveRecord> moves;

    // turn never goes past turnLimit: one step beyond it, it comes back by
    // turnFold, a multiple of 12, which keeps turn mod 1, 2, 3 and 4 (the
    // player on turn) and its parity (the computer's turn). A saved game
    // with a turn above turnLimit is one no game can reach.
    static constexpr i16 turnLimit = 32000;
    static constexpr i16 turnFold = 12 * 2500;
    // The end-of-game flash counts on with its parity past this bound.
    static constexpr i16 winflashLimit = 32000;

    // Form variables.
    i16 turn = -1;                     // index of the latest move
    std::array<i16, 101> movelist{};   // covered hexagons, 0 behind the last
    i16 movecount = 1;                 // counters on the board plus 1
    i16 bluescore = 0, redscore = 0, greenscore = 0, yellowscore = 0;
    i16 winner = 0;                    // 0 playing; 1-4 that player; 5 a draw or undecided
    i16 winflash = 0;
    Reachable search;                  // dice, allowed and the working arrays

    // Path search state.
    struct Jump {
        i16 node = 0;     // the row that was left
        i16 index = 0;    // the slot that was followed
        i16 target = 0;   // the hexagon reached
    };
    i16 hasone = 0, hastwo = 0, hasthree = 0, hashundred = 0, hasenough = 0, readytocheck = 0;
    std::array<Jump, 101> jumps{};
    i16 jumpcount = 0, currentnode = 0, nodeindex = 0, nextnode = 0, jumpback = 0;
    i16 jumpedback = 0, backatstart = 0, wrapcount = 0, gaveup = 0, inarrayflag = 0, pathfound = 0;

    BoardModel model;
    ModuleState& module;

    // Score variable of player index p.
    i16& score(int playerIndex);
    // A score box's caption read as a number; empty is 0.
    int scoreboxValue(int playerNumber) const;

private:
    enum class Moment { endOfGame, pathBonus, winnerLine };
    void fitLabel2(Moment moment);
    void startEnding();
    void playIfSound(std::string_view wave);
    void tell(GameEvent e) const {
        if (onEvent) onEvent(e);
    }
    void dimDice();
    void stepTurn();
    bool neighbours(int p, int q) const;
    // The picture of player index p's counter on hexagon n, or of the white
    // flash over it: marked with the player's mark while countermarks is 1.
    std::string counterOf(int n, int p, bool flash, bool prime) const;
    bool isCandidate(int n) const;   // made by the throw and free

    Ports ports_;
    bool computerMoving_ = false;   // Timer6 is making the computer's click
    float label100Width_ = 525.0f;
    // By hexagon: in movelist, and entered as a target in this search. They
    // answer inArraytest and inPrevPath without scanning the two lists.
    std::array<bool, 101> inMovelist_{};
    std::array<bool, 101> isTarget_{};
};

}  // namespace fendle
