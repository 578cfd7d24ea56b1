// Where each module text comes from: a row of text.csv ('T') or of rules.csv
// ('R'), in the column of the current language.
#pragma once

#include <string>

#include "text/module_texts.h"

namespace fendle::testing {

struct ModuleTextRow {
    std::string ModuleTexts::*text;
    char table;
    int row;
};

inline const ModuleTextRow moduleTextRows[] = {
    {&ModuleTexts::changelanguagetext, 'T', 2}, {&ModuleTexts::noticetext, 'T', 3},
    {&ModuleTexts::oktext, 'T', 4},             {&ModuleTexts::exittext, 'T', 5},
    {&ModuleTexts::bluename, 'R', 37},          {&ModuleTexts::redname, 'R', 40},
    {&ModuleTexts::greenname, 'R', 38},         {&ModuleTexts::yellowname, 'R', 36},
    {&ModuleTexts::bluewinstext, 'T', 31},      {&ModuleTexts::redwinstext, 'T', 32},
    {&ModuleTexts::greenwinstext, 'T', 33},     {&ModuleTexts::yellowwinstext, 'T', 34},
    {&ModuleTexts::drawtext, 'T', 35},          {&ModuleTexts::doublefendletext, 'T', 36},
    {&ModuleTexts::gameovertext, 'T', 38},      {&ModuleTexts::solotimeouttext, 'T', 39},
    {&ModuleTexts::pointstext, 'T', 40},
};

}  // namespace fendle::testing
