// The one reader of the program's text files. Every file is read field by
// field with the same rules:
//  - blanks in front of a field are skipped; a line end there is not: it
//    ends an empty field, so that an empty line reads as "" or 0;
//  - a field that begins with a double quote runs to the next double quote
//    (commas and line ends included); the separator behind it is consumed;
//  - any other field runs to the next comma or line end, which is consumed;
//  - two commas in a row, or an empty line, give an empty field;
//  - a number ends at a comma, a blank or a line end; blanks behind it and
//    then one comma or line end are consumed with it, so that " 123 " and a
//    line end read as one field; a field that is not a number reads as 0.
// Reading past the end of the data is a failure, reported by a false result;
// nothing is ever read outside the buffer.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace fendle {

// Text files are UTF-8; bytes that are not valid UTF-8 are taken as
// Windows-1252 and converted. The result is always valid UTF-8.
std::string decodeText(std::string_view bytes);

class ListInput {
public:
    // Takes the raw bytes of a file (decoded as above).
    explicit ListInput(std::string_view bytes);

    // Reads one field as text. False when the data has ended.
    bool readString(std::string& out);
    // Reads one field as a number. False when the data has ended.
    bool readNumber(double& out);
    // Reads a number into a signed 16-bit variable: rounded half to even;
    // false at the end of the data or when the value does not fit.
    bool readInt16(std::int16_t& out);

    bool atEnd() const { return pos_ >= text_.size(); }

private:
    void skipBlanks();
    void consumeLineEnd();
    void consumeSeparatorAfter();

    std::string text_;
    std::size_t pos_ = 0;
};

// Number parsing shared by the readers. A field is a number when it is
// entirely a decimal number: optional sign, digits, optional fraction.
// parseNumber gives false for anything else; numberValue gives its value, or
// 0 when it is not a number.
bool parseNumber(std::string_view field, double& out);
double numberValue(std::string_view field);

// Rounds to the nearest whole number, an exact half going to the even one.
double roundHalfEven(double v);

// A number as the high-score file prints it: a blank (or the minus sign) in
// front of the digits and a blank behind them.
std::string printForm(long value);

}  // namespace fendle
