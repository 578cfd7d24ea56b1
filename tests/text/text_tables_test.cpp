#include "text/text_tables.h"

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
            s += "r" + std::to_string(r) + "c" + std::to_string(c);
        }
        s += "\r\n";
    }
    return s;
}

TEST(NumlangFile, OnlyAWholeNumberFromZeroToSixIsTaken) {
    struct Case {
        const char* name;
        std::optional<std::string> bytes;
        int expectedNumber;   // the number held before is 5
        const char* expectedName;
    };
    const std::vector<Case> cases = {
        {"missing", std::nullopt, 5, "English"},
        {"empty", std::string(""), 5, "English"},
        {"zero", std::string("0\r\n"), 0, "English"},
        {"French", std::string("1\r\n"), 1, "French"},
        {"Welsh", std::string("6\r\n"), 6, "Welsh"},
        {"without line end", std::string("3"), 3, "Spanish"},
        {"blanks around", std::string("  2  \r\n"), 2, "German"},
        {"a language without texts", std::string("7\r\n"), 5, "English"},
        {"beyond the tables", std::string("19\r\n"), 5, "English"},
        {"negative", std::string("-1\r\n"), 5, "English"},
        {"a fraction", std::string("2.5\r\n"), 5, "English"},
        {"not a number", std::string("abc\r\n"), 5, "English"},
        {"huge", std::string(std::string(50, '9') + "\r\n"), 5, "English"},
        {"empty line first", std::string("\r\n3\r\n"), 5, "English"},
        {"Windows-1252 junk", std::string("\xE9\xE8\r\n"), 5, "English"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::int16_t number = 5;
        std::string name = "Dutch";
        readlanguagefile(c.bytes ? std::optional<std::string_view>(*c.bytes) : std::nullopt, number, name);
        EXPECT_EQ(number, c.expectedNumber);
        EXPECT_EQ(name, c.expectedName);
    }
}

TEST(NumlangFile, WrittenNumberReadsBack) {
    EXPECT_EQ(numlangText(5), "5\r\n");
    for (int lang = 0; lang < textedLanguages; ++lang) {
        std::int16_t number = -1;
        std::string name;
        const std::string text = numlangText(lang);
        readlanguagefile(std::string_view(text), number, name);
        EXPECT_EQ(number, lang);
        EXPECT_EQ(name, *languageName(lang));
    }
}

TEST(TextTables, LoadFillsColumnByLanguageAndRowAndCallsSettexts) {
    auto tables = std::make_unique<TextTables>();
    const std::string text = csv(textCsvRows);
    const std::string rules = csv(rulesCsvRows);
    ModuleTexts texts;
    std::string error;
    ASSERT_TRUE(loadtexttables(text, rules, *tables, 2, texts, &error)) << error;
    EXPECT_EQ(tables->texttable[0][1], "r1c0");
    EXPECT_EQ(tables->texttable[6][40], "r40c6");
    EXPECT_EQ(tables->rulestable[3][64], "r64c3");
    EXPECT_EQ(tables->texttable[0][0], "");
    EXPECT_EQ(tables->rulestable[0][0], "");
    EXPECT_EQ(tables->texttable[7][2], "");
    EXPECT_EQ(tables->texttable[0][41], "");
    // settexts ran for language 2.
    EXPECT_EQ(texts.oktext, "r4c2");
    EXPECT_EQ(texts.bluename, "r37c2");
    EXPECT_EQ(texts.yellowname, "r36c2");
    EXPECT_EQ(texts.pointstext, "r40c2");
}

TEST(TextTables, MissingOrShortFilesFailWithTheFileNamed) {
    struct Case {
        const char* name;
        std::optional<std::string> text;
        std::optional<std::string> rules;
        const char* fileInError;
    };
    std::string oneShortInRow3 = csv(textCsvRows);
    oneShortInRow3.erase(oneShortInRow3.find(",r3c6"), 5);
    std::string unclosedQuote = csv(rulesCsvRows);
    unclosedQuote.replace(unclosedQuote.find("r10c2"), 5, "\"r10c2");
    const std::vector<Case> cases = {
        {"text.csv missing", std::nullopt, csv(rulesCsvRows), "text\\text.csv"},
        {"rules.csv missing", csv(textCsvRows), std::nullopt, "text\\rules.csv"},
        {"text.csv one field short in row 3", oneShortInRow3, csv(rulesCsvRows), "text\\text.csv"},
        {"text.csv without its last row", csv(textCsvRows - 1), csv(rulesCsvRows), "text\\text.csv"},
        {"rules.csv with a quote never closed", csv(textCsvRows), unclosedQuote, "text\\rules.csv"},
        {"text.csv empty", std::string(), csv(rulesCsvRows), "text\\text.csv"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        auto tables = std::make_unique<TextTables>();
        ModuleTexts texts = englishModuleTexts();
        std::string error;
        const auto view = [](const std::optional<std::string>& s) {
            return s ? std::optional<std::string_view>(*s) : std::nullopt;
        };
        EXPECT_FALSE(loadtexttables(view(c.text), view(c.rules), *tables, 0, texts, &error));
        EXPECT_NE(error.find(c.fileInError), std::string::npos) << error;
        EXPECT_EQ(texts.oktext, "OK") << "settexts must not run after a failed load";
    }
}

TEST(TextTables, AnEighthColumnBecomesTheNextRowsFirst) {
    auto tables = std::make_unique<TextTables>();
    std::string rules = csv(rulesCsvRows);
    rules.insert(rules.find("\r\n"), ",extra");   // row 1 has eight fields
    ModuleTexts texts;
    ASSERT_TRUE(loadtexttables(csv(textCsvRows), rules, *tables, 0, texts));
    EXPECT_EQ(tables->rulestable[0][2], "extra");
    EXPECT_EQ(tables->rulestable[1][2], "r2c0");
    EXPECT_EQ(tables->rulestable[6][64], "r64c5");
}

TEST(TextTables, SettextsTakesTheLanguagesColumnAndRefusesNumbersOutsideTheTables) {
    auto tables = std::make_unique<TextTables>();
    ModuleTexts texts;
    ASSERT_TRUE(loadtexttables(csv(textCsvRows), csv(rulesCsvRows), *tables, 0, texts));
    EXPECT_EQ(texts.changelanguagetext, "r2c0");
    EXPECT_EQ(texts.noticetext, "r3c0");
    EXPECT_EQ(texts.exittext, "r5c0");
    EXPECT_EQ(texts.redname, "r40c0");
    EXPECT_EQ(texts.greenname, "r38c0");
    EXPECT_EQ(texts.bluewinstext, "r31c0");
    EXPECT_EQ(texts.yellowwinstext, "r34c0");
    EXPECT_EQ(texts.drawtext, "r35c0");
    EXPECT_EQ(texts.doublefendletext, "r36c0");
    EXPECT_EQ(texts.gameovertext, "r38c0");
    EXPECT_EQ(texts.solotimeouttext, "r39c0");

    ASSERT_TRUE(settexts(*tables, 12, texts));   // a named language without texts
    EXPECT_EQ(texts.oktext, "");
    texts.oktext = "kept";
    EXPECT_FALSE(settexts(*tables, 19, texts));
    EXPECT_FALSE(settexts(*tables, -1, texts));
    EXPECT_EQ(texts.oktext, "kept");
}

TEST(LanguageNames, HeadingThenFourteenRowsOfSeven) {
    std::string bytes = "h0,h1,h2,h3,h4,h5,h6\r\n";
    for (int row = 0; row < namedLanguages; ++row) {
        for (int c = 0; c < csvColumns; ++c) bytes += (c ? "," : "") + std::string("n") + std::to_string(row) + "w" + std::to_string(c);
        bytes += "\r\n";
    }
    LanguageTable table;
    std::string error;
    ASSERT_TRUE(readlanguagenames(bytes, table, &error)) << error;
    EXPECT_EQ(table[0][0], "n0w0");
    EXPECT_EQ(table[5][3], "n3w5");   // language 3 written in language 5
    EXPECT_EQ(table[6][13], "n13w6");
    EXPECT_EQ(table[7][0], "");

    const std::string shortFile = bytes.substr(0, bytes.rfind(",n13w6"));
    EXPECT_FALSE(readlanguagenames(shortFile, table, &error));
    EXPECT_NE(error.find("languages.csv"), std::string::npos);
    EXPECT_FALSE(readlanguagenames(std::nullopt, table, &error));
    EXPECT_NE(error.find("languages.csv"), std::string::npos);
}

}  // namespace
}  // namespace fendle
