// Outward search for a sign change (C05AVF, and the first phase of C05AUF,
// C05AGF): from the starting point x0 the search
// probes alternately on either side (the side of H first) at distances
// |H|, 2|H|, 4|H|, ... from x0, each probe clamped to [BOUNDL, BOUNDU]; a side
// is exhausted once its probe has reached its bound. Each probe is compared
// with the previous point on the same side, so the interval returned is the
// pair of neighbouring points between which f changes sign.
//
// The probes stay in the finite numbers: bounds beyond them are taken as
// -huge and +huge (the largest finite value). A side is also exhausted when
// its next probe would not lie strictly beyond its last point, so every probe
// on a side moves outward and the number of probes is bounded (the distance
// from x0 doubles: about 2100 probes a side at most, from the smallest
// spacing to the largest finite value).
//
// Layout of the communication array (Fortran numbering C(1) .. C(11)):
//   C(1)  while searching the point requested (X is not read on re-entry);
//         on a successful finish f(Y)
//   C(2)  x0, the starting point        C(3)  f(x0)
//   C(4)  H as given on initial entry   C(5)  BOUNDL   C(6)  BOUNDU (within +-huge)
//   C(7)  last point on the right       C(8)  f there
//   C(9)  last point on the left        C(10) f there
//   C(11) the pending request: 0 f(x0), 1 a probe on the right, -1 on the left
#include "roots/outward_search.hpp"

#include <cmath>

#include "frame/machine.hpp"
#include "gen/roots.hpp"

