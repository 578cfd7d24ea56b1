#include "tools/bold_face.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <stdexcept>
#include <vector>

namespace fendle::font {

namespace {

// A read past the end of a table: the file is not what it claims to be.
struct Malformed : std::runtime_error {
    Malformed() : std::runtime_error("malformed font") {}
};

struct Bytes {
    std::string_view data;

    void need(std::size_t at, std::size_t n) const {
        if (at > data.size() || n > data.size() - at) throw Malformed();
    }
    std::uint8_t u8(std::size_t at) const {
        need(at, 1);
        return static_cast<std::uint8_t>(data[at]);
    }
    std::uint16_t u16(std::size_t at) const { return static_cast<std::uint16_t>(u8(at) << 8 | u8(at + 1)); }
    std::int16_t i16(std::size_t at) const { return static_cast<std::int16_t>(u16(at)); }
    std::uint32_t u32(std::size_t at) const { return std::uint32_t(u16(at)) << 16 | u16(at + 2); }
    Bytes sub(std::size_t at, std::size_t n) const {
        need(at, n);
        return Bytes{data.substr(at, n)};
    }
};

std::uint32_t tagOf(std::string_view t) {
    return std::uint32_t(std::uint8_t(t[0])) << 24 | std::uint32_t(std::uint8_t(t[1])) << 16 |
           std::uint32_t(std::uint8_t(t[2])) << 8 | std::uint32_t(std::uint8_t(t[3]));
}

struct Point {
    double x, y;
    bool on;
};

struct Outline {
    std::vector<Point> points;
    std::vector<int> ends;   // index of the last point of each contour
};

// What one outline can hold in the glyph format written below, and the
// largest coordinate whose step to any other still fits its 16 bits.
constexpr std::size_t maxPoints = 0xFFFF, maxContours = 0x7FFF;
constexpr long maxCoordinate = 0x3FFF;
// The work that fitting a face may take, in glyphs and points copied: the
// game's two fonts need about 67,000; a damaged composite glyph that names
// its parts over and over would ask for billions.
constexpr std::size_t maxWork = std::size_t(1) << 18;

// What of a TrueType face this code reads: its tables, the glyph outlines,
// the advances and the character map.
class Face {
public:
    // `work`: what the faces of one fitting have spent so far.
    Face(std::string_view file, std::size_t& work) : file_{file}, work_{work} {
        const std::uint16_t count = file_.u16(4);
        std::size_t bytes = 0;
        for (std::uint16_t i = 0; i < count; ++i) {
            const std::size_t rec = 12 + 16 * std::size_t(i);
            const std::uint32_t tag = file_.u32(rec);
            const Bytes t = file_.sub(file_.u32(rec + 8), file_.u32(rec + 12));
            // Tables lie side by side; tables laid over each other would be
            // copied into the face written once each.
            bytes += t.data.size();
            if (bytes > file.size()) throw Malformed();
            tables_[tag] = t;
        }
        const Bytes head = table("head");
        unitsPerEm_ = head.u16(18);
        const bool longLoca = head.i16(50) != 0;
        glyphCount_ = table("maxp").u16(4);
        metricCount_ = table("hhea").u16(34);
        if (unitsPerEm_ == 0 || metricCount_ == 0 || glyphCount_ == 0) throw Malformed();
        const Bytes loca = table("loca");
        for (std::size_t g = 0; g <= std::size_t(glyphCount_); ++g)
            loca_.push_back(longLoca ? loca.u32(4 * g) : std::uint32_t(loca.u16(2 * g)) * 2);
        glyf_ = table("glyf");
        hmtx_ = table("hmtx");
        readCmap();
    }

