#include "text/binding.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace fendle::binding {
namespace {

// Tables whose every cell says where it stands: "T<row>/<language>" and
// "R<row>/<language>", for languages 0 to 6.
std::unique_ptr<TextTables> labelledTables() {
    auto t = std::make_unique<TextTables>();
    for (int lang = 0; lang < 7; ++lang) {
        for (int row = 1; row <= 40; ++row) t->texttable[lang][row] = "T" + std::to_string(row) + "/" + std::to_string(lang);
        for (int row = 1; row <= 64; ++row) t->rulestable[lang][row] = "R" + std::to_string(row) + "/" + std::to_string(lang);
    }
    return t;
}

ModuleTexts labelledTexts(const TextTables& t, int lang) {
    ModuleTexts texts;
    settexts(t, lang, texts);
    return texts;
}

// The caption a control ends with when the list is applied in order.
std::string finalCaption(const std::vector<Caption>& list, std::string_view control, int index) {
    std::string found = "<unbound>";
    for (const Caption& c : list)
        if (c.control == control && c.index == index) found = c.caption;
    return found;
}

TEST(Binding, TurnLineWordOrderByLanguage) {
    const auto t = labelledTables();
    const char* expected[] = {"R37/0 T26/0", "T26/1 R37/1", "R37/2 T26/2", "T26/3 R37/3",
                              "T26/4 R37/4", "R37/5 T26/5", "R37/6 T26/6"};
    for (int lang = 0; lang < 7; ++lang) {
        const auto list = textshow(Screen::fen1, lang, *t, labelledTexts(*t, lang));
        EXPECT_EQ(finalCaption(list, "Label2", noIndex), expected[lang]) << lang;
    }
}

TEST(Binding, ScreensTakeTheirRowsInTheCurrentLanguage) {
    const auto t = labelledTables();
    struct Case { Screen screen; int lang; const char* control; int index; const char* expected; };
    const Case cases[] = {
        {Screen::Titlefrm, 2, "Label6", noIndex, "T7/2"},
        {Screen::Startplay2, 5, "Label3", 2, "T11/5"},
        {Screen::Startautoplay2, 0, "Option1", 2, "T19/0"},
        {Screen::highscores, 3, "Label6", 0, "T22/3"},
        {Screen::highscores, 3, "Label6", 1, "T21/3"},   // T21 here in every language
        {Screen::fen1, 4, "Label3", 1, "T30/4"},
        {Screen::fen1, 4, "Label5", 2, "R40/4"},
        {Screen::Fendlerules, 6, "Label1", 11, "R17/6"},
        {Screen::Fendlerules2, 6, "Label1", 17, "<unbound>"},   // the line of examples
        {Screen::Fendlerules2b, 6, "Label1", 23, "<unbound>"},   // a reward figure
        {Screen::Fendlerules3, 6, "Label1", 0, "R2/6"},
        {Screen::Fendlerules4, 6, "Label1", 13, "R64/6"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.control) + "(" + std::to_string(c.index) + ") language " + std::to_string(c.lang));
        const auto list = textshow(c.screen, c.lang, *t, labelledTexts(*t, c.lang), c.lang);
        EXPECT_EQ(finalCaption(list, c.control, c.index), c.expected);
    }
}

TEST(Binding, PlayAgainstTheComputerIsFixedInLanguagesOneToFour) {
    const auto t = labelledTables();
    const char* expected[] = {
        "T21/0", "Joue contre l\xE2\x80\x99ordinateur", "Gegen den Computer spielen", "Jugar contra el ordenador",
        "Gioca contro il computer", "T21/5", "T21/6"};
    for (int lang = 0; lang < 7; ++lang) {
        const auto list = textshow(Screen::Startautoplay2, lang, *t, labelledTexts(*t, lang));
        EXPECT_EQ(finalCaption(list, "Label7", noIndex), expected[lang]) << lang;
    }
}

