// highscores, the high-score screen: the ten rows of the table in two
// sections, opened from the set-up screen to look, or by checkhighscore at
// the end of a game with a row waiting for the player's name. It stands in
// front of the other windows, and while it is open the board's Exit and New
// Game are disabled, so that the game cannot be left under it.
#pragma once

#include <span>

#include "screens/kit/form.h"

namespace fendle {

class Highscores final : public Form {
    Q_OBJECT
public:
    static constexpr const char* formName = "highscores";
    static constexpr double clientWidth = 5580, clientHeight = 6570;
    static constexpr int rowsShown = 10;
    // The name box stands this far above the name label of its row, in twips.
    static constexpr double nameBoxRaise = 60;

    explicit Highscores(Module1& module);
    void Form_Load() override;
    // The title bar's close button is Continue.
    void closeRequested() override { Label3_Click(0); }

    // Continue: writes the table when a name was awaited, then leaves.
    void Label3_Click(int Index);

    static std::span<const kit::Row> rows();
};

// At the end of a game, with the final scores in the board's score boxes:
// reads the table, ranks the game's score and, when it enters, shows the
// screen with the name box over its row.
void checkhighscore(Module1& module);

}  // namespace fendle
