// A screen in the current language: the changes of place and size the
// language brings (applied before textshow), and its words.
#pragma once

#include "screens/kit/form.h"
#include "text/binding.h"

namespace fendle {

void applyLayoutByLanguage(Form& form, binding::Screen screen);
// The current language's words into a screen's controls. Without tables
// (nothing read yet) the design's English stays. `ruleSet` is the set of a
// rule page (0 to 6), which decides its zone lines and whether the plain
// page 5 keeps its design.
void textshow(Form& form, binding::Screen screen, int ruleSet = 0);

}  // namespace fendle
