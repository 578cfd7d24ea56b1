// The rule pages as they were drawn: the rows of the five plain pages, and
// how each language's set of pages differs from the plain one beside its
// texts (page buttons, fonts, the columns of page 3's table of zones, the
// start picture of page 1).
#include "screens/rulepages_layout.h"

namespace fendle::rules {

namespace {

using kit::Align;
using kit::Face;
using kit::Kind;
using kit::Row;
namespace c = colour;

// ---------------------------------------------------------------- the plain pages

// A rule text: yellow, Arial, on the page's blue.
constexpr Row text(int index, double left, double top, double width, double height, bool bold, const char* caption,
                   double size = 12) {
    return Row{.name = "Label1", .index = index, .left = left, .top = top, .width = width, .height = height,
               .caption = caption, .size = size, .bold = bold, .fore = c::yellow, .transparent = true};
}

constexpr Row pageButton(int index, double left, double width, const char* caption) {
    return Row{.name = "Label3", .index = index, .kind = Kind::Button, .left = left, .top = index == 0 ? 60.0 : 8520.0,
               .width = width, .height = 375, .caption = caption, .size = 12.75, .bold = true, .fore = c::yellow,
               .back = c::black, .align = Align::Centre, .border = true};
}

constexpr Row picture(const char* name, double left, double top, double width, double height, const char* file) {
    return Row{.name = name, .kind = Kind::Image, .left = left, .top = top, .width = width, .height = height,
               .picture = file, .stretch = true};
}

constexpr const char* pageLines[rulePages] = {"Page 1 of 5", "Page 2 of 5", "Page 3 of 5", "Page 4 of 5",
                                              "Page 5 of 5"};

// What every page has: the page line, the heading and Exit.
std::vector<Row> frameRows(int page) {
    return {
        text(70, 0, 0, 1065, 240, true, pageLines[page - 1], 9.75),
        Row{.name = "Label1", .index = 0, .left = 0, .top = 120, .width = 12000, .height = 360,
            .caption = "The Rules of Fendle!", .size = 15.75, .bold = true, .fore = c::yellow, .transparent = true,
            .align = Align::Centre},
        pageButton(0, 11160, 735, "Exit"),
    };
}

const Row page1Rows[] = {
    text(1, 120, 600, 2430, 285, true, "Summary of the rules"),
    text(2, 120, 960, 11535, 645, false, "Players take turns to throw four dice and combine their scores to generate a whole number between 1 and 100. For example: (6 + 4) x (3 + 1) = 40."),
    text(3, 120, 1560, 11415, 1005, false, "Having chosen a number, whose hexagon is not already covered by a counter, the player clicks the number on the Fendle! playing board with the mouse. The number is then covered by a counter. The player scores points depending on which number they have chosen. The highest numbers score the most points."),
    text(4, 120, 2520, 11655, 765, false, "Players can also score bonus points by making a Fendle! move. This is when a player clicks a number that will create a triangle of three adjacent counters on the board."),
    text(5, 120, 3180, 11655, 645, false, "Double bonus points are scored by making a Fendle! move on a prime number \u2013 this is a double Fendle! move."),
    text(6, 120, 3600, 11175, 645, false, "The game ends when there is a continuous path of counters from hexagon 1 to hexagon 100. The winner is the player with the highest score at the end of the game."),
    text(7, 120, 4440, 2355, 285, true, "Getting ready to play"),
    text(8, 120, 4800, 11655, 645, false, "Before the game begins, the players can set the parameters of the game."),
    text(9, 120, 5220, 8655, 1245, false, "Fendle! can be played against the clock. To play against the clock check the 'Timers On' checkbox. The default settings allow each player a total of 600 seconds to complete all their moves. By altering the value in the 'Set Total Time Allowed' box, this can be changed."),
    text(10, 120, 6480, 8655, 1485, false, "Fendle! can be played by one to four players. To begin the game click the button corresponding to the number of players. Players then take their turn in the following order: Blue, Red, Green, Yellow. Before proceeding with the game each player should choose their colour. If a series of games are played, players should change colours before each game."),
    text(11, 120, 7980, 8655, 1005, false, "If there is just one player, select button '1'. The player then has the option to play on their own, or to play against the computer. The computer always plays as the second player - Red. The player can choose the level of play for the computer."),
    picture("Image1", 8940, 4560, 2835, 3525, ""),   // the start picture of the set
};

// A die of the demonstration: a blue square with a black digit, outlined
// to read on the blue, disabled and empty until the first throw.
constexpr Row die(int index, double left, double top) {
    return Row{.name = "Label4", .index = index, .left = left, .top = top, .width = 495, .height = 495,
               .size = 20.25, .bold = true, .fore = c::black, .back = pageBlue, .outline = true, .align = Align::Centre,
               .enabled = false, .border = true};
}

const Row page2Rows[] = {
    text(1, 120, 600, 2400, 285, true, "Generating a number"),
    text(2, 120, 960, 11655, 885, false, "The player clicks the button labelled 'Throw Dice'. Four numbers are then randomly generated, corresponding to a dice throw. The player must generate a whole number between 1 and 100 using all four numbers once. The player may multiply, divide, add or subtract the numbers in any combination."),
    text(3, 120, 2040, 11655, 525, false, "Click the button on the right to try out throwing the dice."),
    text(4, 120, 4200, 10215, 645, false, "Note: A player may not create a number by placing two numerals beside each other.                     For example, having thrown 6, 4, 3, and 1, a player may not put 6 and 4 together to make 64 or 46."),
    text(5, 120, 4800, 11655, 405, false, "Players may use a pencil and paper to help with their arithmetic, but should not use a calculator."),
    text(6, 120, 5280, 11655, 645, true, "Some examples of numbers that can be generated from one throw:"),
    text(7, 120, 6240, 11655, 645, true, "Cheat Chart"),
    text(8, 120, 6600, 11295, 885, false, "Help with arithmetic can be obtained by clicking the button shown below which will open the Cheat Chart window. The Cheat Chart is a multiplication table. The number shown in each square is produced by multiplying the number at the start of its row by the number at the top of its column."),
    text(17, 120, 5640, 11175, 645, false, "6 + 4 + 3 + 1 = 14;   6 x 4 x 3 x 1 = 72;   (6 x 4) x (3 + 1) = 96;   (6/3) x (4 \u2013 1) = 6."),
    Row{.name = "Label2", .kind = Kind::Button, .left = 6600, .top = 2040, .width = 2055, .height = 495,
        .caption = "Throw Dice", .font = Face::Tahoma, .size = 15.75, .bold = true, .fore = c::green, .back = c::black,
        .align = Align::Centre, .border = true},
    die(0, 7080, 2640),
    die(1, 7680, 2640),
    die(2, 7080, 3240),
    die(3, 7680, 3240),
    Row{.name = "Label14", .kind = Kind::Button, .left = 5280, .top = 7680, .width = 1575, .height = 375,
        .caption = "Cheat Chart", .font = Face::Tahoma, .size = 11.25, .bold = true, .fore = c::green,
        .back = c::black, .align = Align::Centre, .border = true},
};

constexpr Row zoneCell(int index, double left, double top, double width, const char* caption) {
    return text(index, left, top, width, 270, false, caption);
}

// A reward of the table: it stands on the board picture's margin, outlined
// so that it reads on the picture's light colours as on the page's blue.
constexpr Row rewardCell(int index, double top, double width, const char* caption) {
    Row r = zoneCell(index, 5820, top, width, caption);
    r.outline = true;
    return r;
}

const Row page3Rows[] = {
    // Behind the table of zones, whose rewards stand on its left margin.
    picture("Image1", 5760, 4440, 5985, 3720, "images\\board.jpg"),
    text(1, 120, 720, 3945, 285, true, "Selecting the number on the board"),
    text(2, 120, 1080, 11655, 645, false, "Having generated a number, whose hexagon is not already covered by a counter, the player clicks the corresponding number on the board. If the number has been calculated correctly it will be covered with a counter."),
    text(3, 120, 1680, 11655, 645, false, "If the player has made a mistake and selected a number that cannot be generated from the dice throw, the player scores no points and the turn passes to the next player."),
    text(4, 120, 2520, 1665, 285, true, "Gaining points"),
    text(5, 120, 2880, 11655, 1245, false, "If the number has been calculated correctly, the player scores reward points based on the colour zone of the number that has been selected. The amount of points for each colour zone is shown on the coloured balls to the left of the playing board, and in the table below."),
    // The table of zones: headings, colour names, ranges, rewards.
    text(6, 240, 4080, 2655, 405, true, "Number generated"),
    text(7, 3120, 4080, 1695, 405, true, "Colour Zone"),
    text(8, 5280, 4080, 1455, 405, true, "Reward"),
    zoneCell(9, 3480, 4440, 780, "Orange"),
    zoneCell(10, 3480, 4680, 1035, "Turquoise"),
    zoneCell(11, 3480, 4920, 660, "Yellow"),
    zoneCell(12, 3480, 5160, 465, "Blue"),
    zoneCell(13, 3480, 5400, 645, "Green"),
    zoneCell(14, 3480, 5640, 675, "Purple"),
    zoneCell(15, 3480, 5880, 435, "Red"),
    zoneCell(16, 840, 4440, 780, "1  to 15"),
    zoneCell(17, 840, 4680, 855, "16 to 28"),
    zoneCell(18, 840, 4920, 855, "29 to 45"),
    zoneCell(19, 840, 5160, 855, "46 to 64"),
    zoneCell(20, 840, 5400, 855, "65 to 79"),
    zoneCell(21, 840, 5640, 855, "80 to 90"),
    zoneCell(22, 840, 5880, 990, "91 to 100"),
    rewardCell(23, 5640, 405, "300"),
    rewardCell(24, 5400, 405, "200"),
    rewardCell(25, 5160, 405, "100"),
    rewardCell(26, 4920, 270, "50"),
    rewardCell(27, 4680, 270, "20"),
    rewardCell(28, 4440, 270, "10"),
    rewardCell(30, 5880, 405, "500"),
};

const Row page4Rows[] = {
    text(1, 120, 600, 2175, 285, true, "The Fendle! bonus"),
    text(2, 120, 960, 8535, 885, false, "As soon as any two counters have been placed next to each other on the board, there is an opportunity for a player to make a Fendle! move. This is done by clicking a number on the board that completes a triangle of counters."),
    text(3, 120, 1920, 8535, 645, false, "The player that completes any triangle with a Fendle! move gains a bonus of 100. This is in addition to the amount rewarded for that colour zone."),
    text(4, 120, 2640, 8535, 885, false, "For example, if Blue generates the number 33, completing a triangle of counters with 25 and 32, then Blue gains a yellow-zone reward of 50, plus a Fendle! bonus of 100, making a total of 150."),
    text(5, 120, 3600, 8535, 885, false, "A player will only receive one Fendle! bonus in any turn, even if more than one triangle of counters is formed."),
    text(6, 120, 4560, 3030, 285, true, "The double Fendle! bonus"),
    text(7, 120, 4920, 8295, 645, false, "The prime numbers on the board are shown in black, their hexagons have grey borders. (A prime number is a number that has no factors other than itself and 1.)"),
    text(8, 120, 5640, 8055, 1005, false, "If a player clicks a prime number to complete a triangle of counters, the player scores a double Fendle! bonus of 200. This is in addition to the amount rewarded for that colour zone."),
    text(9, 120, 6600, 8055, 885, false, "For example, if Blue generates the prime number 17, completing a triangle of counters with 12 and 18, then Blue scores a turquoise-zone reward of 20, plus a double Fendle! bonus of 200, making a total of 220."),
    text(10, 120, 7680, 8055, 765, false, "A player will only receive one double Fendle! bonus in any turn, even if more than one triangle of counters is formed."),
    picture("Image1", 9240, 960, 2490, 2820, "images\\fendle.jpg"),
    picture("Image2", 8460, 5040, 3255, 2850, "images\\doublefendle.jpg"),
};

// A white stretch of the sample path over the end picture.
constexpr Row pathLine(const char* name, double x1, double y1, double x2, double y2) {
    return Row{.name = name, .kind = Kind::Line, .fore = c::white, .lineWidth = 2, .x1 = x1, .y1 = y1, .x2 = x2, .y2 = y2};
}

const Row page5Rows[] = {
    text(1, 120, 540, 1665, 285, true, "Further moves"),
    text(2, 120, 870, 11655, 405, false, "Play continues with each player taking their turn in sequence."),
    text(3, 120, 1200, 11175, 645, false, "The numbers on the Fendle! board can be covered in any order. Each number can, however, only be covered once during a game."),
    text(4, 120, 1890, 2220, 285, true, "Playing with a timer"),
    text(5, 120, 2220, 11775, 1245, false, "If the 'Timer On' option is selected before starting the game, each player will have a timer that counts down whenever it is their turn to play. By default the total time allowed is 600 seconds, but this can be changed before starting each game. If a player runs out of time, they will not have any further turns during the remainder of the game. If all the players run out of time, the game ends and the player with the highest score is the winner."),
    text(6, 120, 3480, 960, 285, true, "The End"),
    text(7, 120, 3810, 6855, 1485, false, "The game is over when there is a continuous path of counters connecting hexagon 1 to hexagon 100. The player who plays the final counter to complete this path gains a bonus score of 500. The player with the highest score at the end of the game is the winner."),
    text(8, 120, 5100, 1335, 285, true, "Playing tips"),
    text(9, 120, 5430, 6495, 885, false, "Throwing low numbers on the dice does not necessarily mean that your reward will be small. Look for Fendle! and double Fendle! opportunities to raise your reward."),
    text(10, 120, 6270, 5775, 1245, false, "Creating a number in the centre of the board may, for example, yield a 100 reward (in the blue zone) but you may be able to Fendle! or double Fendle! on a smaller number to gain a higher reward."),
    // The three lines at the foot: who devised the game, its rights, its mark.
    text(11, 120, 7560, 11175, 405, false, "Fendle! was devised by the Fendle! Team."),
    text(12, 120, 7860, 11175, 405, false, "All rights reserved. Fendle! was formerly known as Numbrel."),
    text(13, 120, 8160, 11655, 645, false, "Fendle! is a trademark of the Fendle! Team. No patent is claimed for the game."),
    picture("Image1", 5940, 3600, 5955, 3720, "images\\end.jpg"),
    pathLine("Line1", 6150, 7050, 7170, 5280),
    pathLine("Line2", 7170, 5280, 7995, 5280),
    pathLine("Line3", 7995, 5280, 8610, 4200),
    pathLine("Line4", 8610, 4200, 9810, 4200),
    pathLine("Line7", 9810, 4200, 10050, 4560),
    pathLine("Line6", 10050, 4560, 11250, 4560),
    pathLine("Line5", 11250, 4560, 11670, 3840),
};

}  // namespace

// ---------------------------------------------------------------- the sets

const std::array<SetLayout, ruleSets> setLayouts = {{
    // plain
    {{11160, 735}, {10080, 1815}, {7680, 2295}, {5280, 1575}, 7680, {6600, 2055}, 2040, {7080, 7680}, {2640, 3240},
     12, 12, 12, 12, 4440, 840, 3480, 5820, {7680, 2295}, "images\\start.jpg"},
    // fr
    {{10680, 1215}, {9360, 2535}, {6720, 2535}, {5040, 2175}, 7920, {7680, 2535}, 2160, {8400, 9000}, {2760, 3360},
     12, 12, 12, 9, 4440, 840, 3480, 5820, {6720, 2535}, "images\\startfr.jpg"},
    // ge
    {{10080, 1815}, {9240, 2655}, {6480, 2655}, {4440, 2895}, 7920, {7800, 2295}, 2160, {8400, 9000}, {2760, 3360},
     11.25, 11.25, 11.25, 9, 5160, 720, 2760, 4980, {9240, 2655}, "images\\startge.jpg"},
    // sp
    {{10080, 1815}, {9240, 2655}, {6480, 2655}, {4440, 2895}, 7920, {7440, 3015}, 2160, {8400, 9000}, {2760, 3360},
     11.25, 11.25, 11.25, 9, 5040, 840, 3120, 5580, {9240, 2655}, "images\\startsp.jpg"},
    // it
    {{10080, 1815}, {9240, 2655}, {6480, 2655}, {4560, 2655}, 7920, {7800, 2295}, 2160, {8400, 9000}, {2760, 3360},
     11.25, 12, 11.25, 9, 4920, 720, 3120, 5580, {9240, 2655}, "images\\startit.jpg"},
    // du
    {{10680, 1215}, {9360, 2535}, {6720, 2535}, {5040, 2175}, 7920, {7680, 2535}, 2040, {8400, 9000}, {2640, 3240},
     12, 12, 12, 9, 5040, 720, 3120, 5460, {6720, 2535}, "images\\startdu.jpg"},
    // we
    {{10080, 1815}, {9000, 2895}, {6000, 2895}, {4680, 2415}, 7920, {7440, 3015}, 2160, {8400, 9000}, {2760, 3360},
     11.25, 11.25, 11.25, 9, 4800, 960, 3240, 5460, {9000, 2895}, "images\\startwe.jpg"},
}};


std::vector<kit::Row> plainRows(int page) {
    std::vector<Row> rows = frameRows(page);
    std::span<const Row> own;
    switch (page) {
    case 1: own = page1Rows; break;
    case 2: own = page2Rows; break;
    case 3: own = page3Rows; break;
    case 4: own = page4Rows; break;
    default: own = page5Rows; break;
    }
    rows.insert(rows.end(), own.begin(), own.end());
    if (page < rulePages) rows.push_back(pageButton(nextButton, 10080, 1815, ">> Next Page"));
    else rows.push_back(pageButton(nextButton, 7680, 2295, "<< Previous Page"));
    if (page > 1 && page < rulePages) rows.push_back(pageButton(previousButton, 7680, 2295, "<< Previous Page"));
    return rows;
}

std::vector<int> flowingTexts(int page) {
    switch (page) {
    case 1: return {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    case 2: return {1, 2, 3, 4, 5, 6, 17, 7, 8};
    case 3: return {1, 2, 3, 4, 5};
    case 4: return {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    default: return {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13};
    }
}

}  // namespace fendle::rules
