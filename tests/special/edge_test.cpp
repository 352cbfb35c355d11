// Edge cases and failures of the gamma, error and Dawson functions through
// the public entries (IFAIL = 1, quiet), and the coded messages their
// implementations leave in ERRBUF.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "lbx3207qk.h"

namespace {

constexpr double kHuge = std::numeric_limits<double>::max();

struct EdgeCase {
    const char* what;
    double (*fn)(const double*, int*);
    double x;
    double want;  // exact expected result
    int want_ifail;
};

TEST(SpecialEdges, ResultsAndErrorNumbers)
{
    const EdgeCase cases[] = {
        {"gamma above 170", s14aaf_, 170.5, 4.3e304, 1},
        {"gamma just above 170", s14aaf_, std::nextafter(170.0, 200.0), 4.3e304, 1},
        {"gamma below -170", s14aaf_, -170.5, 0.0, 2},
        {"gamma just below -170", s14aaf_, std::nextafter(-170.0, -200.0), 0.0, 2},
        {"gamma at 0", s14aaf_, 0.0, 4.4843049327354256e307, 3},
        {"gamma at -0", s14aaf_, -0.0, 4.4843049327354256e307, 3},
        {"gamma at -1e-309", s14aaf_, -1e-309, -4.4843049327354256e307, 3},
        {"gamma at 2.2e-308", s14aaf_, 2.2e-308, 4.4843049327354256e307, 3},
        {"gamma at -1", s14aaf_, -1.0, 4.3e304, 4},
        {"gamma at -3", s14aaf_, -3.0, 4.3e304, 4},
        {"gamma at -170", s14aaf_, -170.0, 4.3e304, 4},
        {"gamma at 1", s14aaf_, 1.0, 1.0, 0},
        {"gamma at 2", s14aaf_, 2.0, 1.0, 0},
        {"gamma at 1e-17", s14aaf_, 1e-17, 1.0 / 1e-17, 0},
        {"gamma at -1e-17", s14aaf_, -1e-17, 1.0 / -1e-17, 0},
        {"gamma at 2.23e-308", s14aaf_, 2.23e-308, 1.0 / 2.23e-308, 0},
        {"log gamma at 0", s14abf_, 0.0, kHuge, 1},
        {"log gamma at -1", s14abf_, -1.0, 0.0, 1},
        {"log gamma at -1e-300", s14abf_, -1e-300, 0.0, 1},
        {"log gamma above x_big", s14abf_, 2.56e305, kHuge, 2},
        {"log gamma at x_big", s14abf_, 2.55e305,
         2.55e305 * (std::log(2.55e305) - 1.0) - 0.5 * std::log(2.55e305) + 0.9189385332046728, 0},
        {"log gamma at 1", s14abf_, 1.0, 0.0, 0},
        {"log gamma at 2", s14abf_, 2.0, 0.0, 0},
        {"erfc at 26.6", s15adf_, 26.6, 0.0, 0},
        {"erfc beyond 26.6", s15adf_, 1e300, 0.0, 0},
        {"erfc at -6.5", s15adf_, -6.5, 2.0, 0},
        {"erfc at -1e300", s15adf_, -1e300, 2.0, 0},
        {"erfc at 0", s15adf_, 0.0, 1.0, 0},
        {"erf at 10.5", s15aef_, 10.5, 1.0, 0},
        {"erf at -10.5", s15aef_, -10.5, -1.0, 0},
        {"erf at 0", s15aef_, 0.0, 0.0, 0},
        {"erf at tiny", s15aef_, 1e-310, 1e-310 * (3.20937758913846947e03 / 2.84423683343917062e03),
         0},
        {"dawson at 0", s15aff_, 0.0, 0.0, 0},
        {"dawson at 3.1e-9", s15aff_, 3.1e-9, 3.1e-9, 0},
        {"dawson at -3.1e-9", s15aff_, -3.1e-9, -3.1e-9, 0},
        {"dawson at 3.2e8", s15aff_, 3.2e8, 0.5 / 3.2e8, 0},
        {"dawson at -1e300", s15aff_, -1e300, 0.5 / -1e300, 0},
        {"dawson at 2.24e307", s15aff_, 2.24e307, 0.0, 0},
        {"dawson at -1.7e308", s15aff_, -1.7e308, 0.0, 0},
    };
    for (const EdgeCase& c : cases) {
        for (int on_entry : {1, 2, -2, 100}) {  // every value other than 0 and -1 is quiet
            int ifail = on_entry;
            const double got = c.fn(&c.x, &ifail);
            EXPECT_EQ(got, c.want) << c.what;
            EXPECT_EQ(ifail, c.want_ifail) << c.what << " IFAIL on entry " << on_entry;
        }
    }
}

TEST(SpecialEdges, GammaAtTheIntegersIsTheFactorial)
{
    double factorial = 1.0;  // (n - 1)!, exact up to 22!
    for (int n = 1; n <= 23; ++n) {
        const double x = n;
        int ifail = 1;
        EXPECT_NEAR(s14aaf_(&x, &ifail), factorial, 2.3e-16 * 4 * factorial) << n;
        factorial *= n;
    }
}

TEST(SpecialEdges, NaNPropagatesWithoutFailure)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (auto fn : {s14aaf_, s14abf_, s15adf_, s15aef_, s15aff_}) {
        int ifail = 1;
        EXPECT_TRUE(std::isnan(fn(&nan, &ifail)));
        EXPECT_EQ(ifail, 0);
    }
}

// The coded message: separator byte 1 around each field; error number and
// message code in 5, the count of values, the values.
std::vector<std::string> fields(const char* errbuf)
{
    std::vector<std::string> out;
    std::string s(errbuf, 200);
    std::size_t pos = 0;
    EXPECT_EQ(s[0], '\x01');
    while (true) {
        const std::size_t next = s.find('\x01', pos + 1);
        if (next == std::string::npos)
            break;
        std::string f = s.substr(pos + 1, next - pos - 1);
        f.erase(0, f.find_first_not_of(' '));
        out.push_back(f);
        pos = next;
    }
    return out;
}

TEST(SpecialEdges, CodedMessages)
{
    struct Coded {
        double (*fn)(const double*, char*, int*, size_t);
        double x;
        std::vector<std::string> want;
    };
    const Coded cases[] = {
        {s14aaft_, -200.0, {"2", "99999", "2", "-2.000000000000000E+02", "-1.700000000000000E+02"}},
        {s14aaft_, 170.5, {"1", "99998", "2", "1.705000000000000E+02", "1.700000000000000E+02"}},
        {s14aaft_, 0.0, {"3", "99997", "2", "0.000000000000000E+00", "2.230000000000000E-308"}},
        {s14aaft_, -3.0, {"4", "99996", "1", "-3.000000000000000E+00"}},
        {s14abft_, -1.0, {"1", "99999", "1", "-1.000000000000000E+00"}},
        {s14abft_, 3e305, {"2", "99998", "1", "3.000000000000000E+305"}},
    };
    for (const Coded& c : cases) {
        char errbuf[200];
        int ifail = 0;
        c.fn(&c.x, errbuf, &ifail, 200);
        EXPECT_EQ(ifail, std::stoi(c.want[0])) << c.x;
        EXPECT_EQ(fields(errbuf), c.want) << c.x;
    }
}

}  // namespace
