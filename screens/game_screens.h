// The screens round the board: defining them all in the registry, the two
// hooks through which the board saves a game on Exit and looks at the high
// scores at its end, and the few helpers the small screens share.
#pragma once

#include <QString>

#include <functional>
#include <string>
#include <string_view>

#include "screens/form.h"
#include "text/binding.h"

namespace fendle {

class Module1;
class Fen1Form;

// Defines Titlefrm, Startplay2, Startautoplay2, highscores and fen1 in the
// module's registry, and sets the board's hooks onSavegame (writes
// lastgame.inf) and onCheckhighscore (the high-score check).
void defineGameScreens(Module1& module);

// The Exit save: lastgame.inf from the loaded board, written whole or not at
// all. A write that fails leaves the old file and says nothing.
void savegame(Module1& module);

// The board window if it is loaded; null otherwise. Never creates it.
Fen1Form* loadedBoard(Module1& module);

// The changes of place and size the current language brings to a screen,
// applied before its textshow.
void applyLayoutByLanguage(Form& form, binding::Screen screen);
// The current language's words into a screen's controls. Without tables
// (nothing read yet) the design's English stays.
void textshow(Form& form, binding::Screen screen);

// How a screen tells the user of a problem it cannot hide: a message box,
// or, in tests, whatever is set here (an empty sink restores the box).
using MessageSink = std::function<void(const QString& text)>;
void setMessageSink(MessageSink sink);
void tellUser(const QString& text);

// A file the program cannot start or go on without is missing or damaged:
// says which, and ends the program.
void stopForMissingFile(Module1& module, const std::string& what);

}  // namespace fendle
