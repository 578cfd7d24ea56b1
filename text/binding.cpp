#include "text/binding.h"

#include <array>

namespace fendle::binding {

namespace {

using MT = ModuleTexts;

// --- Bound controls of each screen ---

const std::vector<Binding> titlefrm = {
    {"Label2", noIndex, Source::Module, 0, &MT::noticetext},
    {"Label5", noIndex, Source::Module, 0, &MT::oktext},
    {"Label6", noIndex, Source::T, 7},
    {"Label7", noIndex, Source::Module, 0, &MT::exittext},
    {"Label8", noIndex, Source::Module, 0, &MT::changelanguagetext},
};

const std::vector<Binding> startplay2 = {
    {"Label6", noIndex, Source::T, 8},
    {"Check1", noIndex, Source::T, 9},
    {"Check2", noIndex, Source::T, 10},
    {"Label3", 0, Source::Module, 0, &MT::exittext},
    {"Label3", 2, Source::T, 11},
    {"Label3", 3, Source::T, 12},
    {"Check3", noIndex, Source::T, 13},
    {"Label2", noIndex, Source::T, 15},
    {"Label8", noIndex, Source::T, 14},
    {"Label5", noIndex, Source::Module, 0, &MT::noticetext},
};

const std::vector<Binding> startautoplay2 = {
    {"Label2", noIndex, Source::T, 16},
    {"Option1", 0, Source::T, 17},
    {"Option1", 1, Source::T, 18},
    {"Option1", 2, Source::T, 19},
    {"Label1", noIndex, Source::T, 20},
    {"Label7", noIndex, Source::T, 21},
    {"Label5", noIndex, Source::Module, 0, &MT::noticetext},
    {"Label3", 0, Source::Module, 0, &MT::exittext},
};

const std::vector<Binding> highscores = {
    {"Label2", noIndex, Source::T, 14},
    {"Label3", 0, Source::T, 23},
    {"Label6", 0, Source::T, 22},
    {"Label6", 1, Source::T, 21},
    {"Label5", noIndex, Source::Module, 0, &MT::noticetext},
};

const std::vector<Binding> fen1 = {
    {"Label3", 0, Source::Module, 0, &MT::exittext},
    {"Label3", 1, Source::T, 30},
    {"Label3", 2, Source::T, 24},
    {"Label14", noIndex, Source::T, 25},
    {"Label10", noIndex, Source::T, 28},
    {"Label13", noIndex, Source::T, 27},
    {"Label5", 1, Source::Module, 0, &MT::bluename},
    {"Label5", 2, Source::Module, 0, &MT::redname},
    {"Label5", 3, Source::Module, 0, &MT::greenname},
    {"Label5", 4, Source::Module, 0, &MT::yellowname},
    {"Label2", noIndex, Source::TurnLine},   // Blue's turn, the first of a game
};

// The rule pages: the heading, the page line and Exit, then Label1(1) up
// takes rows firstRow up, then the page buttons.
struct RulePage {
    int page;
    int lines;        // Label1(1) to (lines)
    int firstRow;     // row of Label1(1)
    int nextButton;   // Label3 index of ">> Next Page", or none
    int prevButton;   // Label3 index of "<< Previous Page", or none
};
constexpr std::array<RulePage, 5> rulePages = {{
    {1, 11, 7, 1, noIndex},
    {2, 8, 18, 1, 2},
    {3, 15, 26, 1, 2},
    {4, 10, 42, 1, 2},
    {5, 13, 52, noIndex, 1},
}};

std::vector<Binding> rulePageBindings(const RulePage& p) {
    std::vector<Binding> list = {
        {"Label1", 0, Source::R, 2},
        {"Label1", 70, Source::PageLine, p.page},
        {"Label3", 0, Source::Module, 0, &MT::exittext},
    };
    for (int i = 1; i <= p.lines; ++i) list.push_back({"Label1", i, Source::R, p.firstRow + i - 1});
    if (p.nextButton != noIndex) list.push_back({"Label3", p.nextButton, Source::NextPage});
    if (p.prevButton != noIndex) list.push_back({"Label3", p.prevButton, Source::PreviousPage});
    if (p.page == 2) {   // the demonstration's buttons
        list.push_back({"Label2", noIndex, Source::T, 24});
        list.push_back({"Label14", noIndex, Source::T, 25});
    }
    if (p.page == 3)     // the table of zones
        for (int zone = 0; zone < 7; ++zone) list.push_back({"Label1", 16 + zone, Source::ZoneLine, zone});
    return list;
}

int rulePageOf(Screen screen) {
    switch (screen) {
        case Screen::Fendlerules: return 1;
        case Screen::Fendlerules2: return 2;
        case Screen::Fendlerules2b: return 3;
        case Screen::Fendlerules3: return 4;
        case Screen::Fendlerules4: return 5;
        default: return 0;
    }
}

// --- Fixed pieces ---

constexpr std::array<int, 7> zoneLow = {1, 16, 29, 46, 65, 80, 91};
constexpr std::array<int, 7> zoneHigh = {15, 28, 45, 64, 79, 90, 100};

constexpr std::array<std::string_view, 7> setSuffix = {"", "fr", "ge", "sp", "it", "du", "we"};

// Startautoplay2's Label7, languages 1 to 4. The French apostrophe is U+2019.
constexpr std::array<std::string_view, 5> playAgainstComputer = {
    "",
    "Joue contre l\xE2\x80\x99ordinateur",
    "Gegen den Computer spielen",
    "Jugar contra el ordenador",
    "Gioca contro il computer",
};

// --- Layout tables ---

constexpr double keep = -1;        // an empty cell: the design value stays
constexpr double asLabel14 = -2;   // the value Label14 has after this language

struct LayoutRow {
    const char* control;
    std::array<int, 3> indices;   // unused slots hold noIndex after the first
    int count;                    // how many of indices apply
    Property property;
    double design;
    std::array<double, 7> byLanguage;   // languages 0 to 6
};

constexpr double K = keep;

// Titlefrm: language 0 alone has the English layout, in which the Teachers'
// Guide button shows below a shorter picture.
const std::vector<LayoutRow> titlefrmLayout = {
    {"Label9", {noIndex}, 1, Property::Left, 720, {780, K, K, K, K, K, K}},
    {"Label9", {noIndex}, 1, Property::Visible, 0, {1, K, K, K, K, K, K}},
    {"Picture1", {noIndex}, 1, Property::Height, 3600, {3000, K, K, K, K, K, K}},
    {"Label6", {noIndex}, 1, Property::Width, 4755, {3975, K, K, K, K, K, K}},
    {"Label6", {noIndex}, 1, Property::Left, 420, {780, K, K, K, K, K, K}},
};

const std::vector<LayoutRow> startplay2Layout = {
    {"Label2", {noIndex}, 1, Property::FontSize, 20.25, {K, 16, K, 15, 18, K, 18}},
    {"Label2", {noIndex}, 1, Property::Top, 4440, {K, K, K, 4560, K, K, K}},
    {"Label8", {noIndex}, 1, Property::FontSize, 15.75, {K, 12, K, 12, 12, K, K}},
    {"Label8", {noIndex}, 1, Property::Height, 435, {K, K, K, 675, K, K, K}},
    {"Label3", {2}, 1, Property::FontSize, 12, {K, K, K, 10, 11, K, 10}},
    {"Label3", {2}, 1, Property::Top, 2880, {K, K, K, K, 2820, 2820, K}},
    {"Label3", {3}, 1, Property::Top, 3300, {K, K, K, 3480, 3480, 3480, 3480}},
    {"Text2", {noIndex}, 1, Property::Top, 3240, {K, K, K, 3420, 3420, 3420, 3420}},
    {"Check1", {noIndex}, 1, Property::FontSize, 12, {K, K, K, 11, 11, K, 10}},
    {"Check1", {noIndex}, 1, Property::Left, 720, {K, 1680, K, 240, 600, K, 960}},
    {"Check1", {noIndex}, 1, Property::Width, 1695, {K, 955, 1455, 2400, 2160, K, K}},
    {"Check2", {noIndex}, 1, Property::FontSize, 12, {K, K, K, 11, 11, K, 10}},
    {"Check2", {noIndex}, 1, Property::Left, 720, {K, 240, K, 240, 240, K, 240}},
    {"Check2", {noIndex}, 1, Property::Width, 1695, {K, 2400, 1455, 2400, 2520, K, 2400}},
    {"Check3", {noIndex}, 1, Property::FontSize, 12, {K, K, 11, 11, 11, K, 10}},
    {"Check3", {noIndex}, 1, Property::Left, 720, {K, 240, 240, 240, 360, 240, 240}},
    {"Check3", {noIndex}, 1, Property::Width, 1935, {K, 2400, 2580, 2400, 2400, 2700, 2700}},
};

const std::vector<LayoutRow> startautoplay2Layout = {
    {"Option1", {0, 1, 2}, 3, Property::Left, 360, {K, K, 240, K, 240, 240, 240}},
    {"Option1", {0, 1, 2}, 3, Property::FontSize, 15.75, {K, 14, 14, K, 14, 12, 16}},
    {"Option1", {0, 1, 2}, 3, Property::Width, 2535, {K, 2775, 3000, K, 3000, 3000, 3000}},
    {"Option1", {0}, 1, Property::Top, 2520, {K, 3000, 3000, 3000, K, 3000, 3000}},
    {"Option1", {1}, 1, Property::Top, 3240, {K, 3480, 3480, 3480, K, 3480, 3480}},
    {"Label2", {noIndex}, 1, Property::Width, 3120, {K, K, K, K, K, 3240, K}},
    {"Label1", {noIndex}, 1, Property::Top, 4980, {K, K, 4560, K, K, 4560, 4560}},
    {"Label7", {noIndex}, 1, Property::Top, 4980, {K, K, 4560, K, K, 4560, 4560}},
    {"Label1", {noIndex}, 1, Property::Height, 855, {K, K, 1275, K, K, 1275, 1275}},
    {"Label7", {noIndex}, 1, Property::Height, 855, {K, K, 1275, K, K, 1275, 1275}},
};

// The board window. Label14 comes before Throw Dice, whose place may follow it.
const std::vector<LayoutRow> fen1Layout = {
    {"Label2", {noIndex}, 1, Property::Left, 4680, {K, 4560, 4560, 4800, 4800, 4440, 4740}},
    {"Label14", {noIndex}, 1, Property::Left, 1320, {K, 1080, 1080, 1080, K, 1200, 1200}},
    {"Label14", {noIndex}, 1, Property::Width, 1815, {K, K, K, 2055, K, 1565, K}},
    {"Label14", {noIndex}, 1, Property::FontSize, 11.25, {K, K, 10, 10, K, K, K}},
    {"Label4", {0, 2}, 2, Property::Left, 1680, {K, 1440, 1440, K, K, 1440, 1560}},
    {"Label4", {1, 3}, 2, Property::Left, 2280, {K, 2040, 2040, K, K, 2040, 2160}},
    {"Label3", {2}, 1, Property::Left, 1080, {K, asLabel14, asLabel14, K, K, asLabel14, 1020}},
    {"Label3", {2}, 1, Property::Width, 2295, {K, asLabel14, asLabel14, K, K, asLabel14, 2175}},
    {"Label3", {2}, 1, Property::FontSize, 15.75, {K, 12, K, 14, K, K, 12}},
    {"Label10", {noIndex}, 1, Property::FontSize, 12, {K, 11, K, K, K, K, 11}},
    {"Label13", {noIndex}, 1, Property::Left, 2760, {K, K, K, K, K, K, 3240}},
    {"Label13", {noIndex}, 1, Property::Width, 1560, {K, K, K, K, K, K, 1080}},
};

const std::vector<LayoutRow>* layoutTable(Screen screen) {
    switch (screen) {
        case Screen::Titlefrm: return &titlefrmLayout;
        case Screen::Startplay2: return &startplay2Layout;
        case Screen::Startautoplay2: return &startautoplay2Layout;
        case Screen::fen1: return &fen1Layout;
        default: return nullptr;
    }
}

// The value a control's property has for a language: its cell, or the design
// value where the cell is empty.
double valueFor(const std::vector<LayoutRow>& table, std::string_view control, Property property,
                int languagenumber) {
    for (const LayoutRow& row : table) {
        if (control == row.control && row.property == property) {
            const double v = row.byLanguage[static_cast<std::size_t>(languagenumber)];
            return v == keep ? row.design : v;
        }
    }
    return keep;
}

}  // namespace

std::vector<Binding> bindings(Screen screen) {
    switch (screen) {
        case Screen::Titlefrm: return titlefrm;
        case Screen::Startplay2: return startplay2;
        case Screen::Startautoplay2: return startautoplay2;
        case Screen::fen1: return fen1;
        case Screen::highscores: return highscores;
        default: break;
    }
    const int page = rulePageOf(screen);
    return page == 0 ? std::vector<Binding>{} : rulePageBindings(rulePages[static_cast<std::size_t>(page - 1)]);
}

std::vector<Caption> textshow(Screen screen, int languagenumber, const TextTables& tables, const ModuleTexts& texts,
                              int ruleSet) {
    // The plain page 5 keeps its design captions, with its ownership lines.
    if (screen == Screen::Fendlerules4 && ruleSet == 0) return {};
    const int page = rulePageOf(screen);
    std::vector<Caption> captions;
    for (const Binding& b : bindings(screen)) {
        std::string text;
        switch (b.source) {
            case Source::T: text = textRow(tables, languagenumber, b.row); break;
            case Source::R: text = rulesRow(tables, languagenumber, b.row); break;
            case Source::Module: text = texts.*(b.module); break;
            case Source::PageLine: text = pageLine(page, languagenumber, tables); break;
            case Source::NextPage: text = nextPageCaption(languagenumber, tables); break;
            case Source::PreviousPage: text = previousPageCaption(languagenumber, tables); break;
            case Source::ZoneLine: text = zoneLine(b.row, ruleSet, languagenumber, tables); break;
            case Source::TurnLine: text = turnLine(languagenumber, texts.bluename, textRow(tables, languagenumber, 26)); break;
        }
        captions.push_back({b.control, b.index, std::move(text)});
    }
    if (screen == Screen::Startautoplay2)
        if (const auto fixed = fixedPlayAgainstComputer(languagenumber))
            captions.push_back({"Label7", noIndex, std::string(*fixed)});
    return captions;
}

std::string pageLine(int page, int languagenumber, const TextTables& tables) {
    return rulesRow(tables, languagenumber, 4) + " " + std::to_string(page) + " " + rulesRow(tables, languagenumber, 3) +
           " 5";
}

std::string nextPageCaption(int languagenumber, const TextTables& tables) {
    return ">> " + rulesRow(tables, languagenumber, 5);
}

std::string previousPageCaption(int languagenumber, const TextTables& tables) {
    return "<< " + rulesRow(tables, languagenumber, 6);
}

std::string zoneLine(int zone, int ruleSet, int languagenumber, const TextTables& tables) {
    if (zone < 0 || zone > 6) return {};
    const std::string number = std::to_string(zoneLow[static_cast<std::size_t>(zone)]);
    std::string low = number + " ";
    if (ruleSet == 1) low = "De " + low;
    else if (ruleSet == 4) low = "da " + low;
    return low + rulesRow(tables, languagenumber, 41) + " " + std::to_string(zoneHigh[static_cast<std::size_t>(zone)]);
}

std::string cheatChartCaption(int languagenumber, const TextTables& tables) {
    return "Fendle! " + textRow(tables, languagenumber, 25);
}

std::optional<int> blanksBeforeLevel(int languagenumber, int optionIndex) {
    switch (languagenumber) {
        case 0: return 10;
        case 1: return 1;
        case 2: return 1;
        case 3: return optionIndex == 1 ? 1 : 22;
        case 4: return 3;
        case 5: return 1;
        case 6: return 14;
        default: return std::nullopt;
    }
}

std::optional<std::string> computerNoteCaption(int languagenumber, int optionIndex, const TextTables& tables,
                                               std::string_view optionCaption) {
    const auto blanks = blanksBeforeLevel(languagenumber, optionIndex);
    if (!blanks) return std::nullopt;
    return textRow(tables, languagenumber, 29) + std::string(static_cast<std::size_t>(*blanks), ' ') +
           std::string(optionCaption);
}

std::optional<std::string_view> fixedPlayAgainstComputer(int languagenumber) {
    if (languagenumber < 1 || languagenumber > 4) return std::nullopt;
    return playAgainstComputer[static_cast<std::size_t>(languagenumber)];
}

std::optional<std::string_view> ruleSetSuffix(int languagenumber) {
    if (languagenumber < 0 || languagenumber >= textedLanguages) return std::nullopt;
    return setSuffix[static_cast<std::size_t>(languagenumber)];
}

std::string ruleFormName(int page, int ruleSet) {
    static constexpr std::array<std::string_view, 5> names = {"Fendlerules", "Fendlerules2", "Fendlerules2b",
                                                              "Fendlerules3", "Fendlerules4"};
    if (page < 1 || page > 5) return {};
    return std::string(names[static_cast<std::size_t>(page - 1)]) + std::string(ruleSetSuffix(ruleSet).value_or(""));
}

std::vector<LayoutChange> layoutByLanguage(Screen screen, int languagenumber) {
    const std::vector<LayoutRow>* table = layoutTable(screen);
    if (!table || languagenumber < 0 || languagenumber >= textedLanguages) return {};
    std::vector<LayoutChange> changes;
    for (const LayoutRow& row : *table) {
        double v = row.byLanguage[static_cast<std::size_t>(languagenumber)];
        if (v == keep) continue;
        if (v == asLabel14) v = valueFor(*table, "Label14", row.property, languagenumber);
        for (int k = 0; k < row.count; ++k)
            changes.push_back({row.control, row.indices[static_cast<std::size_t>(k)], row.property, v});
    }
    return changes;
}

}  // namespace fendle::binding