    const std::map<std::uint32_t, Bytes>& tables() const { return tables_; }
    Bytes table(std::string_view tag) const {
        const auto it = tables_.find(tagOf(tag));
        if (it == tables_.end()) throw Malformed();
        return it->second;
    }
    int unitsPerEm() const { return unitsPerEm_; }
    int glyphCount() const { return glyphCount_; }
    int metricCount() const { return metricCount_; }
    int advance(int g) const { return hmtx_.u16(4 * std::size_t(std::min(g, metricCount_ - 1))); }
    const std::map<std::uint32_t, int>& characters() const { return cmap_; }
    int glyphFor(std::uint32_t ch) const {
        const auto it = cmap_.find(ch);
        return it == cmap_.end() ? 0 : it->second;
    }

    // The outline of glyph g with its components resolved into plain contours.
    Outline outline(int g) const {
        Outline out;
        append(g, out, 0);
        return out;
    }

private:
    Bytes glyph(int g) const {
        if (g < 0 || g >= glyphCount_) throw Malformed();
        const std::uint32_t from = loca_[std::size_t(g)], to = loca_[std::size_t(g) + 1];
        if (to < from) throw Malformed();
        return glyf_.sub(from, to - from);
    }

    void spend(std::size_t work) const {
        work_ += work;
        if (work_ > maxWork) throw Malformed();
    }

    // Adds n points, and the contours that end at `ends`, to `out`.
    template <typename Transform>
    void add(Outline& out, const std::vector<Point>& points, const std::vector<int>& ends, Transform at) const {
        spend(points.size());
        if (out.points.size() + points.size() > maxPoints || out.ends.size() + ends.size() > maxContours)
            throw Malformed();
        const int base = int(out.points.size());
        for (const Point& p : points) out.points.push_back(at(p));
        for (int e : ends) out.ends.push_back(base + e);
    }

    void append(int g, Outline& out, int depth) const {
        if (depth > 8) throw Malformed();   // a component that contains itself
        spend(1);
        const Bytes b = glyph(g);
        if (b.data.empty()) return;
        const int contours = b.i16(0);
        if (contours >= 0) appendSimple(b, contours, out);
        else appendComposite(b, out, depth);
    }

    void appendSimple(const Bytes& b, int contours, Outline& out) const {
        if (contours == 0) return;
        std::vector<int> ends;
        for (int c = 0; c < contours; ++c) {
            ends.push_back(b.u16(10 + 2 * std::size_t(c)));
            if (c > 0 && ends[std::size_t(c)] < ends[std::size_t(c) - 1]) throw Malformed();
        }
        const std::size_t count = std::size_t(ends.back()) + 1;
        std::size_t at = 10 + 2 * std::size_t(contours);
        at += 2 + b.u16(at);   // the instructions are not kept
        std::vector<std::uint8_t> flags;
        while (flags.size() < count) {
            const std::uint8_t f = b.u8(at++);
            flags.push_back(f);
            if (f & 8) {
                for (int r = b.u8(at++); r > 0 && flags.size() < count; --r) flags.push_back(f);
            }
        }
        auto coordinates = [&](std::uint8_t shortBit, std::uint8_t sameBit) {
            std::vector<double> v;
            int value = 0;
            for (std::uint8_t f : flags) {
                if (f & shortBit) {
                    const int d = b.u8(at++);
                    value += (f & sameBit) ? d : -d;
                } else if (!(f & sameBit)) {
                    value += b.i16(at);
                    at += 2;
                }
                v.push_back(value);
            }
            return v;
        };
        const std::vector<double> xs = coordinates(2, 16);
        const std::vector<double> ys = coordinates(4, 32);
        std::vector<Point> points;
        for (std::size_t i = 0; i < count; ++i) points.push_back({xs[i], ys[i], (flags[i] & 1) != 0});
        add(out, points, ends, [](const Point& p) { return p; });
    }

