// The piecewise cubic Hermite interpolant shared by E01BEF to E01BHF: the
// check of the abscissae, the Hermite cubic of one interval (its value, first
// derivative and integrals, in the local variable s = (p - X(j)) / h), and
// the location of points among the abscissae.
//
// Interval j (0-based, 0 <= j <= n - 2) is [x[j], x[j+1]]; its cubic has the
// values f[j], f[j+1] and slopes d[j], d[j+1] at the ends.  A point p belongs
// to the interval j = the largest k in 1 .. n-2 with x[k] <= p, or 0 when
// there is none: points below x[0] use the first cubic, points above x[n-1]
// the last (extrapolation by the end cubics), x[n-1] itself the last.
#pragma once

#include <cstddef>

namespace lbx::approx {

// The first r (1-based, 2 <= r <= n) with X(r-1) < X(r) false (a NaN fails
// too), or 0 when the abscissae are strictly increasing.
inline int first_not_increasing(int n, const double* x)
{
    for (int r = 2; r <= n; ++r)
        if (!(x[r - 2] < x[r - 1]))
            return r;
    return 0;
}

// The cubic of one interval, from its end values and slopes; what every
// point of the interval shares (1/h, the slope of the chord and the end
// slopes' departures from it) is computed once, here.
struct HermiteCubic {
    double x0, h, f0, f1, d0, d1, r, delta, a0, a1;

    HermiteCubic(const double* x, const double* f, const double* d, std::ptrdiff_t j)
        : x0(x[j]), h(x[j + 1] - x[j]), f0(f[j]), f1(f[j + 1]), d0(d[j]), d1(d[j + 1])
    {
        r = 1 / h;
        delta = (f1 - f0) * r;
        a0 = d0 - delta;
        a1 = d1 - delta;
    }

    // Value at p: f0 + t (delta + (1 - s) ((1 - s)(d0 - delta) - s (d1 - delta)))
    // with t = p - x0, s = t / h and delta = (f1 - f0) / h, which is
    // f0 H00(s) + f1 H01(s) + h (d0 H10(s) + d1 H11(s)) rearranged.
    double value(double p) const
    {
        const double t = p - x0, s = t * r;
        return f0 + t * (delta + (1 - s) * ((1 - s) * a0 - s * a1));
    }

    // First derivative at p.
    double slope(double p) const
    {
        const double s = (p - x0) * r;
        return delta + (1 - s) * (1 - 3 * s) * a0 + s * (3 * s - 2) * a1;
    }

    // The integral from x0 to p: h (f0 I00 + f1 I01 + h (d0 I10 + d1 I11)) at
    // s = (p - x0) / h, with the integrals of the basis cubics from 0 to s.
    double from_left(double p) const { return integral(h, (p - x0) / h, f0, f1, d0, d1); }
    // The integral from p to x0 + h: the mirrored cubic (values f1, f0,
    // slopes -d1, -d0) from 0 to (x0 + h - p) / h.
    double to_right(double p) const { return integral(h, ((x0 + h) - p) / h, f1, f0, -d1, -d0); }
    // The integral from a to b: the cubic's Taylor expansion at a integrated
    // over b - a, free of the cancellation of from_left(b) - from_left(a).
    double between(double a, double b) const
    {
        const double c2 = (3 * delta - 2 * d0 - d1) * r, c3 = (d0 + d1 - 2 * delta) * r * r;
        const double t = a - x0, w = b - a;
        const double v = value(a), v1 = d0 + t * (2 * c2 + 3 * c3 * t);
        return w * (v + w * (0.5 * v1 + w * ((c2 + 3 * c3 * t) / 3 + 0.25 * w * c3)));
    }
    // The integral over the whole interval.
    double whole() const { return h * (0.5 * (f0 + f1) + h * (d0 - d1) / 12); }

    static double integral(double h, double s, double a, double b, double da, double db)
    {
        const double s2 = s * s, s3 = s2 * s, s4 = s3 * s;
        const double i00 = s - s3 + 0.5 * s4, i01 = s3 - 0.5 * s4;
        const double i10 = 0.5 * s2 - 2 * s3 / 3 + 0.25 * s4, i11 = 0.25 * s4 - s3 / 3;
        return h * (a * i00 + b * i01 + h * (da * i10 + db * i11));
    }
};

// The interval of p by binary search over all of x (see above).
inline std::ptrdiff_t interval_of(std::ptrdiff_t n, const double* x, double p)
{
    std::ptrdiff_t lo = 0, hi = n - 1;  // x[lo] <= p or lo = 0; hi = n - 1 or x[hi] > p
    while (hi - lo > 1) {
        const std::ptrdiff_t mid = lo + (hi - lo) / 2;
        if (x[mid] <= p)
            lo = mid;
        else
            hi = mid;
    }
    return lo;
}

// The intervals of successive blocks of points (see above), remembering the
// interval of the last point: a block in ascending order from that interval
// on is walked forward from it (each step a galloping search), any other
// block is located by branch-free binary searches run side by side, so that
// their memory accesses overlap.  Defined in interval_search.cpp.
class Locator {
public:
    static constexpr std::ptrdiff_t block = 64;

    Locator(std::ptrdiff_t n, const double* x) : n_(n), x_(x) {}
    // j[i] = the interval of p[i], 0 <= i < k <= block.
    void find(const double* p, std::ptrdiff_t k, std::ptrdiff_t* j);

private:
    void walk(const double* p, std::ptrdiff_t k, std::ptrdiff_t* j);
    void search(const double* p, std::ptrdiff_t k, std::ptrdiff_t* j) const;

    std::ptrdiff_t n_;
    const double* x_;
    std::ptrdiff_t last_ = 0;
};

// The derivatives d[0], d[incfd], ... at the n >= 2 strictly increasing
// abscissae x (not checked) for the values f[0], f[incfd], ... (E01BEF's
// algorithm); returns the number of switches of the direction of
// monotonicity.  Defined in monotone_derivatives.cpp.
int monotone_derivatives(int n, const double* x, const double* f, std::ptrdiff_t incfd, double* d);

}  // namespace lbx::approx
