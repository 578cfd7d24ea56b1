// A screen in the current language: the changes of place and size the
// language brings (applied before textshow), and its words.
#pragma once

#include "screens/form.h"
#include "text/binding.h"

namespace fendle {

void applyLayoutByLanguage(Form& form, binding::Screen screen);
// The current language's words into a screen's controls. Without tables
// (nothing read yet) the design's English stays.
void textshow(Form& form, binding::Screen screen);

}  // namespace fendle