namespace lbx::roots {
namespace {

constexpr double kHuge = lbx::machine::huge;

constexpr int kFy = 0, kPoint = 0, kX0 = 1, kF0 = 2, kH = 3, kLo = 4, kHi = 5, kXr = 6, kFr = 7,
              kXl = 8, kFl = 9, kSide = 10;

SearchReport fail_with(SearchStatus s, int& ind)
{
    ind = 0;
    SearchReport r;
    r.status = s;
    return r;
}

// Next probe on one side (side = +1 right, -1 left), doubling the distance
// from x0 and clamping to the bound.
double next_probe(const double* c, int side)
{
    const double x0 = c[kX0];
    const double last = (side > 0) ? c[kXr] : c[kXl];
    const double dist = (last == x0) ? std::fabs(c[kH]) : 2.0 * std::fabs(last - x0);
    if (side > 0) {
        const double p = x0 + dist;
        return (p > c[kHi]) ? c[kHi] : p;
    }
    const double p = x0 - dist;
    return (p < c[kLo]) ? c[kLo] : p;
}

// A side is exhausted when its next probe would not lie strictly beyond its
// last point (it has reached its bound, or rounding stops the doubling).
bool exhausted(const double* c, int side)
{
    const double p = next_probe(c, side);
    return (side > 0) ? !(p > c[kXr]) : !(p < c[kXl]);
}

// Whether c can be the array the last call left, with a request pending.
bool consistent(const double* c)
{
    const double lo = c[kLo], hi = c[kHi], x0 = c[kX0], xl = c[kXl], xr = c[kXr], p = c[kPoint];
    const double side = c[kSide];
    if (!(-kHuge <= lo && lo < hi && hi <= kHuge && lo <= xl && xl <= x0 && x0 <= xr && xr <= hi &&
          std::isfinite(c[kH]) && c[kH] != 0.0)) {
        return false;
    }
    if (side == 0.0) {
        return p == x0;
    }
    if (side == 1.0) {
        return xr < p && p <= hi;
    }
    return side == -1.0 && lo <= p && p < xl;
}

// Ask for the next probe, preferring the side other than 'last_side'.
SearchReport request_next(double& x, double& y, double* c, int& ind, int last_side)
{
    int side = -last_side;
    if (exhausted(c, side)) {
        side = last_side;
    }
    if (exhausted(c, side)) {
        x = c[kXl];
        y = c[kXr];
        SearchReport r = fail_with(SearchStatus::no_sign_change, ind);
        r.v1 = c[kXl];
        r.v2 = c[kXr];
        return r;
    }
    c[kSide] = side;
    x = c[kPoint] = next_probe(c, side);
    ind = 2;
    return {};
}

// The sign change lies between X (the caller's last point) and xother.
SearchReport finish(double& y, double xother, double fother, double* c, int& ind)
{
    y = xother;
    c[kFy] = fother;
    ind = 0;
    return {};
}

}  // namespace

SearchReport search_engine_step(double& x, double fx, double h, double boundl, double boundu,
                                double& y, double* c, int& ind)
{
    if (ind != -1 && ind != 1 && ind != 2) {
        const int given = ind;
        SearchReport r = fail_with(SearchStatus::ind_invalid, ind);
        r.iv = given;
        return r;
    }
    if (ind == 1 || ind == -1) {
        // Initial entry: check the arguments, in this order.
        if (!(boundl < boundu)) {
            SearchReport r = fail_with(SearchStatus::bounds_order, ind);
            r.v1 = boundl;
            r.v2 = boundu;
            return r;
        }
        if (!(boundl <= x && x <= boundu)) {
            SearchReport r = fail_with(SearchStatus::x_outside, ind);
            r.v1 = x;
            r.v2 = boundl;
            r.v3 = boundu;
            return r;
        }
        if (!(x + h != x) || !std::isfinite(h)) {
            SearchReport r = fail_with(SearchStatus::h_too_small, ind);
            r.v1 = x;
            r.v2 = h;
            return r;
        }
        const double up = x + h, down = x - h;
        const bool up_out = up < boundl || up > boundu;
        const bool down_out = down < boundl || down > boundu;
        if (up_out && down_out) {
            SearchReport r = fail_with(SearchStatus::both_outside, ind);
            r.v1 = x;
            r.v2 = h;
            r.v3 = boundl;
            r.v4 = boundu;
            return r;
        }
        c[kX0] = c[kPoint] = x;
        c[kH] = h;
        c[kLo] = std::fmax(boundl, -kHuge);
        c[kHi] = std::fmin(boundu, kHuge);
        c[kXr] = c[kXl] = x;
        c[kSide] = 0.0;
        if (ind == 1) {
            ind = 2;
            return {};
        }
        // ind == -1: fx = f(x0) is supplied; continue below.
    } else if (!consistent(c)) {
        SearchReport r = fail_with(SearchStatus::changed, ind);
        r.iv = 2;
        return r;
    }

    // The pending request, at the point requested.
    x = c[kPoint];
    const int side = c[kSide] > 0.0 ? 1 : (c[kSide] < 0.0 ? -1 : 0);
    if (side == 0) {
        // The value at the starting point.
        c[kF0] = c[kFr] = c[kFl] = fx;
        if (fx == 0.0) {
            return finish(y, x, 0.0, c, ind);
        }
        // The side of H is probed first.
        return request_next(x, y, c, ind, (c[kH] > 0.0) ? -1 : 1);
    }
    // The value at a probe on 'side'.
    const double xprev = (side > 0) ? c[kXr] : c[kXl];
    const double fprev = (side > 0) ? c[kFr] : c[kFl];
    if (fx == 0.0) {
        return finish(y, x, 0.0, c, ind);
    }
    if (!same_sign(fx, fprev)) {
        return finish(y, xprev, fprev, c, ind);
    }
    if (side > 0) {
        c[kXr] = x;
        c[kFr] = fx;
    } else {
        c[kXl] = x;
        c[kFl] = fx;
    }
    return request_next(x, y, c, ind, side);
}

void C05AVFN(double& x, double fx, double h, double boundl, double boundu, double& y, double* c,
             int& ind, lbx::Fail& fail)
{
    const SearchReport r = search_engine_step(x, fx, h, boundl, boundu, y, c, ind);
    switch (r.status) {
        case SearchStatus::ok:
            return;
        case SearchStatus::bounds_order:
            return fail(C05AVF_msg::BOUNDS_ORDER, r.v1, r.v2);
        case SearchStatus::x_outside:
            return fail(C05AVF_msg::X_OUTSIDE, r.v1, r.v2, r.v3);
        case SearchStatus::h_too_small:
            return fail(C05AVF_msg::H_TOO_SMALL, r.v1, r.v2);
        case SearchStatus::both_outside:
            return fail(C05AVF_msg::BOTH_OUTSIDE, r.v1, r.v2, r.v3, r.v4);
        case SearchStatus::ind_invalid:
            return fail(C05AVF_msg::IND_INVALID, r.iv);
        case SearchStatus::no_sign_change:
            return fail(C05AVF_msg::NO_SIGN_CHANGE, r.v1, r.v2);
        case SearchStatus::changed:
            return fail(C05AVF_msg::STATE_CHANGED, r.iv);
    }
}

void C05AUFN(double& x, double h, double eps, double eta, const C05AUF_FProc& f, double& a,
             double& b, int* iuser, double* ruser, lbx::Fail& fail)
{
    auto eval = [&](double xx) { return f(xx, iuser, ruser); };
    search_and_solve<C05AUF_msg>(x, h, eps, eta, eval, a, b, fail);
}

void C05AGFN(double& x, double h, double eps, double eta, const C05AGF_FProc& f, double& a,
             double& b, lbx::Fail& fail)
{
    auto eval = [&](double xx) { return f(xx); };
    search_and_solve<C05AGF_msg>(x, h, eps, eta, eval, a, b, fail);
}

}  // namespace lbx::roots
