// The battery of Alefeld, Potra and Shi and classic problems, solved through
// the public entries C05AYF and C05AZF, against reference zeros from mpmath
// (tests/data/roots_battery.txt, tools/roots_reference.py).
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "lbx3207qk.h"
#include "roots_battery.hpp"

namespace {

// Rows "id value value ..." of a data file, '#' lines skipped.
std::map<std::string, std::vector<double>> load(const char* name)
{
    std::map<std::string, std::vector<double>> rows;
    std::ifstream in(std::string(LBX_TEST_DATA) + "/" + name);
    std::string line, id;
    while (std::getline(in, line)) {
        std::istringstream s(line);
        if (line.empty() || line[0] == '#' || !(s >> id))
            continue;
        for (double v; s >> v;)
            rows[id].push_back(v);
    }
    return rows;
}

// The user function: IUSER(1) selects the problem, IUSER(2) counts the calls,
// RUSER(1) keeps the last point.
double battery_f(const double* x, int* iuser, double* ruser)
{
    const auto& p = roots_battery::problems()[iuser[0]];
    ++iuser[1];
    ruser[0] = *x;
    return p.f(*x, p.p, p.q);
}

// Every zero within 2 EPS of the reference (the engine's bracket guarantee),
// or an exact zero of the computed f (APS13, x exp(-1/x^2), underflows to 0
// for abs(x) < 0.0366), the last call of F at the zero returned.  At EPS =
// 1e-10 the evaluation counts must not exceed those recorded in
// tests/data/roots_battery_evals.txt (a regression guard on the step rules).
TEST(RootsBattery, C05AYFFindsEveryZeroAndCountsDoNotGrow)
{
    const auto refs = load("roots_battery.txt"), counts = load("roots_battery_evals.txt");
    const auto& list = roots_battery::problems();
    ASSERT_EQ(refs.size(), list.size());
    ASSERT_EQ(counts.size(), list.size());
    for (const double eps : {1e-6, 1e-10, 1e-14}) {
        for (int i = 0; i < static_cast<int>(list.size()); ++i) {
            const auto& p = list[i];
            const std::vector<double>& r = refs.at(p.id);
            EXPECT_TRUE(r.at(0) == p.a && r.at(1) == p.b) << p.id << ": data and list differ";
            int iuser[2] = {i, 0}, ifail = 1;
            double ruser[1] = {0.0}, x = -1.0, eta = 0.0;
            c05ayf_(&r[0], &r[1], &eps, &eta, battery_f, &x, iuser, ruser, &ifail);
            EXPECT_EQ(ifail, 0) << p.id << " EPS " << eps;
            EXPECT_TRUE(std::fabs(x - r[2]) <= 2.0 * eps || p.f(x, p.p, p.q) == 0.0)
                << p.id << " EPS " << eps << " x " << x << " zero " << r[2];
            EXPECT_EQ(ruser[0], x) << p.id;
            if (eps == 1e-10)
                EXPECT_LE(iuser[1], counts.at(p.id).at(0)) << p.id << ": more evaluations";
        }
    }
}

// The same problems through C05AZF driven from C with IND = 1: the same zeros
// within 2 TOLX, for every error criterion.
TEST(RootsBattery, C05AZFFromACallerLoop)
{
    const auto refs = load("roots_battery.txt");
    for (const auto& p : roots_battery::problems()) {
        const double zero = refs.at(p.id).at(2), tolx = 1e-11;
        for (const int ir : {0, 1, 2}) {
            double x = p.a, y = p.b, fx = 0.0, c[10];
            int ind = 1, ifail = 1, calls = 0;
            do {
                c05azf_(&x, &y, &fx, &tolx, &ir, c, &ind, &ifail);
                EXPECT_TRUE(ind == 0 || ifail == 0) << "an intermediate return raised";
                fx = p.f(x, p.p, p.q);
            } while (ind != 0 && ++calls < 1000);
            const bool exact_zero = p.f(x, p.p, p.q) == 0.0;
            if (ir == 2 && zero == 0.0) {
                // A relative tolerance vanishes at a zero at the origin: the
                // search ends on an exact zero or at the accuracy limit.
                EXPECT_TRUE(ifail == 5 || (ifail == 0 && exact_zero)) << p.id << " ifail " << ifail;
                EXPECT_TRUE(std::fabs(x) <= 1e-9 || exact_zero) << p.id;
                continue;
            }
            EXPECT_EQ(ifail, 0) << p.id << " IR " << ir;
            const double scale = ir == 0   ? std::fmax(1.0, std::fabs(x))
                                 : ir == 1 ? 1.0
                                           : std::fabs(x);
            EXPECT_TRUE(std::fabs(x - zero) <= 2.0 * tolx * scale * (1 + 1e-14) || exact_zero)
                << p.id << " IR " << ir << " x " << x << " zero " << zero;
        }
    }
}

}  // namespace
