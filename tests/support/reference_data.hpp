// Reading the committed reference tables (tools/special_reference.py and
// friends) and measuring errors in units in the last place.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace lbx::test {

struct ReferenceCase {
    std::string label;    // range or tail letter
    double x = 0;         // argument (exact double)
    double df = 0;        // second argument, when the table has one
    long double ref = 0;  // reference value, 25 digits, read in extended precision
};

inline std::vector<ReferenceCase> load_reference(const std::string& name, bool with_df)
{
    std::vector<ReferenceCase> cases;
    std::ifstream in(std::string(LBX_TEST_DATA) + "/" + name);
    std::string line;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        std::istringstream s(line);
        ReferenceCase c;
        std::string x, df, ref;
        s >> c.label >> x;
        if (with_df)
            s >> df;
        s >> ref;
        c.x = std::strtod(x.c_str(), nullptr);
        if (with_df)
            c.df = std::strtod(df.c_str(), nullptr);
        c.ref = std::strtold(ref.c_str(), nullptr);
        cases.push_back(c);
    }
    return cases;
}

// |got - ref| in units of the spacing of doubles at ref (2^-1074 below the
// normal range).
inline double ulp_error(double got, long double ref)
{
    const long double a = std::fabs(ref);
    long double ulp;
    if (a < 0x1p-1022L) {
        ulp = 0x1p-1074L;
    } else {
        int e;
        std::frexp(a, &e);  // a = m 2^e, 0.5 <= m < 1
        ulp = std::ldexp(1.0L, e - 53);
    }
    return static_cast<double>(std::fabs(static_cast<long double>(got) - ref) / ulp);
}

// The largest error in ULPs per group of a table, printed and held to its bound:
// value(c) is the routine's result for case c, group(c) the case's group.
template <class Value, class Group>
void check_accuracy(const std::string& file, bool with_df, Value value, Group group,
                    const std::map<std::string, double>& bounds)
{
    const auto cases = load_reference(file, with_df);
    ASSERT_GT(cases.size(), 1000u) << file;
    std::map<std::string, std::pair<double, const ReferenceCase*>> worst;
    for (const auto& c : cases) {
        auto& [err, at] = worst[group(c)];
        const double e = ulp_error(value(c), c.ref);
        if (at == nullptr || e > err)
            worst[group(c)] = {e, &c};
    }
    EXPECT_EQ(worst.size(), bounds.size()) << file << ": a group without a bound";
    for (const auto& [key, w] : worst) {
        std::printf("%s %-14s max ulp %10.3f (x=%.17g df=%g)\n", file.c_str(), key.c_str(), w.first,
                    w.second->x, w.second->df);
        const auto it = bounds.find(key);
        ASSERT_NE(it, bounds.end()) << file << " " << key;
        EXPECT_LE(w.first, it->second) << file << " " << key << " worst x=" << w.second->x;
    }
}

}  // namespace lbx::test
