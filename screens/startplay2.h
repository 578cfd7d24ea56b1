// Startplay2, the first set-up screen: sound, clocks, the backdrop, the
// marks on the counters and the number of players. A click on a number of
// players writes the settings into the module variables and builds the
// board window from them.
#pragma once

#include <span>
#include <string_view>

#include "engine/game_state.h"
#include "screens/kit/form.h"

namespace fendle {

// The seconds a player is allowed, from the text of the time box: the
// number the text starts with ("12.5", "-7", "1-2" -> 1), rounded to the
// nearest whole number with a half going to the even one, and never less
// than 5. A text that starts with no number counts as 0, so gives 5.
i16 timeAllowedFrom(std::string_view text);

// The keys the time box takes: minus, full stop, digits and backspace.
bool timeBoxTakes(int keyAscii);

class Startplay2 final : public Form {
    Q_OBJECT
public:
    static constexpr const char* formName = "Startplay2";
    static constexpr double clientWidth = 5580, clientHeight = 6570;
    // Hide Desktop is offered only on a screen wider than this, in twips.
    static constexpr double hideDesktopMinWidth = 12000;

    explicit Startplay2(Module1& module);
    void Form_Load() override;
    // The title bar's close button ends the program, as Exit does.
    void closeRequested() override { Label3_Click(exitButton); }

    // Label3: 0 Exit; 2 and 3 the time box's caption and unit, which do nothing.
    static constexpr int exitButton = 0;

    void Check1_Click();       // Play Sound
    void Check2_Click();       // Timers On
    void Check3_Click();       // Hide Desktop
    void Check4_Click();       // marks on the counters
    void Label1_Click(int Index);   // a number of players, Index + 1
    void Label3_Click(int Index);
    void Label6_Click();       // The Rules
    void Label8_Click();       // High Scores

    static std::span<const kit::Row> rows();
};

// countermarks: what countermarks.txt says, or the choice it could not keep.
void readcountermarks(Module1& module);

}  // namespace fendle
