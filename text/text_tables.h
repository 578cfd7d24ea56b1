// The language tables: texttable and rulestable from text\text.csv and
// text\rules.csv, the language names from text\languages.csv, the chosen
// language in numlang.txt, and settexts, which copies the current language's
// most used texts into the module text variables.
//
// Every reader takes the bytes of its file, or nothing when the file is
// missing, so that the screens decide where files come from and the tests can
// feed any bytes.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "text/messages.h"
#include "text/module_texts.h"

namespace fendle {

// Room for 19 languages: a language number meets this bound when it indexes
// a table. Languages 0 to 6 have texts, 7 to 13 only a name.
inline constexpr int tableLanguages = 19;
inline constexpr int textedLanguages = 7;
inline constexpr int namedLanguages = 14;

// File names as the game writes them.
inline constexpr std::string_view textCsvFile = "text\\text.csv";
inline constexpr std::string_view rulesCsvFile = "text\\rules.csv";
inline constexpr std::string_view languagesCsvFile = "text\\languages.csv";
inline constexpr std::string_view numlangFile = "numlang.txt";

// Rows of the csv files that the program reads: text.csv rows 1 to 40,
// rules.csv rows 1 to 64, seven columns (one per language 0 to 6) each.
inline constexpr int textCsvRows = 40;
inline constexpr int rulesCsvRows = 64;
inline constexpr int csvColumns = 7;

// Indexed [language][row]. Row 0 of both tables and every language from 7 up
// stay empty strings.
struct TextTables {
    std::array<std::array<std::string, 501>, tableLanguages> texttable;
    std::array<std::array<std::string, 101>, tableLanguages> rulestable;
};

// The language screen's names: [language the name is written in][language
// named]. Rows 0 to 13 of languages 0 to 6 are filled.
using LanguageTable = std::array<std::array<std::string, 21>, tableLanguages>;

// English name of language 0 to 13 ("English" ... "Portuguese"), else
// nothing.
std::optional<std::string_view> languageName(int languagenumber);

// readlanguagefile: the language number in numlang.txt. A file that is
// missing, empty, or holds anything but a whole number from 0 to 6 leaves
// `languagenumber` as it was and sets `languagename` to "English".
void readlanguagefile(std::optional<std::string_view> numlang, std::int16_t& languagenumber,
                      std::string& languagename);

// The language a user's locale asks for, where numlang.txt holds no choice
// yet: read as gettext reads it, the list in LANGUAGE ("fr_CA:fr:en") unless
// the locale is "C" or "POSIX", else the first of LC_ALL, LC_MESSAGES and
// LANG that is set. The first of languages 0 to 6 named there wins; 0,
// English, when none is. `variable` gives the value of an environment
// variable, empty when it is not set.
int localeLanguage(const std::function<std::string(const char* variable)>& variable);

// The one line of numlang.txt: the digits of the number and CR LF; and its
// writing at `path`, whole or not at all (false leaves the old file).
std::string numlangText(int languagenumber);
bool writeNumlang(const std::string& path, int languagenumber, std::string* error = nullptr);

// loadtexttables: reads text.csv (rows 1 to 40, seven fields each, into
// texttable[column][row]), then rules.csv (rows 1 to 64), then calls
// settexts. A missing file or one that ends before its last field stops the
// load there: the result is false, `problem` says which file, the fields read
// up to then stay in the tables, and settexts does not run.
bool loadtexttables(std::optional<std::string_view> textCsv, std::optional<std::string_view> rulesCsv,
                    TextTables& tables, int languagenumber, ModuleTexts& texts, Problem* problem = nullptr);

// settexts: copies the current language's texts into the module text
// variables. A language number outside 0 to 18 indexes nothing: the texts
// are left as they were and the result is false.
bool settexts(const TextTables& tables, int languagenumber, ModuleTexts& texts);

// readlanguagenames: a heading line of seven fields, then rows 0 to 13 of
// seven columns into languagetable. Missing file or too few fields: false,
// with the fields read so far kept.
bool readlanguagenames(std::optional<std::string_view> languagesCsv, LanguageTable& languagetable,
                       Problem* problem = nullptr);

// Row `row` of texttable or rulestable in `language`; empty for a language
// or row outside the table.
const std::string& textRow(const TextTables& tables, int language, int row);
const std::string& rulesRow(const TextTables& tables, int language, int row);

}  // namespace fendle
