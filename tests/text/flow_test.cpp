#include "text/flow.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace fendle::flow {
namespace {

// Words measured as letters of one width: 100 twips at the drawn size, 10
// less for each pixel the plain text loses, on lines 300 twips high.
struct Words {
    Box drawn;
    int english = 0;   // letters of the drawn words
    int letters = 0;   // letters of the page's words
    bool heading = false;
};

Size lettersIn(int letters, double letterWidth, double width) {
    if (letters == 0) return {};
    const int perLine = int(width / letterWidth);
    const int lines = (letters + perLine - 1) / perLine;
    return {lines * 300.0, std::min(letters, perLine) * letterWidth};
}

struct Case {
    const char* what;
    double pageHeight;
    std::vector<Words> texts;
    std::vector<Box> fixed;
    std::vector<Box> want;
    int shrink;
    bool fits = true;
};

TEST(Flow, TextsFollowEachOtherDownThePage) {
    const Case cases[] = {
        {"a longer translation pushes the next text down and keeps the drawn gap", 9000,
         {{{120, 600, 6000, 600}, 120, 180}, {{120, 1500, 6000, 300}, 30, 30}}, {},
         {{120, 585, 6000, 930}, {120, 1785, 3015, 330}}, 0},
        {"a picture beside a text narrows it to the margin", 9000,
         {{{120, 600, 11000, 300}, 110, 200}}, {{8000, 500, 2000, 2000}},
         {{120, 585, 7715, 930}}, 0},
        {"too tall at half the gaps and none: the plain text loses five pixels", 1000,
         {{{120, 100, 6000, 300}, 60, 120}, {{120, 1000, 6000, 300}, 60, 60}}, {},
         {{120, 85, 6000, 330}, {120, 415, 3015, 330}}, 5},
        {"too tall at the drawn gaps: half of them", 1500,
         {{{120, 100, 6000, 300}, 60, 120}, {{120, 1000, 6000, 300}, 60, 60}}, {},
         {{120, 85, 6000, 630}, {120, 985, 6000, 330}}, 0},
        {"a heading keeps to one line, wider than drawn", 9000,
         {{{120, 100, 1000, 300}, 40, 40, true}}, {}, {{120, 85, 4015, 330}}, 0},
        {"an empty text keeps its drawn box", 9000, {{{120, 100, 1000, 300}, 0, 0}}, {}, {{120, 85, 1000, 330}}, 0},
        {"what can't fit says so, at the most the text may lose", 200,
         {{{120, 100, 6000, 300}, 60, 60}}, {}, {{120, 85, 2415, 330}}, mostShrink, false},
    };
    for (const Case& c : cases) {
        Page page{12000, c.pageHeight, {}, {}};
        for (const Words& w : c.texts) page.texts.push_back({w.drawn, w.heading});
        for (const Box& b : c.fixed) page.fixed.push_back({b, b});
        const Result r = flow(page, [&](std::size_t k, bool english, int shrink, double width) {
            const Words& w = c.texts[k];
            return lettersIn(english ? w.english : w.letters, english ? 100.0 : 100.0 - 10 * shrink, width);
        });
        EXPECT_EQ(r.shrink, c.shrink) << c.what;
        EXPECT_EQ(r.fits, c.fits) << c.what;
        ASSERT_EQ(r.boxes.size(), c.want.size()) << c.what;
        for (std::size_t k = 0; k < c.want.size(); ++k) {
            const Box& b = r.boxes[k];
            EXPECT_EQ(b, c.want[k]) << c.what << ": text " << k << " at " << b.left << ", " << b.top << " " << b.width
                                    << " x " << b.height;
        }
    }
}

}  // namespace
}  // namespace fendle::flow
