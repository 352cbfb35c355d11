// The zero-finding test battery: the problems of Alefeld, Potra and Shi
// (ACM TOMS 21, 1995, problems 1 to 15 with a selection of their parameters)
// and classic problems. Shared by tests/roots/ and bench/roots.cpp.
// Reference zeros: tests/data/roots_battery.txt (tools/roots_reference.py).
#pragma once

#include <cmath>
#include <numbers>
#include <vector>

namespace roots_battery {

using Fn = double (*)(double x, double p, double q);

struct Problem {
    const char* id;
    double (*f)(double x, double p, double q);
    double p, q;  // parameters
    double a, b;  // the bracket
};

inline const Fn aps01 = [](double x, double, double) { return std::sin(x) - x / 2.0; };
inline const Fn aps02 = [](double x, double, double) {
    double s = 0.0;
    for (int i = 1; i <= 20; ++i) {
        const double t = 2.0 * i - 5.0;
        const double u = x - double(i) * i;
        s += t * t / (u * u * u);
    }
    return -2.0 * s;
};
inline const Fn aps03 = [](double x, double a, double b) { return a * x * std::exp(b * x); };
inline const Fn aps04 = [](double x, double a, double n) { return std::pow(x, n) - a; };
inline const Fn aps05 = [](double x, double, double) { return std::sin(x) - 0.5; };
inline const Fn aps06 = [](double x, double n, double) {
    return 2.0 * x * std::exp(-n) - 2.0 * std::exp(-n * x) + 1.0;
};
inline const Fn aps07 = [](double x, double n, double) {
    const double t = 1.0 - n * x;
    return (1.0 + (1.0 - n) * (1.0 - n)) * x - t * t;
};
inline const Fn aps08 = [](double x, double n, double) { return x * x - std::pow(1.0 - x, n); };
inline const Fn aps09 = [](double x, double n, double) {
    return (1.0 + std::pow(1.0 - n, 4.0)) * x - std::pow(1.0 - n * x, 4.0);
};
inline const Fn aps10 = [](double x, double n, double) {
    return std::exp(-n * x) * (x - 1.0) + std::pow(x, n);
};
inline const Fn aps11 = [](double x, double n, double) { return (n * x - 1.0) / ((n - 1.0) * x); };
inline const Fn aps12 = [](double x, double n, double) {
    return std::pow(x, 1.0 / n) - std::pow(n, 1.0 / n);
};
inline const Fn aps13 = [](double x, double, double) {
    return x == 0.0 ? 0.0 : x * std::exp(-1.0 / (x * x));
};
inline const Fn aps14 = [](double x, double n, double) {
    return x >= 0.0 ? n / 20.0 * (x / 1.5 + std::sin(x) - 1.0) : -n / 20.0;
};
inline const Fn aps15 = [](double x, double n, double) {
    if (x < 0.0) {
        return -0.859;
    }
    if (x > 2e-3 / (1.0 + n)) {
        return std::numbers::e - 1.859;
    }
    return std::exp((n + 1.0) * x / 2.0 * 1000.0) - 1.859;
};
inline const Fn cubic = [](double x, double, double) { return x * x * x - 2.0 * x - 5.0; };
inline const Fn expx = [](double x, double, double) { return std::exp(-x) - x; };
inline const Fn cosx = [](double x, double, double) { return std::cos(x) - x; };
inline const Fn kepler = [](double x, double, double) { return x - 0.9 * std::sin(x) - 1.0; };
inline const Fn logx = [](double x, double, double) { return std::log(x); };
inline const Fn triple = [](double x, double, double) { return (x - 1.0) * (x - 1.0) * (x - 1.0); };
inline const Fn wilk10 = [](double x, double, double) {
    double p = 1.0;
    for (int i = 1; i <= 10; ++i) {
        p *= x - i;
    }
    return p;
};
inline const Fn tanhx = [](double x, double, double) { return std::tanh(x - 1.0); };

inline const std::vector<Problem>& problems()
{
    constexpr double pi = std::numbers::pi;
    static const std::vector<Problem> list = {
        {"APS01", aps01, 0, 0, pi / 2, pi},
        {"APS02_n1", aps02, 1, 0, 1 + 1e-9, 4 - 1e-9},
        {"APS02_n2", aps02, 2, 0, 4 + 1e-9, 9 - 1e-9},
        {"APS02_n5", aps02, 5, 0, 25 + 1e-9, 36 - 1e-9},
        {"APS02_n10", aps02, 10, 0, 100 + 1e-9, 121 - 1e-9},
        {"APS03_a40", aps03, -40, -1, -9, 31},
        {"APS03_a100", aps03, -100, -2, -9, 31},
        {"APS03_a200", aps03, -200, -3, -9, 31},
        {"APS04_a02_n4", aps04, 0.2, 4, 0, 5},
        {"APS04_a02_n12", aps04, 0.2, 12, 0, 5},
        {"APS04_a1_n4", aps04, 1, 4, 0, 5},
        {"APS04_a1_n12", aps04, 1, 12, 0, 5},
        {"APS04_a1_n8_shift", aps04, 1, 8, -0.95, 4.05},
        {"APS04_a1_n14_shift", aps04, 1, 14, -0.95, 4.05},
        {"APS05", aps05, 0, 0, 0, 1.5},
        {"APS06_n1", aps06, 1, 0, 0, 1},
        {"APS06_n5", aps06, 5, 0, 0, 1},
        {"APS06_n20", aps06, 20, 0, 0, 1},
        {"APS06_n100", aps06, 100, 0, 0, 1},
        {"APS07_n5", aps07, 5, 0, 0, 1},
        {"APS07_n20", aps07, 20, 0, 0, 1},
        {"APS08_n2", aps08, 2, 0, 0, 1},
        {"APS08_n10", aps08, 10, 0, 0, 1},
        {"APS08_n20", aps08, 20, 0, 0, 1},
        {"APS09_n1", aps09, 1, 0, 0, 1},
        {"APS09_n5", aps09, 5, 0, 0, 1},
        {"APS09_n20", aps09, 20, 0, 0, 1},
        {"APS10_n1", aps10, 1, 0, 0, 1},
        {"APS10_n5", aps10, 5, 0, 0, 1},
        {"APS10_n20", aps10, 20, 0, 0, 1},
        {"APS11_n2", aps11, 2, 0, 0.01, 1},
        {"APS11_n20", aps11, 20, 0, 0.01, 1},
        {"APS12_n2", aps12, 2, 0, 1, 100},
        {"APS12_n3", aps12, 3, 0, 1, 100},
        {"APS12_n20", aps12, 20, 0, 1, 100},
        {"APS12_n33", aps12, 33, 0, 1, 100},
        {"APS13", aps13, 0, 0, -1, 4},
        {"APS14_n1", aps14, 1, 0, -1e4, pi / 2},
        {"APS14_n40", aps14, 40, 0, -1e4, pi / 2},
        {"APS15_n20", aps15, 20, 0, -1e4, 1e-4},
        {"APS15_n40", aps15, 40, 0, -1e4, 1e-4},
        {"APS15_n100", aps15, 100, 0, -1e4, 1e-4},
        {"APS15_n1000", aps15, 1000, 0, -1e4, 1e-4},
        {"CUBIC", cubic, 0, 0, 2, 3},
        {"EXPX", expx, 0, 0, 0, 1},
        {"COSX", cosx, 0, 0, 0, 1},
        {"KEPLER", kepler, 0, 0, 0, 2},
        {"LOG", logx, 0, 0, 0.5, 5},
        {"TRIPLE", triple, 0, 0, 0, 3},
        {"WILK10", wilk10, 0, 0, 5.5, 6.6},
        {"TANH", tanhx, 0, 0, -5, 20},
    };
    return list;
}

}  // namespace roots_battery
