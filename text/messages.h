// The program's own words that the three tables of the screens do not hold:
// what it tells the user when something could not be done, and the names by
// which a screen reader announces each window. They live in
// text\messages.csv, in the seven languages of the game: a heading line of
// eight fields, then one line per message, its key and its seven texts.
//
// Each message is known to the code by a constant below, which also carries
// its English text, so that a message can still be shown when the file is
// missing or damaged. A text may hold "%1", which the caller fills in.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace fendle {

inline constexpr std::string_view messagesCsvFile = "text\\messages.csv";

struct Message {
    std::string_view key;
    std::string_view english;
};

namespace msg {

// Told once when OK on the language screen cannot write numlang.txt.
inline constexpr Message languageNotSaved{
    "languageNotSaved", "Your choice of language could not be saved. Fendle! will use it until you close the game."};

// Told once when a click on the marks' box cannot write countermarks.txt.
inline constexpr Message countermarksNotSaved{
    "countermarksNotSaved",
    "Your choice of shapes on the counters could not be saved. Fendle! will use it until you close the game."};
// The words of the set-up screen's box that puts each player's mark on the
// counters.
inline constexpr Message countermarksBox{"countermarksBox", "Shapes on counters"};

// Told when the program finds no folder with its texts, pictures and sounds;
// "%1" is the folders it looked in, each on a line of its own.
inline constexpr Message dataFolderMissing{
    "dataFolderMissing",
    "Fendle! cannot start: its texts, pictures and sounds are missing. It looked for them in:%1"};
// Told when Continue on the high-score screen cannot write highscores.txt.
inline constexpr Message highscoreNotSaved{
    "highscoreNotSaved",
    "Your score could not be saved in the high-score table. Fendle! will keep it until you close the game."};

// Told when Exit on the board cannot write lastgame.inf.
inline constexpr Message gameNotSaved{
    "gameNotSaved", "This game could not be saved, so you will not be able to carry on with it later."};

// Told when a file the game cannot go on without is missing or damaged;
// "%1" says which and what is wrong with it, in one of the four messages
// below.
inline constexpr Message cannotGoOn{"cannotGoOn", "Fendle! cannot go on: %1."};
// "%1" a file.
inline constexpr Message fileMissing{"fileMissing", "%1 is missing"};
// "%1" a file that ends after %2 of the %3 values it must hold.
inline constexpr Message fileCutShort{"fileCutShort", "%1 ends after %2 of its %3 values"};
// "%1" a file whose value number %2 is no hexagon.
inline constexpr Message notAHexagon{"notAHexagon", "value %2 of %1 is not a hexagon from 0 to 100"};
// "%1" a language number the tables have no column for.
inline constexpr Message noSuchLanguage{"noSuchLanguage", "language %1 is outside the tables"};

// Accessible names of the windows; their visible captions stay as designed.
inline constexpr Message windowTitlefrm{"windowTitlefrm", "Fendle! \u2013 Start"};
inline constexpr Message windowStartplay2{"windowStartplay2", "Fendle! \u2013 Set up the game"};
inline constexpr Message windowStartautoplay2{"windowStartautoplay2", "Fendle! \u2013 Play against the computer"};
inline constexpr Message windowFen1{"windowFen1", "Fendle! \u2013 Game board"};
inline constexpr Message windowHighscores{"windowHighscores", "Fendle! \u2013 High scores"};
inline constexpr Message windowLanguages{"windowLanguages", "Fendle! \u2013 Choose a language"};
inline constexpr Message windowTeacherGuide{"windowTeacherGuide", "Fendle! \u2013 Teachers' Guide"};
inline constexpr Message windowRules{"windowRules", "Fendle! \u2013 The rules, page %1 of 5"};
inline constexpr Message windowGrey{"windowGrey", "Fendle!"};

// What a screen reader says of a hexagon: "%1" its number, "%2" the colour
// of its zone or of the player whose counter covers it.
inline constexpr Message hexFree{"hexFree", "%1, %2 zone, free"};
inline constexpr Message hexCounter{"hexCounter", "%1, %2's counter"};
// Who plays Red in a game against the computer, where a sentence below
// names the player.
inline constexpr Message computerName{"computerName", "The computer"};
// What a screen reader is told as the game goes: "%1" the player, then
// the four dice; the number, then the points of the move.
inline constexpr Message saidThrow{"saidThrow", "%1 threw %2, %3, %4 and %5"};
inline constexpr Message saidMove{"saidMove", "%1 takes %2: %3 points"};
inline constexpr Message saidFendle{"saidFendle", "%1 takes %2: Fendle! %3 points"};
inline constexpr Message saidDoubleFendle{"saidDoubleFendle", "%1 takes %2: double Fendle! %3 points"};
inline constexpr Message saidIllegal{"saidIllegal", "%1 chose %2: an illegal move. The turn is lost."};
inline constexpr Message saidOutOfTime{"saidOutOfTime", "%1 has run out of time"};
inline constexpr Message saidPathBonus{"saidPathBonus", "%1 completes the path from 1 to 100: 500 points"};
// "%1" each player's name and score, "Blue 120, Red 90".
inline constexpr Message saidScores{"saidScores", "Scores: %1"};
// A number typed on the board that cannot be claimed; "%1" the number.
inline constexpr Message refuseNotOnBoard{"refuseNotOnBoard", "%1 is not on the board"};
inline constexpr Message refuseCovered{"refuseCovered", "%1 is already covered"};
// What a screen reader says of the high-score name box: "%1" the player
// whose score it is, "%2" the score.
inline constexpr Message highscoreNameFor{"highscoreNameFor", "Type the name for %1's score of %2 points"};
// Show me how, on the board: the button, and the words round the numbers of
// an explanation. howCannot: "%1" the number claimed, "%2" to "%5" the dice.
// howBest: "%1" the best number, "%2" its points, "%3" how it is made.
// howRounded: "%1" the expression, "%2" its exact value, "%3" the number.
inline constexpr Message showHowButton{"showHowButton", "Show me how"};
inline constexpr Message howCannot{"howCannot", "%1 can't be made from %2, %3, %4 and %5."};
inline constexpr Message howBest{"howBest", "The best was %1, for %2 points: %3"};
inline constexpr Message howRounded{"howRounded", "%1 = %2, which the game rounds to %3"};
// Told once in a run when the record of a game cannot be added to games.csv.
inline constexpr Message gameNotRecorded{
    "gameNotRecorded", "The moves of this game could not be added to games.csv, the record of games for your teacher."};

}  // namespace msg

