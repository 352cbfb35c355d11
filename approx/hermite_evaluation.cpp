// Values (E01BFF) and values with first derivatives (E01BGF) of the piecewise
// cubic Hermite interpolant at M points: each point is located among the
// abscissae (interval_search.cpp) and evaluated by the Hermite cubic of its
// interval; points outside [X(1), X(N)] (and NaNs) are evaluated by the end
// cubics and raise the warning IFAIL 4 with all results kept.
//
// Checks, in order: N >= 2, M >= 1, X strictly increasing; PF and PD are
// untouched on failure.
#include <algorithm>

#include "approx/hermite.hpp"
#include "gen/approx.hpp"

namespace lbx::approx {

namespace {

// Evaluates block by block; true when some point lies outside [x[0], x[n-1]].
bool evaluate(int n, const double* x, const double* f, const double* d, int m, const double* px,
              double* pf, double* pd)
{
    Locator locator(n, x);
    std::ptrdiff_t j[Locator::block];
    const double lo = x[0], hi = x[n - 1];
    bool outside = false;
    for (std::ptrdiff_t start = 0; start < m; start += Locator::block) {
        const std::ptrdiff_t k = std::min<std::ptrdiff_t>(Locator::block, m - start);
        const double* p = px + start;
        locator.find(p, k, j);
        for (std::ptrdiff_t i = 0; i < k; ++i) {
            const HermiteCubic c(x, f, d, j[i]);
            pf[start + i] = c.value(p[i]);
            if (pd != nullptr)
                pd[start + i] = c.slope(p[i]);
            outside |= !(p[i] >= lo && p[i] <= hi);
        }
    }
    return outside;
}

template <class Msg>
bool checked(int n, const double* x, int m, lbx::Fail& fail)
{
    if (n < 2) {
        fail(Msg::N_LT_2, n);
        return false;
    }
    if (m < 1) {
        fail(Msg::M_LT_1, m);
        return false;
    }
    if (const int r = first_not_increasing(n, x)) {
        fail(Msg::X_NOT_INCREASING, r, x[r - 2], x[r - 1]);
        return false;
    }
    return true;
}

}  // namespace

void E01BFFN(int n, const double* x, const double* f, const double* d, int m, const double* px,
             double* pf, lbx::Fail& fail)
{
    if (checked<E01BFF_msg>(n, x, m, fail) && evaluate(n, x, f, d, m, px, pf, nullptr))
        fail(E01BFF_msg::PX_OUTSIDE);
}

void E01BGFN(int n, const double* x, const double* f, const double* d, int m, const double* px,
             double* pf, double* pd, lbx::Fail& fail)
{
    if (checked<E01BGF_msg>(n, x, m, fail) && evaluate(n, x, f, d, m, px, pf, pd))
        fail(E01BGF_msg::PX_OUTSIDE);
}

}  // namespace lbx::approx
