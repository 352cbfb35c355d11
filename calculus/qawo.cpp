// D01ANF: QUADPACK's QAWO (DQAWOE) for the integral over [A, B] of f(x)
// cos(OMEGA x) (KEY = 1) or f(x) sin(OMEGA x) (KEY = 2): globally adaptive
// bisection with the modified Clenshaw-Curtis rule of 25 points on the
// subintervals where OMEGA times the half-length exceeds 2 (DQC25F, with its
// Chebyshev moments, computed once per level of bisection and kept, and
// remembered per thread for later calls with the same OMEGA times
// half-length) and the
// 15-point Gauss-Kronrod rule with the weight elsewhere (DQK15W),
// extrapolated by the epsilon algorithm (D01AJYN). The published order of
// operations is kept.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

#include "calculus/qags.hpp"
#include "calculus/weighted.hpp"
#include "gen/calculus.hpp"

namespace lbx::calculus {

namespace {

// The number of levels of bisection whose Chebyshev moments are kept: the
// published driver DQAWO's MAXP1.
constexpr int maxp1 = 21;

// The moments of DQC25F: chebmo(m, k), m = 1..maxp1 the level, k = 1..25
// (odd k: with respect to cosine, even k: sine), a level's 25 together;
// momcom levels computed so far.
struct ChebyshevMoments {
    double chebmo[maxp1 * 25];
    int momcom = 0;
    double& operator()(int m, int k) { return chebmo[(m - 1) * 25 + (k - 1)]; }
    double* level(int m) { return chebmo + (m - 1) * 25; }
};

// DGTSL (LINPACK): solves the tridiagonal system with subdiagonal c(2..n),
// diagonal d and superdiagonal e(1..n-1) by Gaussian elimination with
// partial pivoting; b is overwritten by the solution. 1-based as published.
void tridiagonal_solve(int n, double* c, double* d, double* e, double* b)
{
    c[1] = d[1];
    const int nm1 = n - 1;
    if (nm1 >= 1) {
        d[1] = e[1];
        e[1] = 0.0;
        e[n] = 0.0;
        for (int k = 1; k <= nm1; ++k) {
            const int kp1 = k + 1;
            if (!(std::fabs(c[kp1]) < std::fabs(c[k]))) {
                std::swap(c[kp1], c[k]);
                std::swap(d[kp1], d[k]);
                std::swap(e[kp1], e[k]);
                std::swap(b[kp1], b[k]);
            }
            if (c[k] == 0.0) {
                return;
            }
            const double t = -c[kp1] / c[k];
            c[kp1] = d[kp1] + t * d[k];
            d[kp1] = e[kp1] + t * e[k];
            e[kp1] = 0.0;
            b[kp1] = b[kp1] + t * b[k];
        }
    }
    if (c[n] == 0.0) {
        return;
    }
    const int nm2 = n - 2;
    b[n] = b[n] / c[n];
    if (n == 1) {
        return;
    }
    b[nm1] = (b[nm1] - d[nm1] * b[n]) / c[nm1];
    for (int kb = 1; kb <= nm2; ++kb) {
        const int k = nm2 - kb + 1;
        b[k] = (b[k] - d[k] * b[k + 1] - e[k] * b[k + 2]) / c[k];
    }
}

// The Chebyshev moments of DQC25F for the parameter parint (omega times the
// half-length): moment k = 1..25 into out[k - 1].
void oscillatory_moments(double parint, double* out)
{
    double v[29], d[26], d1[26], d2[26];
    const int noequ = 25;
    const int noeq1 = noequ - 1;
    const double par2 = parint * parint;
    const double par22 = par2 + 2.0;
    const double sinpar = std::sin(parint);
    const double cospar = std::cos(parint);

    // With respect to cosine.
    v[1] = 2.0 * sinpar / parint;
    v[2] = (8.0 * cospar + (par2 + par2 - 8.0) * sinpar / parint) / par2;
    v[3] =
        (32.0 * (par2 - 12.0) * cospar + (2.0 * ((par2 - 80.0) * par2 + 192.0) * sinpar) / parint) /
        (par2 * par2);
    double ac = 8.0 * cospar;
    double as = 24.0 * parint * sinpar;
    if (std::fabs(parint) > 24.0) {
        // Forward recursion.
        double an = 4.0;
        for (int i = 4; i <= 13; ++i) {
            const double an2 = an * an;
            v[i] = ((an2 - 4.0) * (2.0 * (par22 - an2 - an2) * v[i - 1] - ac) + as -
                    par2 * (an + 1.0) * (an + 2.0) * v[i - 2]) /
                   (par2 * (an - 1.0) * (an - 2.0));
            an = an + 2.0;
        }
    } else {
        // A boundary value problem with one initial value (v(3)) and one end
        // value from an asymptotic formula.
        double an = 6.0;
        for (int k = 1; k <= noeq1; ++k) {
            const double an2 = an * an;
            d[k] = -2.0 * (an2 - 4.0) * (par22 - an2 - an2);
            d2[k] = (an - 1.0) * (an - 2.0) * par2;
            d1[k + 1] = (an + 3.0) * (an + 4.0) * par2;
            v[k + 3] = as - (an2 - 4.0) * ac;
            an = an + 2.0;
        }
        const double an2 = an * an;
        d[noequ] = -2.0 * (an2 - 4.0) * (par22 - an2 - an2);
        v[noequ + 3] = as - (an2 - 4.0) * ac;
        v[4] = v[4] - 56.0 * par2 * v[3];
        const double ass = parint * sinpar;
        const double asap = (((((210.0 * par2 - 1.0) * cospar - (105.0 * par2 - 63.0) * ass) / an2 -
                               (1.0 - 15.0 * par2) * cospar + 15.0 * ass) /
                                  an2 -
                              cospar + 3.0 * ass) /
                                 an2 -
                             cospar) /
                            an2;
        v[noequ + 3] = v[noequ + 3] - 2.0 * asap * par2 * (an - 1.0) * (an - 2.0);
        tridiagonal_solve(noequ, d1, d, d2, v + 3);
    }
    for (int j = 1; j <= 13; ++j) {
        out[2 * j - 2] = v[j];
    }

    // With respect to sine.
    v[1] = 2.0 * (sinpar - parint * cospar) / par2;
    v[2] = (18.0 - 48.0 / par2) * sinpar / par2 + (-2.0 + 48.0 / par2) * cospar / parint;
    ac = -24.0 * parint * cospar;
    as = -8.0 * sinpar;
    if (std::fabs(parint) > 24.0) {
        double an = 3.0;
        for (int i = 3; i <= 12; ++i) {
            const double an2 = an * an;
            v[i] = ((an2 - 4.0) * (2.0 * (par22 - an2 - an2) * v[i - 1] + as) + ac -
                    par2 * (an + 1.0) * (an + 2.0) * v[i - 2]) /
                   (par2 * (an - 1.0) * (an - 2.0));
            an = an + 2.0;
        }
    } else {
        double an = 5.0;
        for (int k = 1; k <= noeq1; ++k) {
            const double an2 = an * an;
            d[k] = -2.0 * (an2 - 4.0) * (par22 - an2 - an2);
            d2[k] = (an - 1.0) * (an - 2.0) * par2;
            d1[k + 1] = (an + 3.0) * (an + 4.0) * par2;
            v[k + 2] = ac + (an2 - 4.0) * as;
            an = an + 2.0;
        }
        const double an2 = an * an;
        d[noequ] = -2.0 * (an2 - 4.0) * (par22 - an2 - an2);
        v[noequ + 2] = ac + (an2 - 4.0) * as;
        v[3] = v[3] - 42.0 * par2 * v[2];
        const double ass = parint * cospar;
        const double asap = (((((105.0 * par2 - 63.0) * ass - (210.0 * par2 - 1.0) * sinpar) / an2 +
                               (15.0 * par2 - 1.0) * sinpar - 15.0 * ass) /
                                  an2 -
                              sinpar - 3.0 * ass) /
                                 an2 -
                             sinpar) /
                            an2;
        v[noequ + 2] = v[noequ + 2] - 2.0 * asap * par2 * (an - 1.0) * (an - 2.0);
        tridiagonal_solve(noequ, d1, d, d2, v + 2);
    }
    for (int j = 1; j <= 12; ++j) {
        out[2 * j - 1] = v[j];
    }
}

// The moments depend on parint alone, and a caller integrating with the same
// OMEGA over intervals of the same length asks for the same levels again: a
// per-thread table of the last levels computed, indexed by parint's bits
// (direct mapped, no locks; parint is never 0 here, the mark of an empty
// slot). A hit gives the numbers a computation would.
struct MomentCache {
    static constexpr int slots = 128;
    struct Slot {
        std::uint64_t key;
        double moments[25];
    };
    Slot slot[slots];
};
thread_local MomentCache moment_cache;

void cached_moments(double parint, double* out)
{
    const auto key = std::bit_cast<std::uint64_t>(parint);
    MomentCache::Slot& s =
        moment_cache.slot[(key * 0x9E3779B97F4A7C15ull) >> 57];  // 7 bits: 128 slots
    if (s.key != key) {
        oscillatory_moments(parint, s.moments);
        s.key = key;
    }
    std::copy_n(s.moments, 25, out);
}

// DQC25F: the integral of f(x) cos(omega x) (integr 1) or f(x) sin(omega x)
// (integr 2) over [a, b]; nrmom the level of bisection, ksave 1 when the
// moments of this level were just computed for the left half.
template <class F>
void D01ANZN(F&& f, double a, double b, double omega, int integr, int nrmom, int ksave,
             ChebyshevMoments& mom, double& result, double& abserr, int& neval, double& resabs,
             double& resasc)
{
    const double centr = 0.5 * (b + a);
    const double hlgth = 0.5 * (b - a);
    const double parint = omega * hlgth;
    if (std::fabs(parint) <= 2.0) {
        auto w = [omega, integr](double x) {
            const double omx = omega * x;
            return integr == 1 ? std::cos(omx) : std::sin(omx);
        };
        kronrod15_weighted(f, w, a, b, result, abserr, resabs, resasc);
        neval = 15;
        return;
    }
    const double conc = hlgth * std::cos(centr * omega);
    const double cons = hlgth * std::sin(centr * omega);
    resasc = quadpack::oflow;
    neval = 25;
    int m = 0;
    if (!(nrmom < mom.momcom || ksave == 1)) {
        m = mom.momcom + 1;
        cached_moments(parint, mom.level(m));
    }
    if (nrmom < mom.momcom) {
        m = nrmom + 1;
    }
    if (mom.momcom < maxp1 - 1 && nrmom >= mom.momcom) {
        mom.momcom = mom.momcom + 1;
    }
    double fval[25], cheb12[13], cheb24[25];
    fval[0] = 0.5 * f(centr + hlgth);
    fval[12] = f(centr);
    fval[24] = 0.5 * f(centr - hlgth);
    for (int i = 2; i <= 12; ++i) {
        const int isym = 26 - i;
        fval[i - 1] = f(hlgth * xcos[i - 2] + centr);
        fval[isym - 1] = f(centr - hlgth * xcos[i - 2]);
    }
    chebyshev_series(fval, cheb12, cheb24);
    // The published coefficients are numbered from 1.
    auto c12 = [&](int i) { return cheb12[i - 1]; };
    auto c24 = [&](int i) { return cheb24[i - 1]; };
    double resc12 = c12(13) * mom(m, 13);
    double ress12 = 0.0;
    int k = 11;
    for (int j = 1; j <= 6; ++j) {
        resc12 = resc12 + c12(k) * mom(m, k);
        ress12 = ress12 + c12(k + 1) * mom(m, k + 1);
        k = k - 2;
    }
    double resc24 = c24(25) * mom(m, 25);
    double ress24 = 0.0;
    resabs = std::fabs(c24(25));
    k = 23;
    for (int j = 1; j <= 12; ++j) {
        resc24 = resc24 + c24(k) * mom(m, k);
        ress24 = ress24 + c24(k + 1) * mom(m, k + 1);
        resabs = resabs + std::fabs(c24(k)) + std::fabs(c24(k + 1));
        k = k - 2;
    }
    const double estc = std::fabs(resc24 - resc12);
    const double ests = std::fabs(ress24 - ress12);
    resabs = resabs * std::fabs(hlgth);
    if (integr == 2) {
        result = conc * ress24 + cons * resc24;
        abserr = std::fabs(conc * ests) + std::fabs(cons * estc);
    } else {
        result = conc * resc24 - cons * ress24;
        abserr = std::fabs(conc * estc) + std::fabs(cons * ests);
    }
}

// DQAWOE on the caller's lists (nnlog: the level of each subinterval,
// limit elements); icall > 1 reuses the moments of mom (QAWF). The
// outcome's ier is the published one after its renumbering (0 to 5).
template <class F>
QagsOutcome qawo_core(F&& f, double a, double b, double omega, int integr, double epsabs,
                      double epsrel, int icall, const Subintervals& s, int* nnlog1,
                      ChebyshevMoments& mom, double& result, double& abserr)
{
    using quadpack::dmax;
    using quadpack::epmach;
    using quadpack::oflow;
    using quadpack::uflow;
    double* alist = s.alist - 1;
    double* blist = s.blist - 1;
    double* rlist = s.rlist - 1;
    double* elist = s.elist - 1;
    const int* iord = s.iord - 1;
    int* nnlog = nnlog1 - 1;
    const int limit = s.limit;

    QagsOutcome out;
    int& ier = out.ier;
    int& last = out.last;
    result = 0.0;
    abserr = 0.0;
    alist[1] = a;
    blist[1] = b;
    rlist[1] = 0.0;
    elist[1] = 0.0;
    s.iord[0] = 0;
    nnlog[1] = 0;

    const double domega = std::fabs(omega);
    int nrmom = 0;
    if (icall <= 1) {
        mom.momcom = 0;
    }
    int neval;
    double defabs, resabs;
    D01ANZN(f, a, b, domega, integr, nrmom, 0, mom, result, abserr, neval, defabs, resabs);
    const double dres = std::fabs(result);
    double errbnd = dmax(epsabs, epsrel * dres);
    rlist[1] = result;
    elist[1] = abserr;
    s.iord[0] = 1;
    last = 1;
    if (abserr <= 100.0 * epmach * defabs && abserr > errbnd) {
        ier = 2;
    }
    if (limit == 1) {
        ier = 1;
    }
    auto sign = [&] {  // 200
        if (integr == 2 && omega < 0.0) {
            result = -result;
        }
    };
    if (ier != 0 || abserr <= errbnd) {
        sign();
        return out;
    }

    double rlist2[quadpack::epstab_length];
    double res3la[3];
    double errmax = abserr;
    int maxerr = 1;
    double area = result;
    double errsum = abserr;
    abserr = oflow;
    int nrmax = 1;
    bool extrap = false;
    bool noext = false;
    int ierro = 0;
    int iroff1 = 0, iroff2 = 0, iroff3 = 0;
    int ktmin = 0;
    double small = std::fabs(b - a) * 0.75;
    int nres = 0;
    int numrl2 = 0;
    bool extall = false;
    if (!(0.5 * std::fabs(b - a) * domega > 2.0)) {
        numrl2 = 1;
        extall = true;
        rlist2[0] = result;
    }
    if (0.25 * std::fabs(b - a) * domega <= 2.0) {
        extall = true;
    }
    int ksgn = -1;
    if (dres >= (1.0 - 50.0 * epmach) * defabs) {
        ksgn = 1;
    }
    double erlarg = 0.0, ertest = 0.0, correc = 0.0;
    bool sum_lists = false;  // leave through 170

    for (last = 2; last <= limit; ++last) {
        nrmom = nnlog[maxerr] + 1;
        const double a1 = alist[maxerr];
        const double b1 = 0.5 * (alist[maxerr] + blist[maxerr]);
        const double a2 = b1;
        const double b2 = blist[maxerr];
        const double erlast = errmax;
        double area1, error1, area2, error2, defab1, defab2;
        int nev;
        D01ANZN(f, a1, b1, domega, integr, nrmom, 0, mom, area1, error1, nev, resabs, defab1);
        D01ANZN(f, a2, b2, domega, integr, nrmom, 1, mom, area2, error2, nev, resabs, defab2);
        const double area12 = area1 + area2;
        const double erro12 = error1 + error2;
        errsum = errsum + erro12 - errmax;
        area = area + area12 - rlist[maxerr];
        if (!(defab1 == error1 || defab2 == error2)) {
            if (!(std::fabs(rlist[maxerr] - area12) > 1.0e-5 * std::fabs(area12) ||
                  erro12 < 0.99 * errmax)) {
                if (extrap) {
                    iroff2 = iroff2 + 1;
                } else {
                    iroff1 = iroff1 + 1;
                }
            }
            if (last > 10 && erro12 > errmax) {
                iroff3 = iroff3 + 1;
            }
        }
        rlist[maxerr] = area1;
        rlist[last] = area2;
        nnlog[maxerr] = nrmom;
        nnlog[last] = nrmom;
        errbnd = dmax(epsabs, epsrel * std::fabs(area));
        if (iroff1 + iroff2 >= 10 || iroff3 >= 20) {
            ier = 2;
        }
        if (iroff2 >= 5) {
            ierro = 3;
        }
        if (last == limit) {
            ier = 1;
        }
        if (dmax(std::fabs(a1), std::fabs(b2)) <=
            (1.0 + 100.0 * epmach) * (std::fabs(a2) + 1000.0 * uflow)) {
            ier = 4;
            out.bad_left = a1;
            out.bad_right = b2;
        }
        store_halves(s, maxerr, last, a1, b1, a2, b2, area1, area2, error1, error2);
        order_by_error(s, last, maxerr, errmax, nrmax);
        if (errsum <= errbnd) {
            sum_lists = true;  // 170
            break;
        }
        if (ier != 0) {
            break;  // 150
        }
        if (last == 2 && extall) {  // 120
            small = small * 0.5;
            numrl2 = numrl2 + 1;
            rlist2[numrl2 - 1] = area;
            ertest = errbnd;  // 130
            erlarg = errsum;
            continue;
        }
        if (noext) {
            continue;
        }
        bool to_70 = false;
        if (extall) {
            erlarg = erlarg - erlast;
            if (std::fabs(b1 - a1) > small) {
                erlarg = erlarg + erro12;
            }
            to_70 = extrap;
        }
        if (!to_70) {
            // 50: is the interval to be bisected next the smallest one?
            const double width = std::fabs(blist[maxerr] - alist[maxerr]);
            if (width > small) {
                continue;
            }
            if (!extall) {
                // Can extrapolation start (is the next interval one for
                // the Gauss-Kronrod rule)?
                small = small * 0.5;
                if (0.25 * width * domega > 2.0) {
                    continue;
                }
                extall = true;
                ertest = errbnd;  // 130
                erlarg = errsum;
                continue;
            }
            extrap = true;  // 60
            nrmax = 2;
        }
        // 70
        if (ierro != 3 && erlarg > ertest) {
            const int id = nrmax;
            const int jupbnd = (last > limit / 2 + 2) ? limit + 3 - last : last;
            bool larger_left = false;
            for (int k = id; k <= jupbnd; ++k) {
                maxerr = iord[nrmax];
                errmax = elist[maxerr];
                if (std::fabs(blist[maxerr] - alist[maxerr]) > small) {
                    larger_left = true;
                    break;
                }
                nrmax = nrmax + 1;
            }
            if (larger_left) {
                continue;
            }
        }
        // 90: extrapolate.
        numrl2 = numrl2 + 1;
        rlist2[numrl2 - 1] = area;
        if (numrl2 >= 3) {
            double reseps, abseps;
            D01AJYN(numrl2, rlist2, reseps, abseps, res3la, nres);
            ktmin = ktmin + 1;
            if (ktmin > 5 && abserr < 1.0e-3 * errsum) {
                ier = 5;
            }
            if (abseps < abserr) {
                ktmin = 0;
                abserr = abseps;
                result = reseps;
                correc = erlarg;
                ertest = dmax(epsabs, epsrel * std::fabs(reseps));
                if (abserr <= ertest) {
                    break;  // 150
                }
            }
            // 100
            if (numrl2 == 1) {
                noext = true;
            }
            if (ier == 5) {
                break;
            }
        }
        // 110: prepare bisection of the smallest interval.
        maxerr = iord[1];
        errmax = elist[maxerr];
        nrmax = 1;
        extrap = false;
        small = small * 0.5;
        erlarg = errsum;
    }
    if (last > limit) {
        last = limit;
    }

    // 150: final result and error estimate.
    bool divergence_test = false;
    if (!sum_lists) {
        if (abserr == oflow || nres == 0) {
            sum_lists = true;
        } else if (ier + ierro == 0) {
            divergence_test = true;  // 165
        } else {
            if (ierro == 3) {
                abserr = abserr + correc;
            }
            if (ier == 0) {
                ier = 3;
            }
            if (result != 0.0 && area != 0.0) {
                if (abserr / std::fabs(result) > errsum / std::fabs(area)) {
                    sum_lists = true;
                } else {
                    divergence_test = true;
                }
            } else if (abserr > errsum) {
                sum_lists = true;
            } else if (area != 0.0) {
                divergence_test = true;
            }
        }
    }
    if (divergence_test) {
        if (!(ksgn == -1 && dmax(std::fabs(result), std::fabs(area)) <= defabs * 0.01)) {
            if (0.01 > result / area || result / area > 100.0 || errsum >= std::fabs(area)) {
                ier = 6;
            }
        }
    } else if (sum_lists) {
        result = 0.0;
        for (int k = 1; k <= last; ++k) {
            result = result + rlist[k];
        }
        abserr = errsum;
    }
    if (ier > 2) {  // 190
        ier = ier - 1;
    }
    sign();
    return out;
}

}  // namespace

void D01ANFN(const D01ANF_GProc& g, double a, double b, double omega, int key, double epsabs,
             double epsrel, double& result, double& abserr, double* w, int lw, int* iw, int liw,
             int* iuser, double* ruser, lbx::Fail& fail)
{
    if (key != 1 && key != 2) {
        return fail(D01ANF_msg::KEY_INVALID, key);
    }
    if (lw < 4) {
        return fail(D01ANF_msg::LW_TOO_SMALL, lw);
    }
    if (liw < 2) {
        return fail(D01ANF_msg::LIW_TOO_SMALL, liw);
    }
    const int limit = std::min(lw / 4, liw / 2);
    const Subintervals s{w, w + limit, w + 2 * limit, w + 3 * limit, iw, limit};
    auto eval = [&](double x) { return g(x, iuser, ruser); };
    ChebyshevMoments mom;
    const QagsOutcome o = qawo_core(eval, a, b, omega, key, std::fabs(epsabs), std::fabs(epsrel), 1,
                                    s, iw + limit, mom, result, abserr);
    if (o.last < limit) {
        compact_lists(w, limit, o.last);
    }
    iw[0] = o.last;
    switch (o.ier) {
        case 1:
            return fail(D01ANF_msg::LIMIT_REACHED, limit, lw, liw);
        case 2:
            return fail(D01ANF_msg::ROUND_OFF, epsabs, epsrel);
        case 3:
            return fail(D01ANF_msg::BAD_INTEGRAND, o.bad_left, o.bad_right);
        case 4:
            return fail(D01ANF_msg::EXTRAPOLATION_ROUND_OFF);
        case 5:
            return fail(D01ANF_msg::DIVERGENT);
        default:
            return;
    }
}

}  // namespace lbx::calculus

