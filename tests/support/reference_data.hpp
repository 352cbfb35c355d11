// Reading the committed reference tables (tools/special_reference.py) and
// measuring errors in units in the last place.
#pragma once

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

// Largest error per group, with the worst argument.
struct ErrorStat {
    double max_ulp = 0;
    double worst_x = 0;
    double worst_df = 0;
    int count = 0;
};

inline void record(std::map<std::string, ErrorStat>& m, const std::string& key, double err,
                   const ReferenceCase& c)
{
    ErrorStat& s = m[key];
    ++s.count;
    if (err > s.max_ulp) {
        s.max_ulp = err;
        s.worst_x = c.x;
        s.worst_df = c.df;
    }
}

inline void print_stats(const char* what, const std::map<std::string, ErrorStat>& here,
                        const std::map<std::string, ErrorStat>& peer)
{
    for (const auto& [key, s] : here) {
        const auto it = peer.find(key);
        std::printf("%s %-14s n=%5d  max ulp here %12.3f  peer %12.3f  (worst x=%.17g df=%g)\n",
                    what, key.c_str(), s.count, s.max_ulp,
                    it == peer.end() ? -1.0 : it->second.max_ulp, s.worst_x, s.worst_df);
    }
}

}  // namespace lbx::test
