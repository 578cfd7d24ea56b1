#include "text/flow.h"

#include <algorithm>

namespace fendle::flow {

namespace {

// Lays the texts down the page with their plain text `shrink` pixels
// smaller. Each keeps the gap the drawn page has above it (`gaps` of it
// between two texts), to the texts and to the fixed controls over it, and is
// narrowed where it would run into something standing beside it.
Result flowAt(const Page& page, const Measure& measure, int shrink, double gaps) {
    const std::vector<Text>& texts = page.texts;
    // A heading is as wide as its words on one line, or as drawn.
    auto widthFor = [&](std::size_t k, bool english, double drawn) {
        if (!texts[k].heading) return drawn;
        return std::max(drawn, measure(k, english, shrink, unbounded).widest + pixel);
    };

    Result out{{}, shrink, true};
    std::vector<double> bottoms;   // where the words of each text end
    for (std::size_t k = 0; k < texts.size(); ++k) {
        const Box p = texts[k].drawn;
        double top = p.top;
        bool bound = false;
        auto atLeast = [&](double v) {
            top = bound ? std::max(top, v) : v;
            bound = true;
        };
        // The text right above, or those side by side right above.
        double nearest = -1;
        for (std::size_t j = 0; j < k; ++j) {
            const Box& q = texts[j].drawn;
            if (q.across(p) && q.top < p.top) nearest = std::max(nearest, q.top);
        }
        for (std::size_t j = 0; j < k; ++j) {
            const Box& q = texts[j].drawn;
            if (!q.across(p) || q.top != nearest) continue;
            const double english = measure(j, true, 0, widthFor(j, true, q.width)).height;
            atLeast(bottoms[j] + std::max(minimumGap, (p.top - (q.top + english)) * gaps));
        }
        // A fixed control right above the text, with no other text between.
        for (const Fixed& f : page.fixed) {
            const Box& q = f.drawn;
            if (!q.across(p) || q.bottom() > p.top) continue;
            bool between = false;
            for (std::size_t j = 0; j < k; ++j) {
                const Box& o = texts[j].drawn;
                between = between || (o.across(p) && o.top >= q.bottom() && o.top < p.top);
            }
            if (!between) atLeast(f.now.bottom() + (p.top - q.bottom()));
        }

        // Narrower where something stands beside the text.
        double width = std::min(widthFor(k, false, p.width), page.width - margin - p.left);
        double height = 0;
        for (bool narrowed = true; narrowed;) {
            narrowed = false;
            height = measure(k, false, shrink, width).height;
            const Box now{p.left, top, width, height};
            for (const Fixed& f : page.fixed) {
                // Only what stands beside the text on the drawn page; what
                // stands below it is a floor the text must stay above.
                const Box& q = f.drawn;
                const Box& r = f.now;
                const bool beside = q.top + margin < p.bottom() && q.bottom() > p.top;
                if (!beside || r.left <= p.left + margin) continue;
                if (now.along(r) && r.left - margin < now.right()) {
                    width = r.left - margin - p.left;
                    narrowed = true;
                }
            }
        }
        if (height == 0) height = p.height;   // an empty text keeps its box
        // No wider than its longest line: the same lines, and a box that
        // says where the words are.
        else width = std::min(width, measure(k, false, shrink, width).widest + pixel);
        // A pixel of room above and below: accents and descenders may stand
        // out of the lines a little.
        out.boxes.push_back({p.left, top - pixel, width, height + 2 * pixel});
        bottoms.push_back(top + height);
    }

    // Clear of the fixed controls, of each other and of the page's foot.
    for (std::size_t k = 0; k < out.boxes.size() && out.fits; ++k) {
        const Box& b = out.boxes[k];
        if (b.bottom() > page.height || b.right() > page.width) out.fits = false;
        for (const Fixed& f : page.fixed)
            if (b.across(f.now) && b.along(f.now)) out.fits = false;
        for (std::size_t j = 0; j < k; ++j)
            if (b.across(out.boxes[j]) && b.along(out.boxes[j])) out.fits = false;
    }
    return out;
}

}  // namespace

Result flow(const Page& page, const Measure& measure) {
    // Closer together first, smaller only when that is not enough.
    Result last;
    for (int shrink = 0; shrink <= mostShrink; ++shrink) {
        for (double gaps : {1.0, 0.5, 0.0}) {
            last = flowAt(page, measure, shrink, gaps);
            if (last.fits) return last;
        }
    }
    return last;
}

}  // namespace fendle::flow