TEST(Binding, RulePagesComposeTheirPageLineAndButtons) {
    const auto t = labelledTables();
    t->rulestable[1][4] = "Page";
    t->rulestable[1][3] = "de";
    const auto page3 = textshow(Screen::Fendlerules2b, 1, *t, labelledTexts(*t, 1), 1);
    EXPECT_EQ(finalCaption(page3, "Label1", 70), "Page 3 de 5");
    EXPECT_EQ(finalCaption(page3, "Label3", 1), ">> R5/1");
    EXPECT_EQ(finalCaption(page3, "Label3", 2), "<< R6/1");
    EXPECT_EQ(finalCaption(page3, "Label3", 0), "T5/1");

    // Page 1 has no previous button, page 5 only a previous one at index 1.
    const auto page1 = textshow(Screen::Fendlerules, 2, *t, labelledTexts(*t, 2), 2);
    EXPECT_EQ(finalCaption(page1, "Label1", 70), "R4/2 1 R3/2 5");
    EXPECT_EQ(finalCaption(page1, "Label3", 2), "<unbound>");
    const auto page5 = textshow(Screen::Fendlerules4, 2, *t, labelledTexts(*t, 2), 2);
    EXPECT_EQ(finalCaption(page5, "Label3", 1), "<< R6/2");
    EXPECT_EQ(finalCaption(page5, "Label3", 2), "<unbound>");

    // The plain page 5 keeps its design captions.
    EXPECT_TRUE(textshow(Screen::Fendlerules4, 0, *t, labelledTexts(*t, 0), 0).empty());
}

TEST(Binding, ZoneLinesTakeTheLowPieceOfTheirSet) {
    const auto t = labelledTables();
    t->rulestable[0][41] = "to";
    t->rulestable[1][41] = "\xC3\xA0";
    t->rulestable[4][41] = "a";
    struct Case { int set, zone; const char* expected; };
    const Case cases[] = {
        {0, 0, "1 to 15"}, {0, 6, "91 to 100"}, {1, 1, "De 16 \xC3\xA0 28"}, {4, 6, "da 91 a 100"},
        {2, 3, "46 R41/2 64"}, {5, 4, "65 R41/5 79"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.expected);
        const auto list = textshow(Screen::Fendlerules2b, c.set, *t, labelledTexts(*t, c.set), c.set);
        EXPECT_EQ(finalCaption(list, "Label1", 16 + c.zone), c.expected);
    }
}

TEST(Binding, BlanksBeforeTheLevelByLanguage) {
    struct Case { int lang, option; std::optional<int> blanks; };
    const Case cases[] = {
        {0, 0, 10}, {1, 2, 1}, {2, 1, 1}, {3, 0, 22}, {3, 1, 1}, {3, 2, 22},
        {4, 0, 3}, {5, 2, 1}, {6, 1, 14}, {7, 0, std::nullopt}, {-1, 0, std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.lang) + "/" + std::to_string(c.option));
        EXPECT_EQ(blanksBeforeLevel(c.lang, c.option), c.blanks);
    }
    auto t = labelledTables();
    t->texttable[0][29] = "The computer is playing as red.";
    EXPECT_EQ(computerNoteCaption(0, 0, *t, "Level 1 - Easy"),
              "The computer is playing as red." + std::string(10, ' ') + "Level 1 - Easy");
    EXPECT_EQ(computerNoteCaption(9, 0, *t, "Level 1 - Easy"), std::nullopt);
}

// The value a layout list gives a property, or -1 when it leaves it.
double changed(const std::vector<LayoutChange>& list, std::string_view control, int index, Property p) {
    double v = -1;
    for (const LayoutChange& c : list)
        if (c.control == control && c.index == index && c.property == p) v = c.value;
    return v;
}

TEST(Binding, LayoutByLanguage) {
    struct Case { Screen screen; int lang; const char* control; int index; Property property; double value; };
    const Case cases[] = {
        // Throw Dice follows Label14 after this language's own settings.
        {Screen::fen1, 1, "Label3", 2, Property::Left, 1080},
        {Screen::fen1, 3, "Label3", 2, Property::Left, -1},
        {Screen::fen1, 3, "Label3", 2, Property::FontSize, 14},
        {Screen::Startplay2, 5, "Label3", 3, Property::Top, 3480},
        {Screen::Startautoplay2, 6, "Label7", noIndex, Property::Height, 1275},
        {Screen::Titlefrm, 0, "Label9", noIndex, Property::Visible, 1},
        {Screen::Titlefrm, 1, "Label6", noIndex, Property::Width, -1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.control) + "(" + std::to_string(c.index) + ") language " + std::to_string(c.lang));
        EXPECT_EQ(changed(layoutByLanguage(c.screen, c.lang), c.control, c.index, c.property), c.value);
    }
    EXPECT_TRUE(layoutByLanguage(Screen::fen1, 0).empty());
    EXPECT_TRUE(layoutByLanguage(Screen::Startplay2, 0).empty());
    EXPECT_TRUE(layoutByLanguage(Screen::Startautoplay2, 9).empty());
    EXPECT_TRUE(layoutByLanguage(Screen::highscores, 3).empty());
}

}  // namespace
}  // namespace fendle::binding
