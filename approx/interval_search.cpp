// Locating points among the abscissae for the evaluators (E01BFF, E01BGF):
// a forward walk for ascending points, binary searches side by side for any
// other block (see hermite.hpp).
#include <algorithm>

#include "approx/hermite.hpp"

namespace lbx::approx {

void Locator::find(const double* p, std::ptrdiff_t k, std::ptrdiff_t* j)
{
    bool ascending = last_ == 0 || x_[last_] <= p[0];
    for (std::ptrdiff_t i = 1; i < k; ++i)
        ascending &= p[i - 1] <= p[i];
    if (ascending)
        walk(p, k, j);
    else
        search(p, k, j);
    last_ = j[k - 1];
}

// From the interval of the previous point: stay while p < x[cur + 1], else
// gallop (steps 1, 2, 4, ...) to a bracket and bisect it.
void Locator::walk(const double* p, std::ptrdiff_t k, std::ptrdiff_t* j)
{
    const std::ptrdiff_t top = n_ - 2;  // the last interval
    std::ptrdiff_t cur = last_;
    for (std::ptrdiff_t i = 0; i < k; ++i) {
        const double v = p[i];
        if (cur < top && x_[cur + 1] <= v) {
            std::ptrdiff_t lo = cur + 1, step = 1;  // x[lo] <= v
            while (lo + step <= top && x_[lo + step] <= v) {
                lo += step;
                step *= 2;
            }
            std::ptrdiff_t hi = std::min(lo + step, n_ - 1);  // x[hi] > v, or hi = n - 1
            while (hi - lo > 1) {
                const std::ptrdiff_t mid = lo + (hi - lo) / 2;
                if (x_[mid] <= v)
                    lo = mid;
                else
                    hi = mid;
            }
            cur = lo;
        }
        j[i] = cur;
    }
}

// The count of x[1] .. x[n-2] that are <= p[i], for all i at once: every
// search takes the same halving steps, each a conditional move.
void Locator::search(const double* p, std::ptrdiff_t k, std::ptrdiff_t* j) const
{
    const double* base = x_ + 1;
    std::ptrdiff_t len = n_ - 2;
    std::fill(j, j + k, 0);
    while (len > 1) {
        const std::ptrdiff_t half = len / 2;
        for (std::ptrdiff_t i = 0; i < k; ++i)
            j[i] += base[j[i] + half - 1] <= p[i] ? half : 0;
        len -= half;
    }
    if (len == 1)
        for (std::ptrdiff_t i = 0; i < k; ++i)
            j[i] += base[j[i]] <= p[i] ? 1 : 0;
}

}  // namespace lbx::approx