namespace lbx::calculus {

// D01ASF: QUADPACK's QAWF (DQAWFE) for the integral over [A, infinity) of
// f(x) cos(OMEGA x) or f(x) sin(OMEGA x): QAWO on consecutive intervals of
// (2 int(abs(OMEGA)) + 1) pi / abs(OMEGA), the k-th to the absolute accuracy
// EPSABS (1 - p) p^(k-1) with p = 0.9, the moments kept from one interval to
// the next, and the epsilon algorithm on the partial sums. OMEGA = 0 with
// KEY = 1 is QAGI on [A, infinity); with KEY = 2 the integral is 0.
void D01ASFN(const D01ASF_GProc& g, double a, double omega, int key, double epsabs, double& result,
             double& abserr, int limlst, int& lst, double* erlst, double* rslst, int* ierlst,
             double* w, int lw, int* iw, int liw, int* iuser, double* ruser, lbx::Fail& fail)
{
    using quadpack::dmax;
    if (key != 1 && key != 2) {
        return fail(D01ASF_msg::KEY_INVALID, key);
    }
    if (epsabs == 0.0) {
        return fail(D01ASF_msg::EPSABS_ZERO, epsabs);
    }
    if (limlst < 3) {
        return fail(D01ASF_msg::LIMLST_TOO_SMALL, limlst);
    }
    if (lw < 4) {
        return fail(D01ASF_msg::LW_TOO_SMALL, lw);
    }
    if (liw < 2) {
        return fail(D01ASF_msg::LIW_TOO_SMALL, liw);
    }
    const int limit = std::min(lw / 4, liw / 2);
    const Subintervals s{w, w + limit, w + 2 * limit, w + 3 * limit, iw, limit};
    auto eval = [&](double x) { return g(x, iuser, ruser); };
    const double eps_abs = std::fabs(epsabs);
    result = 0.0;
    abserr = 0.0;
    lst = 0;
    int ier = 0;
    if (omega == 0.0) {
        if (key == 1) {
            auto rule = [a](auto& f, double lo, double hi, double& r, double& e, double& ra,
                            double& rs) { D01AMZN(f, a, 1, lo, hi, r, e, ra, rs); };
            ier = qags_core(rule, eval, 0.0, 1.0, eps_abs, 0.0, s, result, abserr).ier;
        }
        rslst[0] = result;
        erlst[0] = abserr;
        ierlst[0] = ier;
        lst = 1;
        if (ier != 0) {
            return fail(D01ASF_msg::INTERVAL_FAILURES);
        }
        return;
    }

    constexpr double p = 0.9;
    constexpr double pi = 3.14159265358979323846264338327950;
    // The whole part of |OMEGA|, as the published INT conversion for every
    // OMEGA below 2^31 (and no integer overflow beyond).
    const double l = std::floor(std::min(std::fabs(omega), 2147483647.0));
    const double dl = 2 * l + 1;
    const double cycle = dl * pi / std::fabs(omega);
    double psum[quadpack::epstab_length];
    double res3la[3];
    int ktmin = 0;
    int numrl2 = 0;
    int nres = 0;
    double c1 = a;
    double c2 = cycle + a;
    const double p1 = 1.0 - p;
    double eps = eps_abs;
    if (eps_abs > quadpack::uflow / p1) {
        eps = eps_abs * p1;
    }
    const double ep = eps;
    double fact = 1.0;
    double correc = 0.0;
    double errsum = 0.0;
    double drl = 0.0;
    int ll = 0;
    ChebyshevMoments mom;
    bool partial_sum = false;  // leave through 80
    for (lst = 1; lst <= limlst; ++lst) {
        const double epsa = eps * fact;
        const QagsOutcome o = qawo_core(eval, c1, c2, omega, key, epsa, 0.0, lst, s, iw + limit,
                                        mom, rslst[lst - 1], erlst[lst - 1]);
        ierlst[lst - 1] = o.ier;
        fact = fact * p;
        errsum = errsum + erlst[lst - 1];
        drl = 50.0 * std::fabs(rslst[lst - 1]);
        if (errsum + drl <= eps_abs && lst >= 6) {
            partial_sum = true;  // 80: the partial sum before this interval
            break;
        }
        correc = dmax(correc, erlst[lst - 1]);
        if (ierlst[lst - 1] != 0) {
            eps = dmax(ep, correc * p1);
            ier = 7;
        }
        if (ier == 7 && errsum + drl <= correc * 10.0 && lst > 5) {
            partial_sum = true;
            break;
        }
        numrl2 = numrl2 + 1;
        if (lst == 1) {
            psum[0] = rslst[0];
        } else {
            psum[numrl2 - 1] = psum[ll - 1] + rslst[lst - 1];
            if (lst > 2) {
                if (lst == limlst) {
                    ier = 1;
                }
                double reseps, abseps;
                D01AJYN(numrl2, psum, reseps, abseps, res3la, nres);
                ktmin = ktmin + 1;
                if (ktmin >= 15 && abserr <= 1.0e-3 * (errsum + drl)) {
                    ier = 4;
                }
                bool leave = false;
                if (!(abseps > abserr && lst != 3)) {
                    abserr = abseps;
                    result = reseps;
                    ktmin = 0;
                    if (abserr + 10.0 * correc <= eps_abs ||
                        (abserr <= eps_abs && 10.0 * correc >= eps_abs)) {
                        leave = true;
                    }
                }
                if (leave || (ier != 0 && ier != 7)) {
                    break;  // 60
                }
            }
        }
        ll = numrl2;  // 40
        c1 = c2;
        c2 = c2 + cycle;
    }
    if (lst > limlst) {
        lst = limlst;
    }
    if (!partial_sum) {
        // 60: the extrapolated result, unless the partial sum is better.
        abserr = abserr + 10.0 * correc;
        if (ier != 0) {
            const double ps = psum[numrl2 - 1];
            if (result != 0.0 && ps != 0.0) {
                if (abserr / std::fabs(result) > (errsum + drl) / std::fabs(ps)) {
                    partial_sum = true;
                } else if (ier >= 1 && ier != 7) {
                    abserr = abserr + drl;
                }
            } else if (abserr > errsum) {
                partial_sum = true;
            } else if (ps != 0.0) {
                if (abserr / std::fabs(result) > (errsum + drl) / std::fabs(ps)) {
                    partial_sum = true;
                } else if (ier >= 1 && ier != 7) {
                    abserr = abserr + drl;
                }
            }
        }
    }
    if (partial_sum) {
        // 80
        result = psum[numrl2 - 1];
        abserr = errsum + drl;
    }
    switch (ier) {
        case 1:
            return fail(D01ASF_msg::LIMLST_REACHED, limlst);
        case 4:
            return fail(D01ASF_msg::EXTRAPOLATION_ROUND_OFF);
        case 7:
            return fail(D01ASF_msg::INTERVAL_FAILURES);
        default:
            return;
    }
}

}  // namespace lbx::calculus
