// Startautoplay2, the second set-up screen for one player: play alone, or
// against the computer at one of three levels.
#pragma once

#include <span>

#include "screens/kit/form.h"

namespace fendle {

class Startautoplay2 final : public Form {
    Q_OBJECT
public:
    static constexpr const char* formName = "Startautoplay2";
    static constexpr double clientWidth = 5580, clientHeight = 6570;

    explicit Startautoplay2(Module1& module);
    void Form_Load() override;
    // The title bar's close button goes back, as Exit does.
    void closeRequested() override { Label3_Click(0); }

    void Option1_Click(int Index);   // a level, Index + 1
    void Label1_Click();             // Play solo
    void Label7_Click();             // Play against the computer
    void Label3_Click(int Index);    // Exit, back to Startplay2

    static std::span<const kit::Row> rows();
};

}  // namespace fendle
