#include "text/listinput.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace fendle {
namespace {

// One read of a field: 'S' as text, 'N' as a number. "#end" expects the read
// to fail because the data has ended.
struct ReadCase {
    const char* name;
    std::string bytes;
    std::string reads;
    std::vector<std::string> expected;
};

TEST(ListInput, ReadsFieldsByTheRulesOfTheTextFiles) {
    const std::vector<ReadCase> cases = {
        {"quoted field keeps its commas", "\"a, b, c\",d\r\n", "SSS", {"a, b, c", "d", "#end"}},
        {"quoted field keeps its line ends", "\"one\r\ntwo\",x", "SS", {"one\r\ntwo", "x"}},
        {"quoted field keeps its leading blank", "\" Set Level\",x", "SS", {" Set Level", "x"}},
        {"blanks then line end behind a closing quote", "\"a\"  \r\nb", "SSS", {"a", "b", "#end"}},
        {"blanks in front of a field are skipped", "  a,   b  ,c", "SSS", {"a", "b", "c"}},
        {"two commas give an empty field", "a,,b", "SSSS", {"a", "", "b", "#end"}},
        {"short row pulls the next row forward", "a,b\r\nc,d,e\r\n", "SSSSSS", {"a", "b", "c", "d", "e", "#end"}},
        {"eighth column becomes the next row's first", "a,b,x\r\nc,d\r\n", "SSSSSS", {"a", "b", "x", "c", "d", "#end"}},
        {"missing closing quote swallows the rest", "\"abc,d\r\ne,f", "SS", {"abc,d\r\ne,f", "#end"}},
        {"empty lines are empty numbers", "1\r\n\r\n\r\n2\r\n", "NNNNN", {"1", "0", "0", "2", "#end"}},
        {"empty lines are empty texts", "a\r\n\r\nb\r\n", "SSSS", {"a", "", "b", "#end"}},
        {"a line of blanks is an empty field", "a\r\n   \r\nb", "SSS", {"a", "", "b"}},
        {"line feeds alone end lines", "1\n\n2\n", "NNNN", {"1", "0", "2", "#end"}},
        {"print form with CR LF is one field each", " 123 \r\n-45 \r\n 0 \r\n", "NNNN", {"123", "-45", "0", "#end"}},
        {"name then print form score", "Ann\r\n 250 \r\n\r\n 0 \r\n", "SNSNS", {"Ann", "250", "", "0", "#end"}},
        {"a number ends at a blank", "12 34,5", "NNN", {"12", "34", "5"}},
        {"a non-number reads as 0", "abc,12x,7,-,.", "NNNNN", {"0", "0", "7", "0", "0"}},
        {"fractions and signs", "2.5,-3.25,+4,.5", "NNNN", {"2.5", "-3.25", "4", "0.5"}},
        {"quoted numbers", "\"12\",\" 7 \",\"x\"", "NNN", {"12", "7", "0"}},
        {"empty data", "", "SN", {"#end", "#end"}},
        {"trailing comma at the end of the data", "a,", "SS", {"a", "#end"}},
        {"empty quoted field", "\"\",x", "SS", {"", "x"}},
        {"Windows-1252 bytes", "caf\xE9,\x93q\x94,\x80 5", "SSS", {"caf\xC3\xA9", "\xE2\x80\x9Cq\xE2\x80\x9D", "\xE2\x82\xAC 5"}},
        {"UTF-8 is kept as it is", "caf\xC3\xA9,\xE2\x80\x99", "SS", {"caf\xC3\xA9", "\xE2\x80\x99"}},
        {"one bad byte makes the whole file Windows-1252", "\xC3\xA9,\xE9", "SS", {"\xC3\x83\xC2\xA9", "\xC3\xA9"}},
        {"byte order mark of UTF-8 is dropped", "\xEF\xBB\xBF" "a,b", "SS", {"a", "b"}},
        {"byte order mark dropped in a Windows-1252 file", "\xEF\xBB\xBF" "a,\xE9", "SS", {"a", "\xC3\xA9"}},
    };
    for (const ReadCase& c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_EQ(c.reads.size(), c.expected.size());
        ListInput in(c.bytes);
        for (std::size_t k = 0; k < c.reads.size(); ++k) {
            std::string got;
            double v = -999;
            const bool ok = c.reads[k] == 'S' ? in.readString(got) : in.readNumber(v);
            if (c.reads[k] == 'N') got = (std::ostringstream() << v).str();
            EXPECT_EQ(ok ? got : "#end", c.expected[k]) << "read " << k;
        }
    }
}

TEST(ListInput, SixteenBitNumbersRoundHalfToEvenAndFailWhenTooLarge) {
    struct Case { std::string field; bool fits; int value; };
    const Case cases[] = {
        {"32767", true, 32767}, {"-32768", true, -32768}, {"32768", false, 0}, {"-32769", false, 0},
        {"2.5", true, 2}, {"3.5", true, 4}, {"-2.5", true, -2}, {"32767.4", true, 32767}, {"32767.5", false, 0},
        {"", true, 0}, {"abc", true, 0}, {std::string(70, '9'), false, 0}, {std::string(80, '0') + "7", true, 7},
        {std::string(400, '9'), false, 0}, {"0." + std::string(400, '0') + "1", true, 0}, {"+3.5", true, 4},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.field.substr(0, 20));
        ListInput in(c.field + "\r\n");
        std::int16_t v = 12345;
        EXPECT_EQ(in.readInt16(v), c.fits);
        EXPECT_EQ(c.fits ? int(v) : 0, c.value);
    }
}

// A desktop whose numbers have a decimal comma reads the files' points as
// points: the reader follows no locale.
TEST(ListInput, NumbersReadTheSameWhateverTheLocale) {
    const std::string folder = ::testing::TempDir() + "locales";
    const std::string make = "mkdir -p " + folder + " && localedef -i de_DE -f UTF-8 " + folder + "/de_DE.UTF-8 2>/dev/null";
    if (std::system(make.c_str()) != 0) GTEST_SKIP() << "no German locale can be made here (localedef, package locales)";
    setenv("LOCPATH", folder.c_str(), 1);
    ASSERT_NE(std::setlocale(LC_NUMERIC, "de_DE.UTF-8"), nullptr);
    ASSERT_EQ(std::strtod("13,5", nullptr), 13.5);   // the C library reads a comma now
    ListInput in("13.5\r\n");
    double v = 0;
    EXPECT_TRUE(in.readNumber(v));
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(v, 13.5);
}

}  // namespace
}  // namespace fendle
