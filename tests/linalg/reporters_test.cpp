// The reporters' recording mode as a test program sees it: which reports pass,
// the rewrite of TSLTESTBLASENV, the silent mode, and the environment
// routines.  (The records themselves, and the stops of the normal mode:
// tests/fortran/linalg_*.f90.)
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "lbx3207qk.h"
#include "recording.hpp"

namespace {

using lbx_test::Recording;

void f06(const std::string& srname, int info)
{
    f06aazn_(srname.data(), &info, srname.size());
}

void f16(const std::string& srname, int info, int val)
{
    f16aazn_(srname.data(), &info, &val, srname.size());
}

struct Case {
    const char* srname;
    int info;
    int expected_info;
    const char* expected_name;
    bool pass;
};

constexpr Case f06_cases[] = {
    {"F07AJF/DGETRI", 6, 6, "DGETRI", true},
    {"F07AJF/DGETRI", 6, 6, "F07AJF", true},
    {"F07AJF/DGETRI", 5, 6, "DGETRI", false},  // wrong argument number
    {"F07AJF/DGETRI", 6, 0, "DGETRI", false},  // none expected
    {"F07AJF/DGETRI", 6, 6, "DGETRF", false},  // wrong routine
    {"F07AJF/DGETRI", 6, 6, "F07AJ", false},
    {"DLASWP       ", 2, 2, "DLASWP", true},  // no "/": the whole name
    {"/DGETRI", 1, 1, "DGETRI", false},       // "/" first: the whole name
    {"DGETRI/", 1, 1, "DGETRI", false},       // "/" last: the whole name
    {"A/B/DGETRI", 1, 1, "DGETRI", true},     // the last "/" splits
    {"A/B/DGETRI", 1, 1, "A/B", true},
};

TEST(Reporters, F06RecordingMode)
{
    for (const Case& c : f06_cases) {
        Recording rec(c.expected_info, c.expected_name);
        f06(c.srname, c.info);
        EXPECT_TRUE(rec.called()) << c.srname;
        EXPECT_EQ(rec.passed(), c.pass) << c.srname << " " << c.info << " " << c.expected_name;
    }
}

TEST(Reporters, F16RecordingModeComparesMinusInfo)
{
    {
        Recording rec(3, "F16ELF");
        f16("F16ELF/BLAS_DSUM", -3, 0);
        EXPECT_TRUE(rec.called());
        EXPECT_TRUE(rec.passed());
    }
    {
        Recording rec(3, "F16ELF");
        f16("F16ELF/BLAS_DSUM", 3, 0);  // an internal error: not an argument report
        EXPECT_FALSE(rec.called());
    }
    {
        Recording rec(4, "F16ELF");
        f16("F16ELF/BLAS_DSUM", -3, 0);
        EXPECT_FALSE(rec.passed());
    }
}

TEST(Reporters, EnvironmentRewrittenInI6Fields)
{
    Recording rec(6, "DGETRI");
    f06("F07AJF/DGETRI", 5);
    EXPECT_EQ(Recording::env(), "    -1     6     0     1");
}

TEST(Reporters, OtherModeIsSilent)
{
    Recording rec(6, "DGETRI");
    setenv("TSLTESTING", "XBLAS", 1);
    f06("F07AJF/DGETRI", 5);
    f16("F16ELF/BLAS_DSUM", -3, 0);
    EXPECT_FALSE(rec.called());
    EXPECT_TRUE(rec.passed());
}

TEST(Reporters, EnvironmentRoutines)
{
    const std::string name = "LBX_TEST_VARIABLE   ", value = "some value  ";
    f06aatn_(name.data(), value.data(), name.size(), value.size());
    EXPECT_STREQ(std::getenv("LBX_TEST_VARIABLE"), "some value");
    char buf[14];
    f06aaun_(name.data(), buf, name.size(), sizeof buf);
    EXPECT_EQ(std::string(buf, sizeof buf), "some value    ");
    char small[4];
    f06aaun_(name.data(), small, name.size(), sizeof small);
    EXPECT_EQ(std::string(small, sizeof small), "some");
    const std::string unset = "LBX_TEST_UNSET";
    unsetenv("LBX_TEST_UNSET");
    f06aaun_(unset.data(), buf, unset.size(), sizeof buf);
    EXPECT_EQ(std::string(buf, sizeof buf), std::string(14, ' '));
}

}  // namespace