    void appendComposite(const Bytes& b, Outline& out, int depth) const {
        constexpr std::uint16_t argsAreWords = 0x1, argsAreXY = 0x2, haveScale = 0x8, moreComponents = 0x20,
                                haveXYScale = 0x40, haveTwoByTwo = 0x80, scaledOffset = 0x800, unscaledOffset = 0x1000;
        auto f2dot14 = [&](std::size_t at) { return b.i16(at) / 16384.0; };
        std::size_t at = 10;
        std::uint16_t flags = 0;
        do {
            flags = b.u16(at);
            const int component = b.u16(at + 2);
            at += 4;
            int arg1, arg2;
            if (flags & argsAreWords) {
                arg1 = (flags & argsAreXY) ? b.i16(at) : b.u16(at);
                arg2 = (flags & argsAreXY) ? b.i16(at + 2) : b.u16(at + 2);
                at += 4;
            } else {
                arg1 = (flags & argsAreXY) ? std::int8_t(b.u8(at)) : b.u8(at);
                arg2 = (flags & argsAreXY) ? std::int8_t(b.u8(at + 1)) : b.u8(at + 1);
                at += 2;
            }
            double xx = 1, yx = 0, xy = 0, yy = 1;   // x' = xx x + xy y, y' = yx x + yy y
            if (flags & haveScale) {
                xx = yy = f2dot14(at);
                at += 2;
            } else if (flags & haveXYScale) {
                xx = f2dot14(at);
                yy = f2dot14(at + 2);
                at += 4;
            } else if (flags & haveTwoByTwo) {
                xx = f2dot14(at);
                yx = f2dot14(at + 2);
                xy = f2dot14(at + 4);
                yy = f2dot14(at + 6);
                at += 8;
            }
            Outline part;
            append(component, part, depth + 1);
            for (Point& p : part.points) p = {xx * p.x + xy * p.y, yx * p.x + yy * p.y, p.on};
            double dx = 0, dy = 0;
            if (flags & argsAreXY) {
                dx = arg1;
                dy = arg2;
                if ((flags & scaledOffset) && !(flags & unscaledOffset)) {
                    dx = xx * arg1 + xy * arg2;
                    dy = yx * arg1 + yy * arg2;
                }
            } else {
                // Point matching: point arg2 of the part lands on point arg1 of the glyph so far.
                if (std::size_t(arg1) >= out.points.size() || std::size_t(arg2) >= part.points.size()) throw Malformed();
                dx = out.points[std::size_t(arg1)].x - part.points[std::size_t(arg2)].x;
                dy = out.points[std::size_t(arg1)].y - part.points[std::size_t(arg2)].y;
            }
            add(out, part.points, part.ends, [dx, dy](const Point& p) { return Point{p.x + dx, p.y + dy, p.on}; });
        } while (flags & moreComponents);
    }

