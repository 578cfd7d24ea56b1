#include "text/messages.h"

#include "text/listinput.h"
#include "text/text_tables.h"

namespace fendle {

namespace {

constexpr Message everyMessage[] = {
    msg::languageNotSaved,
    msg::dataFolderMissing,
    msg::highscoreNotSaved,
    msg::gameNotSaved,
    msg::cannotGoOn,
    msg::fileMissing,
    msg::fileCutShort,
    msg::notAHexagon,
    msg::noSuchLanguage,
    msg::windowTitlefrm,
    msg::windowStartplay2,
    msg::windowStartautoplay2,
    msg::windowFen1,
    msg::windowHighscores,
    msg::windowLanguages,
    msg::windowTeacherGuide,
    msg::windowRules,
    msg::windowGrey,
    msg::countermarksNotSaved,
    msg::countermarksBox,
    msg::hexFree,
    msg::hexCounter,
    msg::computerName,
    msg::saidThrow,
    msg::saidMove,
    msg::saidFendle,
    msg::saidDoubleFendle,
    msg::saidIllegal,
    msg::saidOutOfTime,
    msg::saidPathBonus,
    msg::saidScores,
    msg::refuseNotOnBoard,
    msg::refuseCovered,
    msg::highscoreNameFor,
    msg::showHowButton,
    msg::howCannot,
    msg::howBest,
    msg::howRounded,
    msg::gameNotRecorded,
};

}  // namespace

std::span<const Message> allMessages() { return everyMessage; }

bool MessageTable::read(std::optional<std::string_view> bytes, std::string* error) {
    const auto fail = [error](std::string why) {
        if (error) *error = std::string(messagesCsvFile) + " " + std::move(why);
        return false;
    };
    if (!bytes) return fail("is missing");
    ListInput in(*bytes);
    std::string field;
    for (int column = 0; column <= csvColumns; ++column)
        if (!in.readString(field)) return fail("has no heading line");
    int line = 1;
    while (!in.atEnd()) {
        ++line;
        std::string key;
        if (!in.readString(key)) break;   // only blanks and line ends were left
        std::array<std::string, csvColumns> texts;
        for (std::string& t : texts)
            if (!in.readString(t)) return fail("ends inside line " + std::to_string(line));
        if (!key.empty()) rows_[key] = std::move(texts);
    }
    return true;
}

std::string MessageTable::text(const Message& message, int languagenumber, std::string_view arg) const {
    const std::string args[] = {std::string(arg)};
    return fillArguments(chosen(message, languagenumber), args);
}

std::string MessageTable::text(const Problem& problem, int languagenumber) const {
    return fillArguments(chosen(problem.message, languagenumber), problem.args);
}

std::string_view MessageTable::chosen(const Message& message, int languagenumber) const {
    std::string_view chosen = message.english;
    if (const auto it = rows_.find(message.key); it != rows_.end()) {
        const auto& texts = it->second;
        if (!texts[0].empty()) chosen = texts[0];
        if (languagenumber >= 0 && languagenumber < csvColumns && !texts[std::size_t(languagenumber)].empty())
            chosen = texts[std::size_t(languagenumber)];
    }
    return chosen;
}

std::optional<std::array<std::string, 7>> MessageTable::row(std::string_view key) const {
    const auto it = rows_.find(key);
    if (it == rows_.end()) return std::nullopt;
    return it->second;
}

std::string fillArguments(std::string_view text, std::span<const std::string> args) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char digit = i + 1 < text.size() ? text[i + 1] : 0;
        if (text[i] == '%' && digit >= '1' && digit <= '9' && std::size_t(digit - '1') < args.size()) {
            out += args[std::size_t(digit - '1')];
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

}  // namespace fendle
