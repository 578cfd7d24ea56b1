// The rule pages: five pages that write out the rules of the game, in one
// set per language (Fendlerules, Fendlerules2, Fendlerules2b, Fendlerules3,
// Fendlerules4, with the set's suffix: "Fendlerules2bfr"). Every set has the
// same controls and the same handlers; a set differs only in where a few of
// them stand, in a few font sizes, in the zone pieces of page 3 and in the
// start picture of page 1 (screens/rulepages_layout.h). The rule texts then
// flow down the page, each label as tall as its translation needs.
//
// Page 2 holds a live demonstration: Throw Dice rolls four dice as the board
// does, with nothing scored.
#pragma once

#include <array>

#include "engine/game_state.h"
#include "screens/kit/registry.h"

namespace fendle {

class RulePage final : public Form {
    Q_OBJECT
public:
    RulePage(Module1& module, int page, int set);
    ~RulePage() override;

    int page() const { return page_; }
    int set() const { return set_; }

    void Form_Load() override;
    // The title bar's close button does what Exit does: the chart page 2
    // opened goes with the page.
    void closeRequested() override { Label3_Click(0); }

    // Label3: 0 Exit; 1 the next page (the previous one on page 5); 2 the
    // previous page, on pages 2 to 4.
    void Label3_Click(int Index);
    // Page 2: Throw Dice, and the Cheat Chart.
    void Label2_Click();
    void Label14_Click();
    void Timer5_Timer();   // stops the next die on its thrown value
    void Timer8_Timer();   // spins the dice not yet stopped

    // The demonstration's dice, elements 0 to 3, and how many have stopped.
    std::array<i16, 5> dice{};
    i16 dicerevealed = 0;

    // How many pixels the plain rule text of this page had to lose so that
    // every text fits; 0 when it fits at its size.
    int textShrink() const { return shrink_; }

protected:
    void keyPressEvent(QKeyEvent* e) override;

private:
    void placeForSet();
    // Points of a flowing text of this page in this set, before any shrink.
    double textPoints(int index) const;
    void fitZoneTable();
    void flowText();
    void showDice();
    void open(int page);

    int page_;
    int set_;
    int shrink_ = 0;
    std::array<ControlState, 4> faces_{};   // the demonstration's dice as they show
};

// Defines the 35 rule pages in the registry by their form names.
void defineRulePages(ScreenRegistry& screens);

}  // namespace fendle
