#include "text/text_tables.h"
#include "text/countermarks.h"
#include "text/messages.h"
#include "module_text_rows.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace fendle {
namespace {

// A csv of `rows` lines of seven fields "r<row>c<column>", row 1 first.
std::string csv(int rows, int columns = csvColumns) {
    std::string s;
    for (int r = 1; r <= rows; ++r) {
        for (int c = 0; c < columns; ++c) {
            if (c > 0) s += ',';
            s.append("r").append(std::to_string(r)).append("c").append(std::to_string(c));
        }
        s += "\r\n";
    }
    return s;
}

TEST(NumlangFile, OnlyAWholeNumberFromZeroToSixIsTaken) {
    struct Case { const char* name; std::optional<std::string> bytes; int number; const char* language; };
    const Case cases[] = {   // the number held before is 5
        {"missing", std::nullopt, 5, "English"},
        {"empty", "", 5, "English"},
        {"French", "1\r\n", 1, "French"},
        {"Welsh", "6\r\n", 6, "Welsh"},
        {"without line end", "3", 3, "Spanish"},
        {"blanks around", "  2  \r\n", 2, "German"},
        {"a language without texts", "7\r\n", 5, "English"},
        {"a fraction", "2.5\r\n", 5, "English"},
        {"empty line first", "\r\n3\r\n", 5, "English"},
    };
    for (const Case& c : cases) {
        std::int16_t number = 5;
        std::string name = "Dutch";
        readlanguagefile(c.bytes ? std::optional<std::string_view>(*c.bytes) : std::nullopt, number, name);
        EXPECT_EQ(number, c.number) << c.name;
        EXPECT_EQ(name, c.language) << c.name;
    }
    EXPECT_EQ(numlangText(5), "5\r\n");
}

TEST(NumlangFile, WithoutOneTheLocaleChoosesAsGettextReadsIt) {
    struct Case { const char* language; const char* all; const char* messages; const char* lang; int number; };
    const Case cases[] = {
        {"", "", "", "", 0},                            // nothing set: English
        {"", "", "", "de_DE.UTF-8", 2},
        {"", "", "cy_GB.UTF-8", "de_DE.UTF-8", 6},      // LC_MESSAGES before LANG
        {"", "nl_BE.UTF-8@euro", "cy_GB", "de_DE", 5},  // LC_ALL before both
        {"ja:it:fr", "", "", "de_DE.UTF-8", 4},         // the first of the seven in the list
        {"pt_BR:ja", "", "", "fr_FR.UTF-8", 0},         // none of them listed: English, not LANG
        {"es", "C", "", "fr_FR.UTF-8", 0},              // LANGUAGE is not read in the C locale
        {"es", "", "", "POSIX", 0},
        {"es", "", "", "", 0},                          // nor when no locale is set
        {"", "", "", "C.UTF-8", 0},
        {"", "", "", "fy_NL.UTF-8", 0},                 // Frisian is not Dutch
    };
    for (const Case& c : cases) {
        const auto variable = [&c](const char* name) {
            const std::string_view n(name);
            return std::string(n == "LANGUAGE" ? c.language : n == "LC_ALL" ? c.all : n == "LC_MESSAGES" ? c.messages
                               : n == "LANG"   ? c.lang : "");
        };
        EXPECT_EQ(localeLanguage(variable), c.number) << c.language << "|" << c.all << "|" << c.messages << "|" << c.lang;
    }
}

TEST(CountermarksFile, OnlyTheNumberOneSetsTheMarks) {
    const std::pair<const char*, bool> cases[] = {{"1\r\n", true}, {" 1 ", true}, {"0\r\n", false}, {"", false},
                                                  {"-1\r\n", false}, {"2\r\n", false}, {"yes\r\n", false},
                                                  {"\r\n1\r\n", false}, {"\"1\"\r\n", true}};
    for (const auto& [bytes, on] : cases) EXPECT_EQ(readCountermarks(std::string_view(bytes)), on) << bytes;
    EXPECT_FALSE(readCountermarks(std::nullopt));
    EXPECT_EQ(countermarksText(true), "1\r\n");
}

TEST(TextTables, LoadFillsColumnByLanguageAndRowAndCallsSettexts) {
    auto tables = std::make_unique<TextTables>();
    std::string rules = csv(rulesCsvRows);
    rules.insert(rules.find("\r\n"), ",extra");   // row 1 has eight fields: the eighth is row 2's first
    ModuleTexts texts;
    Problem problem;
    ASSERT_TRUE(loadtexttables(csv(textCsvRows), rules, *tables, 2, texts, &problem)) << problem.english();
    EXPECT_EQ(tables->texttable[0][1], "r1c0");
    EXPECT_EQ(tables->texttable[6][40], "r40c6");
    EXPECT_EQ(tables->texttable[0][0], "");
    EXPECT_EQ(tables->texttable[7][2], "");
    EXPECT_EQ(tables->texttable[0][41], "");
    EXPECT_EQ(tables->rulestable[0][0], "");
    EXPECT_EQ(tables->rulestable[0][2], "extra");
    EXPECT_EQ(tables->rulestable[1][2], "r2c0");
    EXPECT_EQ(tables->rulestable[6][64], "r64c5");
    // settexts ran for language 2; the rules rows stand one field on.
    for (const auto& [text, table, row] : testing::moduleTextRows)
        EXPECT_EQ(texts.*text, std::string("r").append(std::to_string(row)).append(table == 'T' ? "c2" : "c1")) << table << row;
    // A named language without texts empties them; a number outside the
    // tables leaves them as they were.
    ASSERT_TRUE(settexts(*tables, 12, texts));
    EXPECT_EQ(texts.oktext, "");
    texts.oktext = "kept";
    EXPECT_FALSE(settexts(*tables, 19, texts));
    EXPECT_FALSE(settexts(*tables, -1, texts));
    EXPECT_EQ(texts.oktext, "kept");
}

TEST(TextTables, MissingOrShortFilesFailWithTheFileNamed) {
    struct Case { const char* name; std::optional<std::string> text, rules; const char* fileInError; };
    std::string oneShortInRow3 = csv(textCsvRows);
    oneShortInRow3.erase(oneShortInRow3.find(",r3c6"), 5);
    std::string unclosedQuote = csv(rulesCsvRows);
    unclosedQuote.replace(unclosedQuote.find("r10c2"), 5, "\"r10c2");
    const Case cases[] = {
        {"text.csv missing", std::nullopt, csv(rulesCsvRows), "text\\text.csv"},
        {"rules.csv missing", csv(textCsvRows), std::nullopt, "text\\rules.csv"},
        {"text.csv one field short in row 3", oneShortInRow3, csv(rulesCsvRows), "text\\text.csv"},
        {"rules.csv with a quote never closed", csv(textCsvRows), unclosedQuote, "text\\rules.csv"},
    };
    const auto view = [](const std::optional<std::string>& s) {
        return s ? std::optional<std::string_view>(*s) : std::nullopt;
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        auto tables = std::make_unique<TextTables>();
        ModuleTexts texts = englishModuleTexts();
        Problem problem;
        EXPECT_FALSE(loadtexttables(view(c.text), view(c.rules), *tables, 0, texts, &problem));
        EXPECT_NE(problem.english().find(c.fileInError), std::string::npos) << problem.english();
        EXPECT_EQ(texts.oktext, "OK") << "settexts must not run after a failed load";
    }
}

TEST(LanguageNames, HeadingThenFourteenRowsOfSeven) {
    // Row 1 is the heading; row r names language r - 2, in the language of its column.
    const std::string bytes = csv(namedLanguages + 1);
    LanguageTable table;
    Problem problem;
    ASSERT_TRUE(readlanguagenames(bytes, table, &problem)) << problem.english();
    EXPECT_EQ(table[0][0], "r2c0");
    EXPECT_EQ(table[5][3], "r5c5");   // language 3 written in language 5
    EXPECT_EQ(table[6][13], "r15c6");
    EXPECT_EQ(table[7][0], "");
    EXPECT_FALSE(readlanguagenames(bytes.substr(0, bytes.rfind(",r15c6")), table, &problem));
    EXPECT_NE(problem.english().find("languages.csv"), std::string::npos);
    EXPECT_FALSE(readlanguagenames(std::nullopt, table, &problem));
    EXPECT_NE(problem.english().find("languages.csv"), std::string::npos);
}

TEST(Messages, TheLanguageThenTheFilesEnglishThenTheBuiltInEnglish) {
    constexpr Message known{"known", "Built-in %1"};
    constexpr Message absent{"absent", "Only built in"};
    const std::string heading = "\"key\",\"en\",\"fr\",\"ge\",\"sp\",\"it\",\"du\",\"we\"\r\n";
    MessageTable table;
    ASSERT_TRUE(table.read(heading + "\"known\",\"File %1\",\"Fr %1\",\"\",\"Sp\",\"It\",\"Du\",\"We\"\r\n"));
    struct Case { const Message& m; int lang; const char* want; };
    const Case cases[] = {
        {known, 1, "Fr x"},   {known, 3, "Sp"},     {known, 2, "File x"},   // empty cell: the file's English
        {known, 9, "File x"}, {known, -1, "File x"}, {absent, 1, "Only built in"},
    };
    for (const Case& c : cases) EXPECT_EQ(table.text(c.m, c.lang, "x"), c.want) << c.m.key << " " << c.lang;

    // A file without its English cell, a missing file, a line cut short.
    MessageTable noEnglish;
    ASSERT_TRUE(noEnglish.read(heading + "\"known\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n"));
    EXPECT_EQ(noEnglish.text(known, 4, "y"), "Built-in y");
    MessageTable none;
    EXPECT_FALSE(none.read(std::nullopt));
    EXPECT_EQ(none.text(known, 0, "%1"), "Built-in %1");
    MessageTable cut;
    std::string error;
    EXPECT_FALSE(cut.read(heading + "\"a\",\"A\",\"1\",\"2\",\"3\",\"4\",\"5\",\"6\"\r\n\"b\",\"B\"\r\n", &error));
    EXPECT_NE(error.find("line 3"), std::string::npos) << error;
    EXPECT_TRUE(cut.has("a"));
    EXPECT_FALSE(cut.has("b"));
}

}  // namespace
}  // namespace fendle
