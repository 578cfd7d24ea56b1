#include "text/module_texts.h"

namespace fendle {

ModuleTexts englishModuleTexts() {
    ModuleTexts t;
    t.changelanguagetext = "Change Language";
    t.noticetext = "Fendle! \xC2\xA9 2026 The Fendle! Team. All rights reserved.";
    t.oktext = "OK";
    t.exittext = "Exit";
    t.bluename = "Blue";
    t.redname = "Red";
    t.greenname = "Green";
    t.yellowname = "Yellow";
    t.bluewinstext = "Blue wins";
    t.redwinstext = "Red wins";
    t.greenwinstext = "Green wins";
    t.yellowwinstext = "Yellow wins";
    t.drawtext = "It's a draw";
    t.doublefendletext = "DOUBLE";
    t.gameovertext = "Game Over";
    t.solotimeouttext = "Time is up";
    t.pointstext = "points";
    return t;
}

}  // namespace fendle
