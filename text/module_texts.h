// The module text variables: the current language's most used texts,
// copied out of the tables by settexts so that the screens and the game need
// not index the tables themselves.
#pragma once

#include <string>
#include <string_view>

namespace fendle {

struct ModuleTexts {
    std::string changelanguagetext;   // T2
    std::string noticetext;           // T3
    std::string oktext;               // T4
    std::string exittext;             // T5
    std::string bluename;             // R37
    std::string redname;              // R40
    std::string greenname;            // R38
    std::string yellowname;           // R36
    std::string bluewinstext;         // T31
    std::string redwinstext;          // T32
    std::string greenwinstext;        // T33
    std::string yellowwinstext;       // T34
    std::string drawtext;             // T35
    std::string doublefendletext;     // T36
    std::string gameovertext;         // T38
    std::string solotimeouttext;      // T39
    std::string pointstext;           // T40
};

// The English texts, for a game run without the tables (tests, tools).
ModuleTexts englishModuleTexts();

// The board's invitation to play: the colour name and the play word joined
// by a blank, the colour first in languages 0, 2, 5 and 6 ("Blue to Play"),
// the play word first in all others.
std::string turnLine(int languagenumber, std::string_view colourName, std::string_view playword);

}  // namespace fendle
