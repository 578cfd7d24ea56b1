// Titlefrm, the title screen: the first window of the program. Its load step
// readies what the rest of the game expects (the language, the text tables,
// the neighbour table); from here the player starts a new game, takes up the
// saved one, changes the language, reads the teachers' guide or leaves.
#pragma once

#include <span>

#include "screens/kit/form.h"

namespace fendle {

class Titlefrm final : public Form {
    Q_OBJECT
public:
    static constexpr const char* formName = "Titlefrm";
    static constexpr double clientWidth = 5580, clientHeight = 6570;

    explicit Titlefrm(Module1& module);
    void Form_Load() override;
    // The title bar's close button ends the program, as Exit does.
    void closeRequested() override { Label7_Click(); }

    void Label5_Click();   // OK, and a click on the picture
    void Label6_Click();   // Restart Previous Game
    void Label7_Click();   // Exit
    void Label8_Click();   // Change Language
    void Label9_Click();   // Teachers' Guide

    // The controls as drawn: Frame1 and the rows inside it.
    static std::span<const kit::Row> rows();

private:
    // loadtexttables on the files of the game folder. False when a file is
    // missing or short; the program has then been told to stop.
    bool loadtexttables();
};

}  // namespace fendle
