// Routines called from several threads at once: each thread on its own
// generator state and arrays gets what one thread alone gets, while another
// thread changes the process-wide settings; failures with IFAIL = -1 on
// several threads write their records as whole blocks.  Run under
// ThreadSanitizer by make check-tsan.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "lbx3207qk.h"

namespace {

constexpr int n_threads = 4;

// What one worker computes: uniforms from its own generator, a sort of its own
// array, gamma and Student's t values; failures on the way are quiet.
struct Work {
    std::vector<double> uniforms, sorted, values;
    bool operator==(const Work&) const = default;
};

Work work(int t, int n_sort)
{
    Work w;
    int genid = 1 + t % 6, subid = 1, seed[2] = {11 + t, 3}, lseed = 2, lstate = 1260;
    std::vector<int> state(1260);
    int ifail = 0;
    g05kff_(&genid, &subid, seed, &lseed, state.data(), &lstate, &ifail);
    w.uniforms.resize(1000);
    int n = 1000;
    g05saf_(&n, state.data(), w.uniforms.data(), &ifail);
    w.sorted.resize(n_sort);
    for (int i = 0; i < n_sort; ++i)
        w.sorted[i] = std::sin(i * (t + 1.5));
    int m1 = 1, m2 = n_sort;
    m01caf_(w.sorted.data(), &m1, &m2, "D", &ifail, 1);
    for (int i = 0; i < 200; ++i) {
        const double x = -5 + 0.05 * i + 0.01 * t, df = 1 + i % 7;
        int quiet = 1;
        w.values.push_back(s14aaf_(&x, &quiet));
        quiet = 1;
        w.values.push_back(g01ebf_("U", &x, &df, &quiet, 1));
        quiet = 1;
        const double bad_df = -df;  // fails quietly
        w.values.push_back(g01ebf_("L", &x, &bad_df, &quiet, 1));
        w.values.push_back(quiet);
    }
    return w;
}

void set_error_unit(int unit)
{
    int one = 1;
    x04aaf_(&one, &unit);
}

TEST(Threads, SeparateStatesAndArraysAgreeWithOneThreadWhileSettingsChange)
{
    // One worker's sort is long enough for the parallel radix path.
    auto n_sort = [](int t) { return t == 0 ? (1 << 20) + 5 : 5000; };
    std::vector<Work> alone;
    for (int t = 0; t < n_threads; ++t)
        alone.push_back(work(t, n_sort(t)));

    std::atomic<bool> done{false};
    std::thread settings([&] {
        // Units that drop output, and a trace switch that traces silently.
        for (int k = 0; !done.load(); ++k) {
            set_error_unit(-1 - k % 3);
            int one = 1, adv = -2 - k % 2, itrace = 3 * (k % 2), zero = 0, unit = 0;
            x04abf_(&one, &adv);
            y90gcft_(&itrace);
            x04aaf_(&zero, &unit);
            EXPECT_LT(unit, 0);
        }
    });
    std::vector<Work> together(n_threads);
    std::vector<std::thread> workers;
    for (int t = 0; t < n_threads; ++t)
        workers.emplace_back([&, t] { together[t] = work(t, n_sort(t)); });
    for (std::thread& w : workers)
        w.join();
    done = true;
    settings.join();
    int zero = 0, six = 6;
    y90gcft_(&zero);
    set_error_unit(6);
    x04abf_(&zero, &six);
    for (int t = 0; t < n_threads; ++t)
        EXPECT_TRUE(together[t] == alone[t]) << "thread " << t;
}

TEST(Threads, FailureRecordsOfEachCallAreOneBlock)
{
    constexpr int unit = 63, per_thread = 150;
    const std::string file = "fort." + std::to_string(unit);
    std::remove(file.c_str());
    set_error_unit(unit);
    std::vector<std::thread> workers;
    for (int t = 0; t < n_threads; ++t) {
        workers.emplace_back([t] {
            std::vector<double> rv(3, 1.0);
            for (int k = 0; k < per_thread; ++k) {
                int m1 = 100 + t, m2 = 3, ifail = -1;
                m01caf_(rv.data(), &m1, &m2, "A", &ifail, 1);
                EXPECT_EQ(ifail, 1);
            }
        });
    }
    for (std::thread& w : workers)
        w.join();
    set_error_unit(6);

    // Every block: the two records quoting the thread's M1, the abnormal exit
    // line and the soft failure line, in that order and together.
    std::ifstream in(file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    ASSERT_EQ(lines.size(), 4u * n_threads * per_thread);
    std::vector<int> blocks(n_threads);
    for (std::size_t i = 0; i < lines.size(); i += 4) {
        int m1 = 0;
        ASSERT_EQ(std::sscanf(lines[i].c_str(), " ** On entry, M1 = %d and M2 = 3.", &m1), 1)
            << "line " << i + 1 << ": " << lines[i];
        ASSERT_TRUE(m1 >= 100 && m1 < 100 + n_threads) << lines[i];
        ++blocks[m1 - 100];
        EXPECT_EQ(lines[i + 1], " ** Constraint: M1 <= M2.") << "line " << i + 2;
        EXPECT_EQ(lines[i + 2], " ** ABNORMAL EXIT from TSL Library routine M01CAF: IFAIL =     1")
            << "line " << i + 3;
        EXPECT_EQ(lines[i + 3], " ** TSL soft failure - control returned") << "line " << i + 4;
    }
    EXPECT_EQ(blocks, std::vector<int>(n_threads, per_thread));
    std::remove(file.c_str());
}

}  // namespace
