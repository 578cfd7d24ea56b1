// The state of a game of Fendle!: the players, the colour zones, the module
// variables that outlive a board, and the board model, which holds every fact
// that a window shows and the rules read back (a score box's caption, whether
// a number label is visible, the colour of the player on turn ...). The
// window draws itself from the model; tests read it.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "engine/rgb.h"
#include "text/module_texts.h"

namespace fendle {

using i16 = std::int16_t;
inline constexpr i16 vbTrue = -1;   // flags hold True as -1 and False as 0
inline constexpr i16 vbFalse = 0;

// The four players in their fixed order. Player index 0 to 3; player number
// is the index plus 1.
struct PlayerInfo {
    const char* prefix;   // in counter picture names
    Rgb text;             // colour of the window's texts while on turn
    Rgb face;             // dice faces, score box, clock box
    Rgb digit;            // digits on that face
};
inline constexpr std::array<PlayerInfo, 4> players = {{
    {"bl", colour::blueText, colour::blue, colour::white},
    {"re", colour::red, colour::red, colour::white},
    {"gr", colour::green, colour::green, colour::black},
    {"ye", colour::yellow, colour::yellow, colour::black},
}};

// The seven colour zones, by number.
struct Zone {
    int low, high;
    const char* prefix;
    int reward;
};
inline constexpr std::array<Zone, 7> zones = {{
    {1, 15, "co", 10},
    {16, 28, "cy", 20},
    {29, 45, "ye", 50},
    {46, 64, "bl", 100},
    {65, 79, "gr", 200},
    {80, 90, "ma", 300},
    {91, 100, "re", 500},
}};
// Zone of hexagon n, 1 to 100 (clamped).
const Zone& zoneOf(int n);

// "counters\" + zone + owner + digit + ".bmp"; owner is a player prefix or "wh".
std::string counterPicture(int n, const char* owner, bool prime);
// The same with the mark of player 0 to 3 on it, when the counters carry
// their players' marks: "counters\marked\" + zone + player prefix + digit
// + ".bmp", and for the white flash over that player's new counter
// "counters\marked\" + zone + "wh" + player prefix + digit + ".bmp".
std::string markedCounterPicture(int n, int player, bool flash, bool prime);

// Variables that live as long as the program.
struct ModuleState {
    i16 nplayers = 1;
    i16 soundon = 1;
    i16 computerlevel = 0;   // 0: no computer; else its level, 1 to 3
    i16 timeallowed = 0;     // seconds per player; 0 when the clocks are off
    i16 restartgame = 0;     // 1 while a board is built for a restored game
    i16 greyback = 0;        // 1 while the full-screen backdrop is in use
    i16 countermarks = 0;    // 1 while each player's counters carry that player's mark
    std::array<i16, 101> boardowner{};                 // by hexagon: player number, 0 free
    std::array<std::array<i16, 7>, 101> connarray{};   // neighbour table, row = hexagon - 1

    // What the last restore read from the saved game.
    i16 savedturn = 0;
    std::array<i16, 5> savedscores{};    // players 1 to 4 at 1 to 4
    std::array<i16, 5> savedseconds{};   // players 1 to 4 at 1 to 4
    i16 targetscore = 0;                 // read and kept, used by nothing

    i16 languagenumber = 0;              // an unread number counts as 0
    std::string languagename = "English";
    ModuleTexts texts = englishModuleTexts();

    // Variables of the board window that a new board does not reset: the
    // dice and flash counts carry over from the board before.
    std::array<i16, 5> dice{};
    i16 dicerevealed = 0;
    i16 fendleflash = 0;
    i16 counterflash = 0;
};

// One control's state as the game sees it.
struct ControlState {
    std::string caption;
    Rgb fore;
    Rgb back;
    bool visible = true;
    bool enabled = true;
};

// The message line also changes its top and font size by language.
struct MessageLine : ControlState {
    int top = 0;              // twips
    double fontSize = 27.75;  // points
};

struct NumberLabel {
    float left = 0;   // twips, single precision as the controls hold them
    float top = 0;
    float width = 480;
    Rgb fore = colour::numberGrey;
    bool visible = false;
};

struct Picture {
    std::string picture;   // file name as the game writes it, "counters\blre2.bmp"
    float left = 0;
    float top = 0;
    bool visible = false;
};

// The facts of fen1's controls. Indices are those of the control arrays.
struct BoardModel {
    std::array<NumberLabel, 101> Label1{};   // number on hexagon n; 0 is the hidden pattern
    std::array<Picture, 101> Image1{};       // counter on hexagon n
    Picture Image3;                          // white overlay flashing on the newest counter
    MessageLine Label2;                      // the message line
    std::array<ControlState, 3> Label3{};    // buttons: Exit, New Game, Throw Dice
    ControlState Label14;                    // Cheat Chart button
    std::array<ControlState, 4> Label4{};    // the dice; back is the face, fore the digit
    std::array<ControlState, 7> Label5{};    // 1-4 colour names, 6 note on the computer, 0 and 5 target score
    std::array<ControlState, 5> Label6{};    // score box of player number 1 to 4
    std::array<ControlState, 4> Label12{};   // clock box of player index 0 to 3
    ControlState Label13;                    // heading of the clock boxes
    ControlState Label10;                    // the illegal-move line
    ControlState Label9;                     // the bonus banner
    ControlState ShowHow;                    // Show me how: shown from a move until the next throw
    ControlState HowText;                    // what Show me how tells of the latest move
};

// Indices of fen1's buttons.
namespace button {
inline constexpr i16 exitGame = 0;
inline constexpr i16 newGame = 1;
inline constexpr i16 throwDice = 2;
}  // namespace button

}  // namespace fendle
