// The screens round the board: defining them all in the registry, the two
// hooks through which the board saves a game on Exit and looks at the high
// scores at its end, and the few helpers the small screens share.
#pragma once

#include <QString>

#include <functional>
#include <string>
#include <string_view>

#include "screens/kit/form.h"
#include "screens/language.h"
#include "text/binding.h"

namespace fendle {

class Module1;
class Fen1Form;

// What the small screens share: their blue and the ownership notice at their foot.
inline constexpr Rgb setupBlue{0, 0, 192};
inline constexpr const char* notice = "Fendle! \u00A9 2026 The Fendle! Team. All rights reserved.";

// Defines Titlefrm, Startplay2, Startautoplay2, highscores, fen1 and the
// rule pages in the module's registry, and sets the board's hooks onSavegame (writes
// lastgame.inf) and onCheckhighscore (the high-score check).
void defineGameScreens(Module1& module);

// The Exit save: lastgame.inf from the loaded board, written whole or not at
// all. A write that fails leaves the old file, and the user is told, in
// plain words, as soon as Exit has finished.
void savegame(Module1& module);

// The board window if it is loaded; null otherwise. Never creates it.
Fen1Form* loadedBoard(Module1& module);


// How a screen tells the user of a problem it cannot hide: a message box,
// or, in tests, whatever is set here (an empty sink restores the box).
using MessageSink = std::function<void(const QString& text)>;
void setMessageSink(MessageSink sink);
void tellUser(const QString& text);

// A file the program cannot start or go on without is missing or damaged:
// says which, and ends the program.
void stopForMissingFile(Module1& module, const Problem& what);

}  // namespace fendle
