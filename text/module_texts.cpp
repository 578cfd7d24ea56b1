#include "text/module_texts.h"

namespace fendle {

ModuleTexts englishModuleTexts() {
    return ModuleTexts{
        .changelanguagetext = "Change Language",
        .noticetext = "Fendle! \u00A9 2026 The Fendle! Team. All rights reserved.",
        .oktext = "OK",
        .exittext = "Exit",
        .bluename = "Blue",
        .redname = "Red",
        .greenname = "Green",
        .yellowname = "Yellow",
        .bluewinstext = "Blue wins",
        .redwinstext = "Red wins",
        .greenwinstext = "Green wins",
        .yellowwinstext = "Yellow wins",
        .drawtext = "It's a draw",
        .doublefendletext = "DOUBLE",
        .gameovertext = "Game Over",
        .solotimeouttext = "Time is up",
        .pointstext = "points",
    };
}

}  // namespace fendle
