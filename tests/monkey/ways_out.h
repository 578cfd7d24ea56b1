// The ways out of each screen: the controls that lead away from it. A shown
// screen must always offer one of them, visible, enabled and where a click
// reaches it; or another screen is shown that is the way on; or, for a
// screen with no such control, its title bar's close is the way out.
#pragma once

#include <string_view>
#include <vector>

namespace fendle::monkey {

struct Way {
    const char* name = "";
    int index = -1;
};

struct ScreenWays {
    std::string_view screen{};     // a form name; "Fendlerules" stands for every rule page
    std::vector<Way> controls{};   // any one of these leads away
    std::string_view orShown{};    // or this screen, shown, is the way on
    bool closeOnly = false;        // no control leads away: the title bar's close does
};

inline const std::vector<ScreenWays>& screenWays() {
    static const std::vector<ScreenWays> ways = {
        // OK (and the picture), Change Language, Exit.
        {.screen = "Titlefrm", .controls = {{"Label5"}, {"Picture1"}, {"Label8"}, {"Label7"}}},
        // A number of players, Exit.
        {.screen = "Startplay2", .controls = {{"Label1", 0}, {"Label1", 1}, {"Label1", 2}, {"Label1", 3}, {"Label3", 0}}},
        // Play solo, Play against the computer, Exit back to the set-up.
        {.screen = "Startautoplay2", .controls = {{"Label1"}, {"Label7"}, {"Label3", 0}}},
        {.screen = "languages", .controls = {{"Command1"}}},
        {.screen = "highscores", .controls = {{"Label3", 0}}},
        {.screen = "TeacherGuide", .controls = {{"Label3", 0}}},
        {.screen = "Cheatchart", .closeOnly = true},
        // Exit and New Game; while the high-score screen waits over a game
        // that has ended, its Continue is the way on.
        {.screen = "fen1", .controls = {{"Label3", 0}, {"Label3", 1}}, .orShown = "highscores"},
        // Exit, the next page, the previous page.
        {.screen = "Fendlerules", .controls = {{"Label3", 0}, {"Label3", 1}, {"Label3", 2}}},
    };
    return ways;
}

inline const ScreenWays* waysOutOf(std::string_view screen) {
    for (const ScreenWays& w : screenWays()) {
        if (w.screen == screen) return &w;
        if (w.screen == "Fendlerules" && screen.starts_with("Fendlerules")) return &w;
    }
    return nullptr;
}

}  // namespace fendle::monkey