    void readCmap() {
        const Bytes cmap = table("cmap");
        const std::uint16_t count = cmap.u16(2);
        std::size_t bmp = 0, full = 0;
        for (std::uint16_t i = 0; i < count; ++i) {
            const std::size_t rec = 4 + 8 * std::size_t(i);
            const std::uint16_t platform = cmap.u16(rec), encoding = cmap.u16(rec + 2);
            const std::uint32_t offset = cmap.u32(rec + 4);
            const std::uint16_t format = cmap.u16(offset);
            const bool unicode = platform == 0 || (platform == 3 && (encoding == 1 || encoding == 10));
            if (!unicode) continue;
            if (format == 12 && !full) full = offset;
            if (format == 4 && !bmp) bmp = offset;
        }
        // Groups and segments rise and do not overlap, each character
        // names a glyph of the face: no character is visited twice.
        std::uint32_t next = 0;
        if (full) {
            const std::uint32_t groups = cmap.u32(full + 12);
            for (std::uint32_t i = 0; i < groups; ++i) {
                const std::size_t g = full + 16 + 12 * std::size_t(i);
                const std::uint32_t first = cmap.u32(g), last = cmap.u32(g + 4), glyph = cmap.u32(g + 8);
                if (first < next || last < first || last > 0x10FFFF ||
                    std::uint64_t(glyph) + (last - first) >= std::uint64_t(glyphCount_))
                    throw Malformed();
                next = last + 1;
                for (std::uint32_t ch = first; ch <= last; ++ch) cmap_[ch] = int(glyph + (ch - first));
            }
        } else if (bmp) {
            const std::size_t segments = cmap.u16(bmp + 6) / 2;
            const std::size_t ends = bmp + 14, starts = ends + 2 * segments + 2, deltas = starts + 2 * segments,
                              ranges = deltas + 2 * segments;
            for (std::size_t s = 0; s < segments; ++s) {
                const std::uint16_t last = cmap.u16(ends + 2 * s), first = cmap.u16(starts + 2 * s);
                const std::uint16_t delta = cmap.u16(deltas + 2 * s), range = cmap.u16(ranges + 2 * s);
                if (first < next || last < first) throw Malformed();
                next = std::uint32_t(last) + 1;
                for (std::uint32_t ch = first; ch <= last && ch != 0xFFFF; ++ch) {
                    std::uint16_t glyph;
                    if (range == 0) {
                        glyph = std::uint16_t(ch + delta);
                    } else {
                        glyph = cmap.u16(ranges + 2 * s + range + 2 * (ch - first));
                        if (glyph) glyph = std::uint16_t(glyph + delta);
                    }
                    if (glyph >= glyphCount_) throw Malformed();
                    if (glyph) cmap_[ch] = glyph;
                }
            }
        } else {
            throw Malformed();
        }
    }

    Bytes file_;
    std::map<std::uint32_t, Bytes> tables_;
    Bytes glyf_, hmtx_;
    std::vector<std::uint32_t> loca_;
    std::map<std::uint32_t, int> cmap_;
    int unitsPerEm_ = 0, glyphCount_ = 0, metricCount_ = 0;
    std::size_t& work_;
};

// ---------------------------------------------------------------- writing

void put16(std::string& s, int v) {
    s += char((v >> 8) & 0xFF);
    s += char(v & 0xFF);
}
void put32(std::string& s, std::uint32_t v) {
    put16(s, int(v >> 16));
    put16(s, int(v & 0xFFFF));
}
void set16(std::string& s, std::size_t at, int v) {
    s[at] = char((v >> 8) & 0xFF);
    s[at + 1] = char(v & 0xFF);
}
void set32(std::string& s, std::size_t at, std::uint32_t v) {
    set16(s, at, int(v >> 16));
    set16(s, at + 2, int(v & 0xFFFF));
}

std::uint32_t checksum(std::string_view t) {
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < t.size(); i += 4) {
        std::uint32_t word = 0;
        for (std::size_t k = 0; k < 4; ++k) word = word << 8 | (i + k < t.size() ? std::uint8_t(t[i + k]) : 0u);
        sum += word;
    }
    return sum;
}

struct Box {
    int xMin = std::numeric_limits<int>::max(), yMin = std::numeric_limits<int>::max();
    int xMax = std::numeric_limits<int>::min(), yMax = std::numeric_limits<int>::min();
    bool empty() const { return xMin > xMax; }
    void add(int x, int y) {
        xMin = std::min(xMin, x);
        yMin = std::min(yMin, y);
        xMax = std::max(xMax, x);
        yMax = std::max(yMax, y);
    }
};

// A simple glyph of whole-unit points, without instructions; empty for an
// outline without points.
std::string encodeGlyph(const Outline& o, Box& box) {
    std::string g;
    if (o.points.empty()) return g;
    std::vector<int> xs, ys;
    for (const Point& p : o.points) {
        const long x = std::lround(p.x), y = std::lround(p.y);
        if (std::abs(x) > maxCoordinate || std::abs(y) > maxCoordinate) throw Malformed();
        xs.push_back(int(x));
        ys.push_back(int(y));
        box.add(xs.back(), ys.back());
    }
    put16(g, int(o.ends.size()));
    put16(g, box.xMin);
    put16(g, box.yMin);
    put16(g, box.xMax);
    put16(g, box.yMax);
    for (int e : o.ends) put16(g, e);
    put16(g, 0);   // no instructions
    std::string flags, xBytes, yBytes;
    int lastX = 0, lastY = 0;
    for (std::size_t i = 0; i < o.points.size(); ++i) {
        std::uint8_t f = o.points[i].on ? 1 : 0;
        auto delta = [&f](int d, std::uint8_t shortBit, std::uint8_t sameBit, std::string& out) {
            if (d == 0) {
                f |= sameBit;
            } else if (d > -256 && d < 256) {
                f |= shortBit;
                if (d > 0) f |= sameBit;
                out += char(std::abs(d));
            } else {
                put16(out, d);
            }
        };
        delta(xs[i] - lastX, 2, 16, xBytes);
        delta(ys[i] - lastY, 4, 32, yBytes);
        lastX = xs[i];
        lastY = ys[i];
        flags += char(f);
    }
    g += flags + xBytes + yBytes;
    while (g.size() % 4) g += '\0';
    return g;
}

}  // namespace

