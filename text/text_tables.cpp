#include "text/text_tables.h"

#include "text/file_io.h"
#include "text/listinput.h"
#include "text/messages.h"

#include <algorithm>

namespace fendle {

namespace {

constexpr std::array<std::string_view, namedLanguages> languageNames = {
    "English", "French", "German", "Spanish", "Italian", "Dutch", "Welsh",
    "Danish", "Finnish", "Hungarian", "Norwegian", "Swedish", "Polish", "Portuguese"};

bool failure(Problem* problem, Message message, std::vector<std::string> args) {
    if (problem) *problem = {message, std::move(args)};
    return false;
}

// Reads rows 1 to `rows` of seven fields into table[column][row].
template <std::size_t N>
bool readCsvTable(std::optional<std::string_view> bytes, std::string_view fileName, int rows,
                  std::array<std::array<std::string, N>, tableLanguages>& table, Problem* problem) {
    if (!bytes) return failure(problem, msg::fileMissing, {std::string(fileName)});
    ListInput in(*bytes);
    for (int row = 1; row <= rows; ++row) {
        for (int column = 0; column < csvColumns; ++column) {
            if (!in.readString(table[static_cast<std::size_t>(column)][static_cast<std::size_t>(row)])) {
                const int have = (row - 1) * csvColumns + column;
                return failure(problem, msg::fileCutShort,
                               {std::string(fileName), std::to_string(have), std::to_string(rows * csvColumns)});
            }
        }
    }
    return true;
}

const std::string& emptyText() {
    static const std::string empty;
    return empty;
}

}  // namespace

std::optional<std::string_view> languageName(int languagenumber) {
    if (languagenumber < 0 || languagenumber >= namedLanguages) return std::nullopt;
    return languageNames[static_cast<std::size_t>(languagenumber)];
}

void readlanguagefile(std::optional<std::string_view> numlang, std::int16_t& languagenumber,
                      std::string& languagename) {
    // Only a whole number from 0 to 6 is taken. Anything else (an empty or
    // damaged file, a foreign file, a number of a language without texts) is
    // treated as if the file were missing: English, and the language number
    // left as it was, which at start-up counts as 0. A user thus never gets
    // the blank screens that a language without texts would give.
    languagename = "English";
    if (!numlang) return;
    ListInput in(*numlang);
    std::string field;
    if (!in.readString(field)) return;
    double value = 0;
    if (!parseNumber(field, value)) return;
    if (!(value >= 0 && value < textedLanguages) || value != static_cast<double>(static_cast<int>(value))) return;
    languagenumber = static_cast<std::int16_t>(value);
    languagename = *languageName(languagenumber);
}

int localeLanguage(const std::function<std::string(const char* variable)>& variable) {
    // Language 0 to 6 by its two-letter code.
    static constexpr std::array<std::string_view, textedLanguages> codes = {"en", "fr", "de", "es", "it", "nl", "cy"};
    std::string locale;
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (locale = variable(name); !locale.empty()) break;
    std::string asked = locale;
    if (locale.empty() || locale == "C" || locale == "POSIX") asked.clear();
    else if (std::string list = variable("LANGUAGE"); !list.empty()) asked = list;
    // "fr_FR.UTF-8@euro:de" -> "fr", "de"
    for (std::size_t start = 0; start < asked.size();) {
        const std::size_t end = std::min(asked.find(':', start), asked.size());
        const std::string_view entry(asked.data() + start, end - start);
        const std::string_view code = entry.substr(0, entry.find_first_of("_.@"));
        for (std::size_t i = 0; i < codes.size(); ++i)
            if (code == codes[i]) return int(i);
        start = end + 1;
    }
    return 0;
}

std::string numlangText(int languagenumber) {
    return std::to_string(languagenumber) + "\r\n";
}

bool writeNumlang(const std::string& path, int languagenumber, std::string* error) {
    return writeFileAtomic(path, numlangText(languagenumber), error);
}

bool loadtexttables(std::optional<std::string_view> textCsv, std::optional<std::string_view> rulesCsv,
                    TextTables& tables, int languagenumber, ModuleTexts& texts, Problem* problem) {
    if (!readCsvTable(textCsv, textCsvFile, textCsvRows, tables.texttable, problem)) return false;
    if (!readCsvTable(rulesCsv, rulesCsvFile, rulesCsvRows, tables.rulestable, problem)) return false;
    if (!settexts(tables, languagenumber, texts))
        return failure(problem, msg::noSuchLanguage, {std::to_string(languagenumber)});
    return true;
}

bool settexts(const TextTables& tables, int languagenumber, ModuleTexts& texts) {
    if (languagenumber < 0 || languagenumber >= tableLanguages) return false;
    const auto& t = tables.texttable[static_cast<std::size_t>(languagenumber)];
    const auto& r = tables.rulestable[static_cast<std::size_t>(languagenumber)];
    texts.changelanguagetext = t[2];
    texts.noticetext = t[3];
    texts.oktext = t[4];
    texts.exittext = t[5];
    // The player colours are the zone colour names of rule page 3.
    texts.bluename = r[37];
    texts.redname = r[40];
    texts.greenname = r[38];
    texts.yellowname = r[36];
    texts.bluewinstext = t[31];
    texts.redwinstext = t[32];
    texts.greenwinstext = t[33];
    texts.yellowwinstext = t[34];
    texts.drawtext = t[35];
    texts.doublefendletext = t[36];
    texts.gameovertext = t[38];
    texts.solotimeouttext = t[39];
    texts.pointstext = t[40];
    return true;
}

bool readlanguagenames(std::optional<std::string_view> languagesCsv, LanguageTable& languagetable,
                       Problem* problem) {
    if (!languagesCsv) return failure(problem, msg::fileMissing, {std::string(languagesCsvFile)});
    ListInput in(*languagesCsv);
    const int count = csvColumns + namedLanguages * csvColumns;
    int have = 0;
    const auto shortFile = [&] {
        return failure(problem, msg::fileCutShort,
                       {std::string(languagesCsvFile), std::to_string(have), std::to_string(count)});
    };
    std::string heading;
    for (int column = 0; column < csvColumns; ++column, ++have)
        if (!in.readString(heading)) return shortFile();
    for (int row = 0; row < namedLanguages; ++row)
        for (int column = 0; column < csvColumns; ++column, ++have)
            if (!in.readString(languagetable[static_cast<std::size_t>(column)][static_cast<std::size_t>(row)]))
                return shortFile();
    return true;
}

const std::string& textRow(const TextTables& tables, int language, int row) {
    if (language < 0 || language >= tableLanguages || row < 0 || row > 500) return emptyText();
    return tables.texttable[static_cast<std::size_t>(language)][static_cast<std::size_t>(row)];
}

const std::string& rulesRow(const TextTables& tables, int language, int row) {
    if (language < 0 || language >= tableLanguages || row < 0 || row > 100) return emptyText();
    return tables.rulestable[static_cast<std::size_t>(language)][static_cast<std::size_t>(row)];
}

}  // namespace fendle
