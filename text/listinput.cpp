#include "text/listinput.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <system_error>

namespace fendle {

namespace {

// Length of the valid UTF-8 sequence starting at s[i], or 0.
std::size_t utf8SequenceLength(std::string_view s, std::size_t i) {
    const auto b0 = static_cast<unsigned char>(s[i]);
    if (b0 < 0x80) return 1;
    std::size_t len = 0;
    std::uint32_t cp = 0;
    if (b0 >= 0xC2 && b0 <= 0xDF) { len = 2; cp = b0 & 0x1F; }
    else if (b0 >= 0xE0 && b0 <= 0xEF) { len = 3; cp = b0 & 0x0F; }
    else if (b0 >= 0xF0 && b0 <= 0xF4) { len = 4; cp = b0 & 0x07; }
    else return 0;
    if (i + len > s.size()) return 0;
    for (std::size_t k = 1; k < len; ++k) {
        const auto b = static_cast<unsigned char>(s[i + k]);
        if ((b & 0xC0) != 0x80) return 0;
        cp = (cp << 6) | (b & 0x3F);
    }
    if ((len == 3 && cp < 0x800) || (len == 4 && (cp < 0x10000 || cp > 0x10FFFF)) ||
        (cp >= 0xD800 && cp <= 0xDFFF))
        return 0;
    return len;
}

void appendUtf8(std::string& out, std::uint32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

// Windows-1252 code points of the bytes 0x80 to 0x9F; the five undefined
// bytes keep their C1 value.
constexpr std::uint16_t cp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool isBlank(char ch) { return ch == ' ' || ch == '\t'; }
bool isLineEnd(char ch) { return ch == '\r' || ch == '\n'; }

}  // namespace

std::string decodeText(std::string_view bytes) {
    // A byte order mark is dropped whatever the rest of the file is.
    if (bytes.size() >= 3 && bytes.substr(0, 3) == "\xEF\xBB\xBF") bytes.remove_prefix(3);
    bool valid = true;
    for (std::size_t i = 0; i < bytes.size();) {
        const std::size_t len = utf8SequenceLength(bytes, i);
        if (len == 0) { valid = false; break; }
        i += len;
    }
    if (valid) return std::string(bytes);
    std::string out;
    out.reserve(bytes.size() * 2);
    for (const char ch : bytes) {
        const auto b = static_cast<unsigned char>(ch);
        if (b < 0x80) out += ch;
        else if (b < 0xA0) appendUtf8(out, cp1252High[b - 0x80]);
        else appendUtf8(out, b);
    }
    return out;
}

ListInput::ListInput(std::string_view bytes) : text_(decodeText(bytes)) {}

void ListInput::skipBlanks() {
    while (pos_ < text_.size() && isBlank(text_[pos_])) ++pos_;
}

void ListInput::consumeLineEnd() {
    if (pos_ < text_.size() && text_[pos_] == '\r') ++pos_;
    if (pos_ < text_.size() && text_[pos_] == '\n') ++pos_;
}

// Behind a closing quote or a number: blanks, then one comma or line end.
void ListInput::consumeSeparatorAfter() {
    skipBlanks();
    if (pos_ >= text_.size()) return;
    if (text_[pos_] == ',') ++pos_;
    else if (isLineEnd(text_[pos_])) consumeLineEnd();
}

bool ListInput::readString(std::string& out) {
    skipBlanks();
    if (pos_ >= text_.size()) return false;
    out.clear();
    if (text_[pos_] == '"') {
        const std::size_t close = text_.find('"', pos_ + 1);
        if (close == std::string::npos) {   // an unclosed quote runs to the end
            out = text_.substr(pos_ + 1);
            pos_ = text_.size();
            return true;
        }
        out = text_.substr(pos_ + 1, close - pos_ - 1);
        pos_ = close + 1;
        consumeSeparatorAfter();
        return true;
    }
    std::size_t end = pos_;
    while (end < text_.size() && text_[end] != ',' && !isLineEnd(text_[end])) ++end;
    std::size_t last = end;
    while (last > pos_ && isBlank(text_[last - 1])) --last;
    out = text_.substr(pos_, last - pos_);
    pos_ = end;
    if (pos_ < text_.size()) {
        if (text_[pos_] == ',') ++pos_;
        else consumeLineEnd();
    }
    return true;
}

bool ListInput::readNumber(double& out) {
    skipBlanks();
    if (pos_ >= text_.size()) return false;
    if (text_[pos_] == '"') {   // a quoted number, "12" or " 12 "
        std::string field;
        readString(field);
        std::string_view v(field);
        while (!v.empty() && isBlank(v.front())) v.remove_prefix(1);
        while (!v.empty() && isBlank(v.back())) v.remove_suffix(1);
        out = numberValue(v);
        return true;
    }
    std::size_t end = pos_;
    while (end < text_.size() && text_[end] != ',' && !isBlank(text_[end]) && !isLineEnd(text_[end])) ++end;
    out = numberValue(std::string_view(text_).substr(pos_, end - pos_));
    pos_ = end;
    consumeSeparatorAfter();
    return true;
}

bool ListInput::readInt16(std::int16_t& out) {
    double v = 0;
    if (!readNumber(v)) return false;
    v = roundHalfEven(v);
    if (!(v >= -32768.0 && v <= 32767.0)) return false;
    out = static_cast<std::int16_t>(v);
    return true;
}

bool parseNumber(std::string_view f, double& out) {
    std::size_t i = 0;
    if (i < f.size() && (f[i] == '+' || f[i] == '-')) ++i;
    std::size_t digits = 0;
    while (i < f.size() && f[i] >= '0' && f[i] <= '9') { ++i; ++digits; }
    if (i < f.size() && f[i] == '.') {
        ++i;
        while (i < f.size() && f[i] >= '0' && f[i] <= '9') { ++i; ++digits; }
    }
    if (digits == 0 || i != f.size()) return false;
    // Read the same whatever the locale the program runs in: "13.5" is
    // thirteen and a half on a desktop whose numbers have a decimal comma too.
    // However long the digits run, the value is kept: a number too large for
    // its variable must fail there, not pass as 0.
    const std::size_t sign = f[0] == '+' ? 1 : 0;
    const auto read = std::from_chars(f.data() + sign, f.data() + f.size(), out);
    if (read.ec == std::errc::result_out_of_range) {
        const bool large = f.find_first_of("123456789") < std::min(f.find('.'), f.size());
        out = !large ? 0.0 : f[0] == '-' ? -HUGE_VAL : HUGE_VAL;
    }
    return true;
}

double numberValue(std::string_view f) {
    double v = 0.0;
    return parseNumber(f, v) ? v : 0.0;
}

double roundHalfEven(double v) { return std::nearbyint(v); }   // default rounding mode: to even

std::string printForm(long value) {
    // The magnitude is taken unsigned, so that the most negative value has one.
    const unsigned long magnitude = value < 0 ? 0UL - static_cast<unsigned long>(value) : static_cast<unsigned long>(value);
    std::string out(1, value < 0 ? '-' : ' ');
    out += std::to_string(magnitude);
    out += ' ';
    return out;
}

}  // namespace fendle
