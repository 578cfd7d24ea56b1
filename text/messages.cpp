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
    msg::windowTitlefrm,
    msg::windowStartplay2,
    msg::windowStartautoplay2,
    msg::windowFen1,
    msg::windowHighscores,
    msg::windowLanguages,
    msg::windowTeacherGuide,
    msg::windowRules,
    msg::windowGrey,
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
    std::string_view chosen = message.english;
    if (const auto it = rows_.find(message.key); it != rows_.end()) {
        const auto& texts = it->second;
        if (!texts[0].empty()) chosen = texts[0];
        if (languagenumber >= 0 && languagenumber < csvColumns && !texts[std::size_t(languagenumber)].empty())
            chosen = texts[std::size_t(languagenumber)];
    }
    return fillArgument(chosen, arg);
}

std::optional<std::array<std::string, 7>> MessageTable::row(std::string_view key) const {
    const auto it = rows_.find(key);
    if (it == rows_.end()) return std::nullopt;
    return it->second;
}

std::string fillArgument(std::string_view text, std::string_view arg) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.substr(i, 2) == "%1") {
            out += arg;
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

}  // namespace fendle
