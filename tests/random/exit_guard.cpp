// Turns an early end of the test process (a hard failure's STOP in a plain entry called
// with IFAIL = 0 by mistake) into a failing exit status, so it cannot pass unnoticed.
#include <gtest/gtest.h>

#include <unistd.h>
#include <cstdlib>

namespace {

bool g_finished = false;

class ExitGuard : public ::testing::Environment {
public:
    void SetUp() override
    {
        std::atexit([] {
            if (!g_finished)
                _exit(3);
        });
    }
    void TearDown() override { g_finished = true; }
};

const auto* const g_guard = ::testing::AddGlobalTestEnvironment(new ExitGuard);

}  // namespace
