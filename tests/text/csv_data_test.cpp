// The text data the game ships: the cells that the screens show are filled in
// every language, and the built-in English is the file's. What each screen
// shows from the files, in every language, and so a field too many or too
// few, is held by the approved shots of the screens (tst_golden).
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
