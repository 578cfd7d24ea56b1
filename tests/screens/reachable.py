"""What four dice can make, worked out here in exact fractions over every
bracketing, for the spoken game test to choose a legal and an illegal
number without asking the game.

    reachable.py sum a b c d                 the sum of the dice
    reachable.py unreachable a b c d [n]     the least number 1 to 100 they
                                             cannot make, even by the game's
                                             rounding (half to even), other
                                             than n
    reachable.py reward n                    the points of number n's zone
"""
import sys
from fractions import Fraction
from functools import lru_cache


@lru_cache(maxsize=None)
def results(values):
    """Every value an expression over the multiset `values` can take."""
    if len(values) == 1:
        return frozenset(values)
    out = set()
    n = len(values)
    for mask in range(1, (1 << n) - 1):
        left = tuple(sorted(values[i] for i in range(n) if mask >> i & 1))
        right = tuple(sorted(values[i] for i in range(n) if not mask >> i & 1))
        for x in results(left):
            for y in results(right):
                out.update({x + y, x - y, x * y})
                if y != 0:
                    out.add(x / y)
    return frozenset(out)


def main(args):
    if args[0] == "reward":
        n = int(args[1])
        zones = [(15, 10), (28, 20), (45, 50), (64, 100), (79, 200), (90, 300), (100, 500)]
        print(next(points for high, points in zones if n <= high))
        return
    dice = [int(a) for a in args[1:5]]
    if args[0] == "sum":
        print(sum(dice))
        return
    made = results(tuple(sorted(Fraction(d) for d in dice)))
    other = int(args[5]) if len(args) > 5 else 0
    rounded = {round(v) for v in made}   # Python rounds a Fraction's half to even
    print(next(n for n in range(1, 101) if n not in rounded and n != other))


main(sys.argv[1:])