// Puts args[0] in place of every "%1" of `text`, args[1] of "%2", and so on.
std::string fillArguments(std::string_view text, std::span<const std::string> args);

// What a reader of a file could not do, to be told in the user's language:
// a message, and what fills its "%1", "%2" ….
struct Problem {
    Message message{};
    std::vector<std::string> args;
    // In the English built into the program, for logs and tests.
    std::string english() const { return fillArguments(message.english, args); }
};

// Every message the program uses, in the order of the file.
std::span<const Message> allMessages();

class MessageTable {
public:
    // Reads messages.csv. A missing file, or one that ends inside a line,
    // gives false; the lines read before stay. Keys the program does not know
    // are kept too.
    bool read(std::optional<std::string_view> bytes, std::string* error = nullptr);

    // The message in language 0 to 6; where that text is empty or the
    // language has none, the English of the file; where the file has no such
    // line, the English built into the program. "%1" becomes `arg`.
    std::string text(const Message& message, int languagenumber, std::string_view arg = {}) const;
    std::string text(const Problem& problem, int languagenumber) const;

    bool has(std::string_view key) const { return rows_.find(key) != rows_.end(); }
    // The seven texts of a key as the file holds them; nothing for a key it lacks.
    std::optional<std::array<std::string, 7>> row(std::string_view key) const;

private:
    std::string_view chosen(const Message& message, int languagenumber) const;
    std::map<std::string, std::array<std::string, 7>, std::less<>> rows_;
};

}  // namespace fendle