std::optional<std::string> fitBoldFace(std::string_view spacing, std::string_view shapes) {
    try {
        std::size_t work = 0;
        const Face base(spacing, work), bold(shapes, work);
        const int glyphs = base.glyphCount();

        // One character for each glyph of the base that the character map reaches.
        std::vector<std::uint32_t> characterOf(std::size_t(glyphs), 0);
        for (const auto& [ch, g] : base.characters())
            if (g > 0 && g < glyphs && !characterOf[std::size_t(g)]) characterOf[std::size_t(g)] = ch;

        const double em = double(base.unitsPerEm()) / bold.unitsPerEm();
        std::string glyf, hmtx(base.table("hmtx").data);
        std::vector<std::uint32_t> loca{0};
        Box all;
        int maxPoints = 0, maxContours = 0;
        int minLeft = std::numeric_limits<int>::max(), minRight = std::numeric_limits<int>::max(), maxExtent = 0;
        for (int g = 0; g < glyphs; ++g) {
            const int advance = base.advance(g);
            Outline o;
            const int source = characterOf[std::size_t(g)] ? bold.glyphFor(characterOf[std::size_t(g)]) : 0;
            if (source > 0) {
                // The bold outline, as tall as the base's em, as wide as its advance.
                o = bold.outline(source);
                const int boldAdvance = bold.advance(source);
                const double across = boldAdvance > 0 && advance > 0 ? double(advance) / boldAdvance : em;
                for (Point& p : o.points) p = {p.x * across, p.y * em, p.on};
            } else {
                o = base.outline(g);
            }
            Box box;
            glyf += encodeGlyph(o, box);
            loca.push_back(std::uint32_t(glyf.size()));
            // The left side bearing is where the outline begins.
            const int lsb = box.empty() ? 0 : box.xMin;
            const std::size_t lsbAt = g < base.metricCount() ? 4 * std::size_t(g) + 2
                                                              : 4 * std::size_t(base.metricCount()) +
                                                                    2 * std::size_t(g - base.metricCount());
            if (lsbAt + 2 > hmtx.size()) throw Malformed();
            set16(hmtx, lsbAt, lsb);
            if (box.empty()) continue;
            all.add(box.xMin, box.yMin);
            all.add(box.xMax, box.yMax);
            maxPoints = std::max(maxPoints, int(o.points.size()));
            maxContours = std::max(maxContours, int(o.ends.size()));
            minLeft = std::min(minLeft, box.xMin);
            minRight = std::min(minRight, advance - box.xMax);
            maxExtent = std::max(maxExtent, box.xMax);
        }
        if (all.empty()) return std::nullopt;

        std::map<std::uint32_t, std::string> out;
        for (const auto& [tag, t] : base.tables()) out[tag] = std::string(t.data);
        // The bitmaps the base draws in place of outlines at small sizes go,
        // with what vouches for the old bytes or hints the old outlines.
        for (const char* gone : {"EBSC", "BDF ", "DSIG", "hdmx", "LTSH", "fpgm", "prep"}) out.erase(tagOf(gone));
        // Of the bitmap strikes only their line metrics stay, with no glyph
        // in them: lines of text keep the ascent and descent they had at
        // every size, and every glyph is drawn from its outline.
        if (out.count(tagOf("EBLC")) && out.count(tagOf("EBDT"))) {
            const Bytes old = base.table("EBLC");
            std::string strikes;
            const std::uint32_t count = std::min<std::uint32_t>(old.u32(4), 0xFFFF);
            put32(strikes, 0x00020000);
            put32(strikes, count);
            for (std::uint32_t i = 0; i < count; ++i) {
                std::string size(old.sub(8 + 48 * std::size_t(i), 48).data);
                set32(size, 0, 0);    // index subtables at the start of the table ...
                set32(size, 4, 0);    // ... taking no room,
                set32(size, 8, 0);    // for there are none
                strikes += size;
            }
            out[tagOf("EBLC")] = strikes;
            std::string& bitmaps = out[tagOf("EBDT")];
            bitmaps.clear();
            put32(bitmaps, 0x00020000);
        } else {
            out.erase(tagOf("EBLC"));
            out.erase(tagOf("EBDT"));
        }
        out[tagOf("glyf")] = glyf;
        out[tagOf("hmtx")] = hmtx;
        std::string& loc = out[tagOf("loca")];
        loc.clear();
        for (std::uint32_t o : loca) put32(loc, o);

        std::string& head = out[tagOf("head")];
        if (head.size() < 54) throw Malformed();
        set32(head, 8, 0);   // checkSumAdjustment, set below
        set16(head, 36, all.xMin);
        set16(head, 38, all.yMin);
        set16(head, 40, all.xMax);
        set16(head, 42, all.yMax);
        set16(head, 50, 1);   // long offsets in loca

        std::string& maxp = out[tagOf("maxp")];
        if (maxp.size() >= 32) {
            set16(maxp, 6, maxPoints);
            set16(maxp, 8, maxContours);
            set16(maxp, 10, 0);   // no composite glyphs left
            set16(maxp, 12, 0);
            set16(maxp, 26, 0);   // no instructions
            set16(maxp, 28, 0);
            set16(maxp, 30, 0);
        }
        std::string& hhea = out[tagOf("hhea")];
        if (hhea.size() < 36) throw Malformed();
        set16(hhea, 12, minLeft);
        set16(hhea, 14, minRight);
        set16(hhea, 16, maxExtent);

        // The table directory, then the tables in the order of their tags.
        const int count = int(out.size());
        int power = 1, log2 = 0;
        while (power * 2 <= count) {
            power *= 2;
            ++log2;
        }
        std::string font;
        put32(font, 0x00010000);
        put16(font, count);
        put16(font, power * 16);
        put16(font, log2);
        put16(font, count * 16 - power * 16);
        std::size_t offset = 12 + 16 * std::size_t(count);
        std::string body;
        std::size_t headAt = 0;
        for (const auto& [tag, t] : out) {
            put32(font, tag);
            put32(font, checksum(t));
            put32(font, std::uint32_t(offset + body.size()));
            put32(font, std::uint32_t(t.size()));
            if (tag == tagOf("head")) headAt = offset + body.size();
            body += t;
            while (body.size() % 4) body += '\0';
        }
        font += body;
        set32(font, headAt + 8, 0xB1B0AFBAu - checksum(font));
        return font;
    } catch (const Malformed&) {
        return std::nullopt;
    }
}

}  // namespace fendle::font
