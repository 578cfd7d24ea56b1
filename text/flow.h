// Texts that follow each other down a page, each as tall as its words need:
// the flow of the rule pages. A page is drawn for its English words; in
// another language a text may need more lines or fewer, and the texts below
// it move down or up so that each keeps the gap the drawn page has above it.
// Where that runs off the page, the gaps shrink first, to half and then to
// the least room, and the plain text a pixel at a time after that.
//
// Plain C++ in twips. How many lines a text takes is the caller's: a
// measuring function gives the height of its words wrapped at a width.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace fendle::flow {

// One pixel of the page, in twips.
inline constexpr double pixel = 15;
// Least room between two texts: their boxes may touch, not overlap.
inline constexpr double minimumGap = 2 * pixel;
// Room kept between a text and what stands beside or below it.
inline constexpr double margin = 120;
// The plain text may lose at most this many pixels to fit.
inline constexpr int mostShrink = 6;
// A width no words fill: a heading measured on one line.
inline constexpr double unbounded = 100000 * pixel;

struct Box {
    double left = 0, top = 0, width = 0, height = 0;
    double right() const { return left + width; }
    double bottom() const { return top + height; }
    bool across(const Box& o) const { return left < o.right() && o.left < right(); }
    bool along(const Box& o) const { return top < o.bottom() && o.top < bottom(); }
    bool operator==(const Box&) const = default;
};

// A text that flows, as the drawn page places it. A heading stays on one
// line: it is as wide as its words, or as drawn.
struct Text {
    Box drawn;
    bool heading = false;
};

// A control that stays where the page puts it: where the drawn page has it,
// and where it stands now.
struct Fixed {
    Box drawn;
    Box now;
};

struct Page {
    double width = 0, height = 0;
    std::vector<Text> texts;   // in the order they follow each other
    std::vector<Fixed> fixed;
};

// The height of a text's words wrapped at `width`, and the width of its
// widest line, in twips: its English words at the drawn size (`english`),
// or its words in the page's language with the plain text `shrink` pixels
// smaller.
struct Size {
    double height = 0;
    double widest = 0;
};
using Measure = std::function<Size(std::size_t text, bool english, int shrink, double width)>;

struct Result {
    std::vector<Box> boxes;   // by text: where its words go
    int shrink = 0;           // pixels the plain text lost
    bool fits = false;        // false: the best the flow could do still overlaps or runs off
};

Result flow(const Page& page, const Measure& measure);

}  // namespace fendle::flow
