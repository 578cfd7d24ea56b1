// Which words go where: for each translated screen, the control (name and
// index) that takes a row of texttable ("T"), a row of rulestable ("R"), a
// module text variable or a caption composed of rows and fixed pieces; the
// captions that stand in the program whatever the tables hold; and the
// changes of place and size that each language brings on the set-up screens,
// the title screen and the board window.
//
// Each screen's textshow is then a loop over textshow(...), and its layout
// step a loop over layoutByLanguage(...). Plain C++: the screens apply the
// results to their widgets.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "text/module_texts.h"
#include "text/text_tables.h"

namespace fendle::binding {

// The screens that have a textshow. The five rule pages are the same in every
// set; the set (0 plain, 1 fr, 2 ge, 3 sp, 4 it, 5 du, 6 we, as the language
// numbers) is given beside the page.
enum class Screen {
    Titlefrm,
    Startplay2,
    Startautoplay2,
    fen1,
    highscores,
    Fendlerules,     // rule page 1
    Fendlerules2,    // page 2
    Fendlerules2b,   // page 3
    Fendlerules3,    // page 4
    Fendlerules4,    // page 5
};

// Index of a control that is not part of a control array.
inline constexpr int noIndex = -1;

// What a bound control takes.
enum class Source {
    T,              // row of texttable
    R,              // row of rulestable
    Module,         // a module text variable
    PageLine,       // "Page 2 of 5"
    NextPage,       // ">> Next Page"
    PreviousPage,   // "<< Previous Page"
    ZoneLine,       // "16 to 28", zone `row` (0 to 6) of rule page 3
    TurnLine,       // "Blue to Play"
};

struct Binding {
    const char* control;
    int index;
    Source source;
    int row = 0;                                 // T, R: the row; ZoneLine: the zone
    std::string ModuleTexts::*module = nullptr;   // Module: the variable
};

// The bound controls of a screen, in the order textshow writes them. For a
// rule page this is the page of any set; the plain page 5 alone is not bound
// (textshow yields nothing for it).
std::vector<Binding> bindings(Screen screen);

struct Caption {
    std::string control;
    int index;
    std::string caption;
    bool operator==(const Caption&) const = default;
};

// textshow of a screen: every bound control with its caption in the current
// language, in order, followed by the captions the program fixes whatever
// the tables hold (Startautoplay2's Label7 in languages 1 to 4). Applied in
// order, a later caption of the same control replaces the earlier one. An
// empty text gives an empty caption. `ruleSet` matters only for the rule
// pages. A language outside 0 to 18 has no table texts: those captions are
// empty.
std::vector<Caption> textshow(Screen screen, int languagenumber, const TextTables& tables,
                              const ModuleTexts& texts, int ruleSet = 0);

// --- Composed captions ---

// Rule page n: R4, a blank, the digit of n, a blank, R3 and " 5".
std::string pageLine(int page, int languagenumber, const TextTables& tables);
// ">> " and R5; "<< " and R6.
std::string nextPageCaption(int languagenumber, const TextTables& tables);
std::string previousPageCaption(int languagenumber, const TextTables& tables);
// Zone 0 to 6 (1 to 15 ... 91 to 100) on rule page 3 of a set: the low piece
// of the set, R41, and the high piece.
std::string zoneLine(int zone, int ruleSet, int languagenumber, const TextTables& tables);
// The Cheat Chart's window caption: "Fendle! " and T25.
std::string cheatChartCaption(int languagenumber, const TextTables& tables);

// Blanks between T29 and the level's caption in the board's note on the
// computer (Label5(6)), by language and the index of the chosen level option;
// nothing for a language without a rule, whose note keeps its caption.
std::optional<int> blanksBeforeLevel(int languagenumber, int optionIndex);
// That note: T29, the blanks and the caption of the chosen option.
std::optional<std::string> computerNoteCaption(int languagenumber, int optionIndex, const TextTables& tables,
                                               std::string_view optionCaption);

// Startautoplay2's Label7 in languages 1 to 4, which the program writes over
// T21; nothing in the other languages.
std::optional<std::string_view> fixedPlayAgainstComputer(int languagenumber);

// Rule pages: the suffix of a language's set ("", "fr" ... "we"), nothing for
// a language without one; the form name of page 1 to 5 of a set
// ("Fendlerules2bfr").
std::optional<std::string_view> ruleSetSuffix(int languagenumber);
std::string ruleFormName(int page, int ruleSet);

// --- Layout by language ---

enum class Property { Left, Top, Width, Height, FontSize, Visible };

struct LayoutChange {
    std::string control;
    int index;
    Property property;
    double value;   // twips, points, or 1/0 for Visible
    bool operator==(const LayoutChange&) const = default;
};

// What the load step of Titlefrm, Startplay2, Startautoplay2 or fen1 changes
// for a language, before textshow. Nothing for the other screens, and nothing
// for a language that has no column. Only language 0 changes the title
// screen, and it changes nothing on the others.
std::vector<LayoutChange> layoutByLanguage(Screen screen, int languagenumber);

}  // namespace fendle::binding
