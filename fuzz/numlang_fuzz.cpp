// numlang.txt on any bytes: the language is one with texts, or left as it
// was with the English name.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/fuzz_check.h"
#include "text/text_tables.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::int16_t number = 99;
    std::string name;
    fendle::readlanguagefile(bytes, number, name);
    if (number == 99) {
        FUZZ_CHECK(name == "English");
    } else {
        FUZZ_CHECK(number >= 0 && number <= 6);
        FUZZ_CHECK(name == *fendle::languageName(number));
        std::int16_t again = 99;
        fendle::readlanguagefile(fendle::numlangText(number), again, name);
        FUZZ_CHECK(again == number);
    }
    return 0;
}
