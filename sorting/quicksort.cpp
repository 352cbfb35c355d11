// The reference quicksort of M01CAF.
#include "sorting/quicksort.hpp"

#include <cmath>
#include <utility>

namespace lbx::sorting {

namespace {

// Wichmann-Hill generator with the fixed seeds used on every call.
class WichmannHill {
public:
    double next()
    {
        x_ = 171 * (x_ % 177) - 2 * (x_ / 177);
        if (x_ < 0)
            x_ += 30269;
        y_ = 172 * (y_ % 176) - 35 * (y_ / 176);
        if (y_ < 0)
            y_ += 30307;
        z_ = 170 * (z_ % 178) - 63 * (z_ / 178);
        if (z_ < 0)
            z_ += 30323;
        const double s = x_ / 30269.0 + y_ / 30307.0 + z_ / 30323.0;
        return s - std::floor(s);
    }

private:
    int x_ = 15223;
    int y_ = 17795;
    int z_ = 28707;
};

constexpr long small_part = 15;  // parts of at most this many elements are not partitioned
constexpr int stack_size = 40;   // the smaller part goes first, so log2(2^31) entries suffice

bool lopsided(long part, long other)
{
    return part > 5 * other + 25;
}

}  // namespace

void reference_quicksort(double* rv, long m1, long m2)
{
    auto at = [rv](long k) -> double& { return rv[k - 1]; };
    if (m2 - m1 > small_part - 1) {
        WichmannHill shuffle;
        long stack_lo[stack_size], stack_hi[stack_size];  // a negative lo flags a lopsided part
        int top = 0;
        long lo = m1, hi = m2;
        bool flagged = false;
        for (;;) {
            if (flagged) {
                const double u = shuffle.next();
                const long k =
                    static_cast<long>(static_cast<double>(lo) + u * static_cast<double>(hi - lo));
                std::swap(at(lo), at(k));
                std::swap(at(hi), at(lo + hi - k));
            }
            // Median of three: afterwards at(lo) <= t <= at(hi) unless NaNs are
            // involved, and NaNs stop both scans because every comparison fails.
            if (at(lo) > at(hi))
                std::swap(at(lo), at(hi));
            const long mid = (lo + hi) / 2;
            double t = at(mid);
            if (at(lo) > t)
                std::swap(at(lo), at(mid));
            else if (t > at(hi))
                std::swap(at(mid), at(hi));
            t = at(mid);

            long i = lo, j = hi;
            for (;;) {
                // The bounds never bind (at(lo) and at(hi) stop the scans); they
                // only make the absence of out-of-range reads evident.
                do
                    ++i;
                while (i < hi && at(i) < t);
                do
                    --j;
                while (j > lo && at(j) > t);
                if (i >= j)
                    break;
                std::swap(at(i), at(j));
            }

            const long left = i - lo;   // lo .. i-1
            const long right = hi - j;  // j+1 .. hi
            bool next = true;
            if (right <= left) {
                if (left > small_part && right > small_part && top < stack_size) {
                    stack_lo[top] = lopsided(left, right) ? -lo : lo;
                    stack_hi[top++] = i - 1;
                    lo = j + 1;
                    flagged = lopsided(right, left);
                } else if (left > small_part) {
                    hi = i - 1;
                    flagged = lopsided(left, right);
                } else {
                    next = false;
                }
            } else {
                if (right > small_part && left > small_part && top < stack_size) {
                    stack_lo[top] = lopsided(right, left) ? -(j + 1) : j + 1;
                    stack_hi[top++] = hi;
                    hi = i - 1;
                    flagged = lopsided(left, right);
                } else if (right > small_part) {
                    lo = j + 1;
                    flagged = lopsided(right, left);
                } else {
                    next = false;
                }
            }
            if (!next) {
                if (top == 0)
                    break;
                --top;
                flagged = stack_lo[top] < 0;
                lo = flagged ? -stack_lo[top] : stack_lo[top];
                hi = stack_hi[top];
            }
        }
    }
    // Final pass: straight insertion over the whole segment.
    for (long p = m1 + 1; p <= m2; ++p) {
        const double v = at(p);
        long q = p - 1;
        while (q >= m1 && at(q) > v) {
            at(q + 1) = at(q);
            --q;
        }
        at(q + 1) = v;
    }
}

}  // namespace lbx::sorting
