// Which numbers from 1 to 100 four dice can make, with + - x / and any
// bracketing, each die used once. A brute-force search in double precision
// over fixed arrays, in two forms that together cover every expression tree:
//   allowednumbers   the chain  ((p o q) o r) o s
//   allowednumbers2  the pairs  (p o q) o (r o s)
// Both try the reversed operations at every step. The answer is left in
// `allowed`, 1.0 by number when the throw can make it. A slot is live while
// it is below the empty value 1000.0 (0.0 for threeresults in the pair form);
// the counts say how far each array has been written in this search.
#pragma once

#include <array>

#include "engine/game_state.h"

namespace fendle {

struct Reachable {
    std::array<i16, 5> dice{};       // 0 to 3: the throw
    std::array<i16, 5> dicecopy{};
    double firstoperand = 0;         // x of the next step
    double secondoperand = 0;        // y of the next step
    std::array<double, 13> tworesults{};
    i16 tworesultcount = 0;
    std::array<double, 1729> threeresults{};
    i16 threeresultcount = 0;
    std::array<double, 4001> fourresults{};
    i16 fourresultcount = 0;
    std::array<double, 101> allowed{};   // slot 0 is a dump nothing reads

    // One step each: x*y, x+y, x-y, y-x, x/y, y/x into six slots of the target.
    void allowedalg();    // into tworesults
    void allowedalg2();   // into threeresults
    void allowedalg3();   // into fourresults

    void allowednumbers();    // the chain form; clears `allowed` first
    void allowednumbers2();   // the pair form; only adds marks

    // What a press of a button clears: the counts, and the arrays from 1 up.
    void clearForButton();

    // Whether number n (1 to 100) is marked.
    bool marked(int n) const { return allowed[static_cast<std::size_t>(n)] == 1.0; }

private:
    template <std::size_t N>
    void mark(const std::array<double, N>& results, int count);
    bool pairForm_ = false;   // threeresults' empty value is 0.0 in the pair form
};

}  // namespace fendle
