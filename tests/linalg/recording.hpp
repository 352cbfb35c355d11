// The reporters' recording mode for a test: reports are compared with an
// expected argument number and routine name instead of stopping the program.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace lbx_test {

class Recording {
public:
    // Records go to unit -1 (dropped): the test reads the flags.
    Recording(int expected_info, const char* expected_name)
    {
        setenv("TSLTESTING", "BLAS", 1);
        char env[32];
        std::snprintf(env, sizeof env, "%6d%6d%6d%6d", -1, expected_info, 1, 0);
        setenv("TSLTESTBLASENV", env, 1);
        setenv("TSLTESTBLASENVSRNAMT", expected_name, 1);
    }
    ~Recording() { unsetenv("TSLTESTING"); }
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    static std::string env() { return std::getenv("TSLTESTBLASENV"); }
    bool passed() const { return field(2) == 1; }
    bool called() const { return field(3) == 1; }

private:
    static int field(int k) { return std::atoi(env().substr(6 * k, 6).c_str()); }
};

}  // namespace lbx_test
