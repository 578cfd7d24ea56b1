#include "saved/lastgame.h"

#include "text/file_io.h"
#include "text/listinput.h"

#include <cmath>

namespace fendle {

namespace {

constexpr int maxScoreBeforePath = 14460 + 75 * 100 + 25 * 200;

// A caption as the file keeps it: empty, or the number it shows. The board
// only ever writes digits into these captions; anything else is read by the
// list-input rule (a non-number is 0), and a value beyond 16 bits is held at
// the bound.
std::optional<i16> captionValue(const std::string& caption) {
    if (caption.empty()) return std::nullopt;
    const double v = roundHalfEven(numberValue(caption));
    if (v > 32767) return i16{32767};
    if (v < -32768) return i16{-32768};
    return static_cast<i16>(v);
}

std::string line(long value) { return std::to_string(value) + "\r\n"; }
std::string line(const std::optional<i16>& caption) { return caption ? line(*caption) : std::string("\r\n"); }

// One field as the file holds it: a 16-bit number, or an empty line.
struct Field {
    bool present = false;   // false when the data ended before this field
    bool fits = false;      // false when the number is too large for 16 bits
    bool empty = false;     // an empty line (or a field that is not a number)
    i16 value = 0;
};

Field readField(ListInput& in) {
    Field f;
    std::string text;
    if (!in.readString(text)) return f;
    f.present = true;
    double v = 0;
    if (!parseNumber(text, v)) {   // empty, or not a number: 0, and no error
        f.empty = text.empty();
        f.fits = true;
        return f;
    }
    v = roundHalfEven(v);
    f.fits = v >= -32768 && v <= 32767;
    if (f.fits) f.value = static_cast<i16>(v);
    return f;
}

}  // namespace

SavedGame makeSavedGame(const ModuleState& module, i16 turn, const BoardModel& model) {
    SavedGame g;
    for (int i = 1; i <= 100; ++i) g.boardowner[i] = module.boardowner[i];
    g.nplayers = module.nplayers;
    g.computerlevel = module.computerlevel;
    g.turn = turn;
    g.targetscore = captionValue(model.Label5[5].caption);
    for (int p = 1; p <= 4; ++p) {
        g.scores[p] = captionValue(model.Label6[p].caption);
        g.seconds[p] = captionValue(model.Label12[p - 1].caption);
    }
    g.timeallowed = module.timeallowed;
    g.soundon = module.soundon;
    g.greyback = module.greyback;
    return g;
}

std::string lastgameText(const SavedGame& g) {
    std::string text;
    text.reserve(1024);
    for (int i = 1; i <= 100; ++i) {
        text += line(i);
        text += line(g.boardowner[i]);
    }
    text += line(g.nplayers);
    text += line(g.computerlevel);
    text += line(g.turn);
    text += line(g.targetscore);
    for (int p = 1; p <= 4; ++p) text += line(g.scores[p]);
    text += line(g.timeallowed);
    for (int p = 1; p <= 4; ++p) text += line(g.seconds[p]);
    text += line(g.soundon);
    text += line(g.greyback);
    return text;
}

std::optional<SavedGame> readLastgame(std::optional<std::string_view> bytes) {
    if (!bytes) return std::nullopt;
    ListInput in(*bytes);
    // Every line must be there and fit 16 bits, as the variables it goes to.
    std::array<Field, lastgameLines + 1> f{};
    for (int k = 1; k <= lastgameLines; ++k) {
        f[k] = readField(in);
        if (!f[k].present || !f[k].fits) return std::nullopt;
    }

    SavedGame g;
    for (int i = 1; i <= 100; ++i) g.boardowner[i] = f[2 * i].value;
    g.nplayers = f[201].value;
    g.computerlevel = f[202].value;
    g.turn = f[203].value;
    const auto caption = [&](int k) { return f[k].empty ? std::nullopt : std::optional<i16>(f[k].value); };
    g.targetscore = caption(204);
    for (int p = 1; p <= 4; ++p) {
        g.scores[p] = caption(204 + p);
        g.seconds[p] = caption(209 + p);
    }
    g.timeallowed = f[209].value;
    g.soundon = f[214].value;
    g.greyback = f[215].value;

    // What a saved game always holds. A file that breaks any of these was not
    // written by a save (or was damaged after), and restoring it could give a
    // board the rules cannot play on: it is treated as unreadable.
    //  - line 2i - 1 holds i, so a line lost in the middle cannot shift the
    //    owners by one place unnoticed;
    //  - 1 to 4 players; a computer level of 0 to 3, and a computer only in a
    //    game of two;
    //  - every hexagon free or held by a player of this game;
    //  - a save is made only after the second move: turn is 1 or more (a
    //    negative turn would give a negative player on turn), and the board
    //    never lets it pass Fen1::turnLimit;
    //  - no clocks, or at least 5 seconds and at most the 4 digits of the
    //    time box; no clock below 0, and with no clocks nobody out of time;
    //  - no score below 0, nor above what one player can make on a board
    //    before the path: every reward (14460) and every bonus (at most
    //    75 x 100 + 25 x 200) together;
    //  - sound and backdrop 0 or 1.
    for (int i = 1; i <= 100; ++i) {
        if (f[2 * i - 1].value != i || f[2 * i - 1].empty) return std::nullopt;
        if (g.boardowner[i] < 0 || g.boardowner[i] > g.nplayers) return std::nullopt;
    }
    if (g.nplayers < 1 || g.nplayers > 4) return std::nullopt;
    if (g.computerlevel < 0 || g.computerlevel > 3) return std::nullopt;
    if (g.computerlevel != 0 && g.nplayers != 2) return std::nullopt;
    if (g.turn < 1 || g.turn > Fen1::turnLimit) return std::nullopt;
    if (g.timeallowed != 0 && (g.timeallowed < 5 || g.timeallowed > 9999)) return std::nullopt;
    for (int p = 1; p <= 4; ++p) {
        const i16 seconds = g.seconds[p].value_or(0);
        if (seconds < 0) return std::nullopt;
        if (g.timeallowed == 0 && p <= g.nplayers && seconds < 1) return std::nullopt;
        if (g.scores[p].value_or(0) < 0 || g.scores[p].value_or(0) > maxScoreBeforePath) return std::nullopt;
    }
    if ((g.soundon != 0 && g.soundon != 1) || (g.greyback != 0 && g.greyback != 1)) return std::nullopt;
    return g;
}

void applySavedGame(const SavedGame& g, ModuleState& module) {
    for (int i = 1; i <= 100; ++i) module.boardowner[i] = g.boardowner[i];
    module.nplayers = g.nplayers;
    module.computerlevel = g.computerlevel;
    module.savedturn = g.turn;
    module.targetscore = g.targetscore.value_or(0);
    for (int p = 1; p <= 4; ++p) {
        module.savedscores[p] = g.scores[p].value_or(0);
        module.savedseconds[p] = g.seconds[p].value_or(0);
    }
    module.timeallowed = g.timeallowed;
    module.soundon = g.soundon;
    module.greyback = g.greyback;
}

bool restoreLastgame(std::optional<std::string_view> bytes, ModuleState& module) {
    const auto game = readLastgame(bytes);
    if (!game) return false;
    applySavedGame(*game, module);
    return true;
}

bool writeLastgame(const std::string& path, const SavedGame& game, std::string* error) {
    return writeFileAtomic(path, lastgameText(game), error);
}

}  // namespace fendle
