// F07ZAZN (the tuning table) and the reference LAPACK copy's ilaenv and xerbla
// replacements, through the exported entries, with the reporters recording.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "lbx3207qk.h"
#include "linalg/shims.hpp"
#include "recording.hpp"

namespace {

using lbx_test::Recording;

int get(int ispec, const std::string& name)
{
    int ival = -77, setget = 0;
    f07zazn_(&ispec, name.data(), &ival, &setget, name.size());
    return ival;
}

void set(int ispec, const std::string& name, int value)
{
    int setget = 1;
    f07zazn_(&ispec, name.data(), &value, &setget, name.size());
}

// The values every caller relies on: ISPEC 1..4.
struct Row {
    const char* name;
    int v[4];
};
constexpr Row fixed_rows[] = {
    {"F07ADFN", {64, 0, 0, 0}},   {"F07AJFN", {64, 2, 0, 0}},   {"F07ARFN", {80, 0, 0, 0}},
    {"F07AWFN", {56, 2, 0, 0}},   {"F07JEFN", {1, 0, 0, 0}},    {"F07MDFN", {1, 1, 0, 0}},
    {"F07MRFN", {4, 2, 0, 0}},    {"F08AEFN", {112, 2, 0, 0}},  {"F08AKFN", {128, 2, 0, 0}},
    {"F08NFFN", {16, 4, 0, 0}},   {"F08PEFN", {0, 0, 0, 2}},    {"F08PSFN", {0, 0, 0, 9}},
    {"F07FCFN", {64, 3, 128, 2}}, {"F08FDFN", {32, 3, 128, 2}}, {"F08KBFN", {32, 3, 128, 2}},
    {"F08MEVN", {0, 0, 0, 0}},    {"f07adfn", {64, 0, 0, 0}},   {"F08MEv", {0, 0, 0, 0}},
};

TEST(Tuning, FixedValues)
{
    Recording rec(0, "NONE");
    for (const Row& r : fixed_rows)
        for (int ispec = 1; ispec <= 4; ++ispec)
            EXPECT_EQ(get(ispec, r.name), r.v[ispec - 1]) << r.name << " ISPEC " << ispec;
    EXPECT_FALSE(rec.called());
}

TEST(Tuning, EveryRowSharesIspec5To11)
{
    Recording rec(0, "NONE");
    constexpr int common[] = {2, 128, 1, 50, 25, 0, 0};
    for (const char* name : {"F07ADF", "F08MEV", "F08YVF"})
        for (int ispec = 5; ispec <= 11; ++ispec)
            EXPECT_EQ(get(ispec, name), common[ispec - 5]) << name << " ISPEC " << ispec;
    EXPECT_FALSE(rec.called());
}

// Error 1 (ISPEC) before error 2 (name); IVAL receives minus the number.
struct Bad {
    int ispec;
    const char* name;
    int info;
};
constexpr Bad bad_calls[] = {
    {0, "F07ADF", 1}, {12, "F07ADF", 1}, {0, "F99XXF", 1},
    {1, "F99XXF", 2}, {1, "F08MEX", 2},  {1, " F07AD", 2},
};

TEST(Tuning, ErrorsInGetMode)
{
    for (const Bad& b : bad_calls) {
        Recording rec(b.info, "ILAENV");
        EXPECT_EQ(get(b.ispec, b.name), -b.info) << b.ispec << " " << b.name;
        EXPECT_TRUE(rec.called()) << b.ispec << " " << b.name;
        EXPECT_TRUE(rec.passed()) << b.ispec << " " << b.name << ": " << Recording::env();
    }
}

TEST(TuningDeathTest, SetWithAnErrorStops)
{
    EXPECT_EXIT(
        {
            Recording rec(2, "ILAENV");
            set(1, "F99XXF", 5);
            std::fprintf(stderr, "returned");
        },
        testing::ExitedWithCode(0), "^$");
}

int ilaenv(int ispec, const std::string& name)
{
    const int n = 100;
    return lbx_ilaenv_(&ispec, name.data(), " ", &n, &n, &n, &n, name.size(), 1);
}

TEST(Shims, IlaenvReadsTheTableForPairedRoutines)
{
    Recording rec(0, "NONE");
    EXPECT_EQ(ilaenv(1, "DGETRI"), 64);
    EXPECT_EQ(ilaenv(2, "dgetri  "), 2);
    set(1, "F07MDF", 9);
    EXPECT_EQ(ilaenv(1, "DSYTRF"), 9);
    set(1, "F07MDF", 1);
    // Not in the table (F07AE, F08ME without V): the reference answer, 1.
    EXPECT_EQ(ilaenv(1, "DGETRS"), 1);
    EXPECT_FALSE(rec.called());
}

struct Xerbla {
    const char* standard;
    int info;
    const char* expected;  // what a recording test may name
};
constexpr Xerbla xerbla_calls[] = {
    {"dgetri ", 3, "F07AJF"},
    {"ZHETRF", 7, "F07MRF"},
    {"DLASWP", 2, "DLASWP"},
};

TEST(Shims, XerblaReportsUnderThePairingName)
{
    for (const Xerbla& x : xerbla_calls) {
        Recording rec(x.info, x.expected);
        lbx_xerbla_(x.standard, &x.info, std::strlen(x.standard));
        EXPECT_TRUE(rec.called()) << x.standard;
        EXPECT_TRUE(rec.passed()) << x.standard;
    }
}

// The NaN-safe index search of the private LAPACK: the first element of
// largest magnitude by comparisons a NaN never wins, unless it is element 1
// (the answers worked out by hand; where element 1 is not a NaN, the external
// routine's own answer stands unless it names a NaN).
TEST(Shims, IndexSearchLetsNoNaNWinButElementOne)
{
    const double nan = std::nan("");
    const struct {
        std::vector<double> x;
        int expected;
    } cases[] = {{{nan, 3.0, -5.0, 2.0}, 1}, {{1.0, nan, -5.0, 5.0}, 3}};
    for (const auto& c : cases) {
        const int n = static_cast<int>(c.x.size()), inc = 1;
        EXPECT_EQ(lbx_idamax_(&n, c.x.data(), &inc), c.expected) << c.expected;
    }
}

}  // namespace
