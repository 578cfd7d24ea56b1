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

std::string turnLine(int languagenumber, std::string_view colourName, std::string_view playword) {
    const bool colourFirst = languagenumber == 0 || languagenumber == 2 || languagenumber == 5 || languagenumber == 6;
    const std::string_view first = colourFirst ? colourName : playword;
    const std::string_view second = colourFirst ? playword : colourName;
    return std::string(first) + " " + std::string(second);
}

}  // namespace fendle
