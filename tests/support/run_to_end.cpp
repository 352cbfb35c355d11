// Linked into every GoogleTest binary: a process that ends before the test run
// does (a hard failure's stop inside a test exits with status 0) fails.  A
// death test's child, forked or started again to run one statement, is left
// to its own exit status: that is what the death test checks.
#include <gtest/gtest.h>
#include <gtest/internal/gtest-death-test-internal.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace {

pid_t g_runner = 0;
bool g_finished = false;

void check_finished()
{
    if (g_finished || getpid() != g_runner)
        return;
    std::fflush(stdout);
    std::fprintf(stderr, "\n[  FAILED  ] the process ended inside a test (a hard stop?)\n");
    std::fflush(stderr);
    _exit(1);
}

class RunToEnd : public testing::Environment {
    void SetUp() override
    {
        if (!GTEST_FLAG_GET(internal_run_death_test).empty())
            return;
        g_runner = getpid();
        std::atexit(check_finished);
    }
    void TearDown() override { g_finished = true; }
};

const testing::Environment* const g_run_to_end = testing::AddGlobalTestEnvironment(new RunToEnd);

}  // namespace
