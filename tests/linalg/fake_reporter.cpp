// TEST-ONLY stand-in for the chapter's illegal-argument reporter until the
// library has its own: just the recording mode (TSLTESTING "BLAS"), which
// compares INFO and the routine name with TSLTESTBLASENV and
// TSLTESTBLASENVSRNAMT and writes the four integers back with the call flag set.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "linalg/blas_own.hpp"

namespace {

std::string_view trimmed(std::string_view s)
{
    while (!s.empty() && s.back() == ' ')
        s.remove_suffix(1);
    return s;
}

}  // namespace

namespace lbx::linalg {

void F06AAZN(std::string_view srname, int info)
{
    const char* mode = std::getenv("TSLTESTING");
    const char* env = std::getenv("TSLTESTBLASENV");
    const char* name = std::getenv("TSLTESTBLASENVSRNAMT");
    if (mode == nullptr || std::strncmp(mode, "BLAS", 4) != 0 || env == nullptr ||
        name == nullptr || std::strlen(env) < 24) {
        std::fprintf(stderr, "F06AAZN(%.*s, %d) outside the recording mode\n",
                     static_cast<int>(srname.size()), srname.data(), info);
        std::abort();
    }
    const std::string fields(env, 24);
    const int unit = std::atoi(fields.substr(0, 6).c_str());
    const int expected = std::atoi(fields.substr(6, 6).c_str());
    int pass = std::atoi(fields.substr(12, 6).c_str());
    const std::string_view want =
        trimmed(std::string_view(name, std::min<std::size_t>(6, std::strlen(name))));
    std::string_view chapter = srname, standard = srname;
    const std::size_t slash = srname.rfind('/');
    if (slash != std::string_view::npos && slash >= 1 && slash + 1 < srname.size()) {
        chapter = srname.substr(0, slash);
        standard = srname.substr(slash + 1);
    }
    if (info != expected)
        pass = 0;
    if (trimmed(chapter) != want && trimmed(standard) != want)
        pass = 0;
    char out[32];
    std::snprintf(out, sizeof out, "%6d%6d%6d%6d", unit, expected, pass, 1);
    setenv("TSLTESTBLASENV", out, 1);
}

}  // namespace lbx::linalg
