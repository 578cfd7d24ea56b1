// The text data the game ships: every csv file reads to its count of fields,
// the cells that the screens show are filled in every language, and the
// English column holds the captions the screens were designed with.
#include "text/binding.h"
#include "text/file_io.h"
#include "text/listinput.h"
#include "text/messages.h"
#include "text/text_tables.h"
#include "module_text_rows.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace fendle {
namespace {

std::string dataFile(std::string_view gameName) {
    const auto bytes = readFileBytes(gamePath(gameName, FENDLE_DATA_DIR));
    EXPECT_TRUE(bytes.has_value()) << gameName << " is missing from data/";
    return bytes.value_or("");
}

// Number of fields in the whole file. Empty lines at the very end, which a
// reader never reaches, are not counted.
int countFields(std::string_view bytes) {
    const std::size_t last = bytes.find_last_not_of("\r\n");
    if (last == std::string_view::npos) return 0;
    const std::string_view tail = bytes.substr(last + 1);
    bytes = bytes.substr(0, last + 1 + (tail.starts_with("\r\n") ? 2 : std::min<std::size_t>(tail.size(), 1)));
    ListInput in(bytes);
    std::string field;
    int n = 0;
    while (in.readString(field)) ++n;
    return n;
}

struct Row { int row; const char* text; };

// English captions of the interface rows whose wording the screens fix.
const std::vector<Row> englishText = {
    {2, "Change Language"}, {4, "OK"}, {5, "Exit"}, {7, "Restart Previous Game"}, {8, "The Rules"},
    {9, "Play Sound"}, {10, "Timers On"}, {11, "Set Total Time Allowed"}, {12, "seconds"}, {13, "Hide Desktop"},
    {14, "High Scores"}, {15, "Select Number of Players"}, {16, " Set Level for the computer"},
    {17, "Level 1 - Easy"}, {18, "Level 2"}, {19, "Level 3 - Hard"}, {20, "Play solo"},
    {21, "Play against the computer"}, {22, "Open Play"}, {23, "Continue"}, {24, "Throw Dice"}, {25, "Cheat Chart"},
    {27, "Seconds Remaining"}, {30, "New Game"}, {28, "You made an illegal move. You have lost your turn."},
};

// English text of the rule pages: the captions, the zone table, and the
// paragraphs that state a score.
const std::vector<Row> englishRules = {
    {2, "The Rules of Fendle!"}, {3, "of"}, {4, "Page"}, {5, "Next Page"}, {6, "Previous Page"},
    {7, "Summary of the rules"},
    {11, "Double bonus points are scored by making a Fendle! move on a prime number \xE2\x80\x93" " this is a double Fendle! move."},
    {24, "Cheat Chart"}, {31, "Number generated"}, {32, "Colour Zone"}, {33, "Reward"}, {34, "Orange"},
    {35, "Turquoise"}, {36, "Yellow"}, {37, "Blue"}, {38, "Green"}, {39, "Purple"}, {40, "Red"}, {41, "to"},
    {44, "The player that completes any triangle with a Fendle! move gains a bonus of 100. This is in addition to the amount rewarded for that colour zone."},
    {45, "For example, if Blue generates the number 33, completing a triangle of counters with 25 and 32, then Blue gains a yellow-zone reward of 50, plus a Fendle! bonus of 100, making a total of 150."},
    {49, "If a player clicks a prime number to complete a triangle of counters, the player scores a double Fendle! bonus of 200. This is in addition to the amount rewarded for that colour zone."},
    {50, "For example, if Blue generates the prime number 17, completing a triangle of counters with 12 and 18, then Blue scores a turquoise-zone reward of 20, plus a double Fendle! bonus of 200, making a total of 220."},
    {58, "The game is over when there is a continuous path of counters connecting hexagon 1 to hexagon 100. The player who plays the final counter to complete this path gains a bonus score of 500. The player with the highest score at the end of the game is the winner."},
};

class TextData : public ::testing::Test {
protected:
    void SetUp() override {
        textCsv = dataFile(textCsvFile);
        rulesCsv = dataFile(rulesCsvFile);
        languagesCsv = dataFile(languagesCsvFile);
        tables = std::make_unique<TextTables>();
        Problem problem;
        loaded = loadtexttables(textCsv, rulesCsv, *tables, 0, texts, &problem);
        EXPECT_TRUE(loaded) << problem.english();
    }
    std::string textCsv, rulesCsv, languagesCsv;
    std::unique_ptr<TextTables> tables;
    ModuleTexts texts;
    bool loaded = false;
};

TEST_F(TextData, EachFileHoldsExactlyItsCountOfFields) {
    // One field more or fewer shifts every later field: a row of eight
    // columns or of six shows here even where the wording looks right.
    EXPECT_EQ(countFields(textCsv), textCsvRows * csvColumns);
    EXPECT_EQ(countFields(rulesCsv), rulesCsvRows * csvColumns);
    EXPECT_EQ(countFields(languagesCsv), csvColumns + namedLanguages * csvColumns);
}

TEST_F(TextData, EveryShownCellIsFilledInEveryLanguage) {
    ASSERT_TRUE(loaded);
    for (int lang = 0; lang < textedLanguages; ++lang) {
        for (int row = 2; row <= textCsvRows; ++row) {
            if (row == 6) continue;   // shown nowhere
            EXPECT_FALSE(tables->texttable[lang][row].empty()) << "text.csv row " << row << " column " << lang;
        }
        for (int row = 2; row <= rulesCsvRows; ++row) {
            // The plain page 5 shows its own design captions: the English
            // cells of its foot lines are never shown.
            if (lang == 0 && row >= 62) continue;
            EXPECT_FALSE(tables->rulestable[lang][row].empty()) << "rules.csv row " << row << " column " << lang;
        }
    }
    LanguageTable names;
    Problem problem;
    ASSERT_TRUE(readlanguagenames(languagesCsv, names, &problem)) << problem.english();
    for (int lang = 0; lang < textedLanguages; ++lang)
        for (int row = 0; row < textedLanguages; ++row)
            EXPECT_FALSE(names[lang][row].empty()) << "languages.csv row " << row << " column " << lang;
    for (int row = 0; row < textedLanguages; ++row) EXPECT_EQ(names[0][row], *languageName(row));
}

TEST_F(TextData, EnglishColumnHoldsTheDesignCaptions) {
    ASSERT_TRUE(loaded);
    for (const Row& r : englishText) EXPECT_EQ(tables->texttable[0][r.row], r.text) << "text.csv row " << r.row;
    for (const Row& r : englishRules) EXPECT_EQ(tables->rulestable[0][r.row], r.text) << "rules.csv row " << r.row;

    // The composed English captions.
    using namespace binding;
    EXPECT_EQ(turnLine(0, texts.bluename, tables->texttable[0][26]), "Blue to Play");
    EXPECT_EQ(pageLine(2, 0, *tables), "Page 2 of 5");
    EXPECT_EQ(nextPageCaption(0, *tables), ">> Next Page");
    EXPECT_EQ(previousPageCaption(0, *tables), "<< Previous Page");
    EXPECT_EQ(zoneLine(1, 0, 0, *tables), "16 to 28");
    EXPECT_EQ(cheatChartCaption(0, *tables), "Fendle! Cheat Chart");
}

TEST_F(TextData, DefaultsWithoutTablesAreTheShippedEnglish) {
    // The game and the tools run on englishModuleTexts() where no tables are
    // read; it must say what the English column says.
    ASSERT_TRUE(loaded);
    const ModuleTexts defaults = englishModuleTexts();
    for (const auto& row : testing::moduleTextRows) EXPECT_EQ(texts.*row.text, defaults.*row.text) << row.table << row.row;
}

TEST(MessagesData, EveryMessageIsInTheFileInSevenLanguagesWithItsArgument) {
    const std::string bytes = dataFile(messagesCsvFile);
    MessageTable table;
    std::string error;
    ASSERT_TRUE(table.read(bytes, &error)) << error;
    // A key written twice would silently keep only its last line.
    EXPECT_EQ(countFields(bytes), (1 + static_cast<int>(allMessages().size())) * (1 + csvColumns));
    for (const Message& m : allMessages()) {
        const auto row = table.row(m.key);
        ASSERT_TRUE(row.has_value()) << m.key << " is missing from messages.csv";
        EXPECT_EQ((*row)[0], m.english) << m.key;
        const bool takesArgument = m.english.find("%1") != std::string_view::npos;
        for (int lang = 0; lang < csvColumns; ++lang) {
            EXPECT_FALSE((*row)[lang].empty()) << m.key << " in language " << lang;
            EXPECT_EQ((*row)[lang].find("%1") != std::string::npos, takesArgument) << m.key << " in language " << lang;
        }
    }
}

}  // namespace
}  // namespace fendle
