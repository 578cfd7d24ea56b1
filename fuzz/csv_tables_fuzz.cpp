// The csv readers, numlang.txt and the text binding on any bytes, given as
// every text file at once: a load either fails with a message naming its
// file or fills the tables, and every screen's captions can then be built;
// the language read is one with texts, or none with the English name.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "fuzz/fuzz_check.h"
#include "text/binding.h"
#include "text/messages.h"
#include "text/text_tables.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const int language = data[0] % 21 - 1;   // -1 to 19: past both ends of the tables
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);

    static auto tables = std::make_unique<fendle::TextTables>();
    *tables = fendle::TextTables{};
    fendle::ModuleTexts texts = fendle::englishModuleTexts();
    fendle::Problem problem;
    const bool loaded = fendle::loadtexttables(bytes, bytes, *tables, language, texts, &problem);
    if (!loaded) {
        const std::string error = problem.english();
        FUZZ_CHECK(error.find(".csv") != std::string::npos || error.find("language") != std::string::npos);
    }
    if (loaded) FUZZ_CHECK(texts.oktext == fendle::textRow(*tables, language, 4));

    std::int16_t number = 99;
    std::string name;
    fendle::readlanguagefile(bytes, number, name);
    FUZZ_CHECK(number == 99 ? name == "English" : number >= 0 && number <= 6 && name == *fendle::languageName(number));

    fendle::LanguageTable names;
    if (!fendle::readlanguagenames(bytes, names, &problem)) FUZZ_CHECK(problem.english().find("languages.csv") != std::string::npos);

    fendle::MessageTable messages;
    std::string error;
    if (!messages.read(bytes, &error)) FUZZ_CHECK(error.find("messages.csv") != std::string::npos);
    for (const fendle::Message& m : fendle::allMessages()) FUZZ_CHECK(!messages.text(m, language, "x").empty());

    using fendle::binding::Screen;
    for (Screen s : {Screen::Titlefrm, Screen::Startplay2, Screen::Startautoplay2, Screen::fen1, Screen::highscores,
                     Screen::Fendlerules, Screen::Fendlerules2, Screen::Fendlerules2b, Screen::Fendlerules3,
                     Screen::Fendlerules4}) {
        for (int set = 0; set < 7; ++set) fendle::binding::textshow(s, language, *tables, texts, set);
        fendle::binding::layoutByLanguage(s, language);
    }
    fendle::binding::computerNoteCaption(language, data[0] % 3, *tables, texts.oktext);
    return 0;
}
