// A00AAF and A00ADF: what this build of the library is.
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "gen/frame.hpp"

#ifdef _WIN32
// The DLL links reference BLAS and LAPACK statically (gfortran convention).
extern "C" void ilaver_(int* major, int* minor, int* patch);
extern "C" void __attribute__((stdcall))
X04BAFN(const int* nout, const char* rec, std::int32_t len);
extern "C" void __attribute__((stdcall))
X04BAFNH(lbx::frame::X04BAF_WRITERFn fn, const int* nout, const char* rec, std::int32_t len);
#else
extern "C" char* openblas_get_config(void);
extern "C" void x04bafn_(const int* nout, const char* rec, std::size_t len);
extern "C" void x04bafnh_(lbx::frame::X04BAF_WRITERFn fn, const int* nout, const char* rec,
                          std::size_t len);
#endif

namespace lbx::frame {

namespace {

#ifdef _WIN32
constexpr std::string_view title = "Windows 32-bit DLL, GNU C++ and GNU Fortran (mingw-w64)";
constexpr std::string_view product = "LBX3207QKW";
constexpr std::string_view hardware = "Intel and AMD x86 chips";
constexpr std::string_view opsys = "Windows (32-bit)";
#else
constexpr std::string_view title = "Linux x86-64, GNU C++ and GNU Fortran";
constexpr std::string_view product = "LBX3207QKL";
constexpr std::string_view hardware = "Intel and AMD x86-64 chips";
constexpr std::string_view opsys = "Linux (x86-64, glibc)";
#endif
constexpr std::string_view precision = "FORTRAN double precision";
constexpr std::string_view major_text = "24";
constexpr std::string_view minor_text = "3";
constexpr std::string_view compiler = LBX_COMPILERS;

#ifdef _WIN32
// The reference LAPACK the DLL links, by its own version ("LAPACK 3.11.0"),
// formed once in a static buffer.
std::string_view vendor_library()
{
    static char text[48];
    static const int n = [] {
        int major = 0, minor = 0, patch = 0;
        ilaver_(&major, &minor, &patch);
        return std::snprintf(text, sizeof text, "LAPACK %d.%d.%d", major, minor, patch);
    }();
    return {text, static_cast<std::size_t>(n)};
}
#else
// The BLAS the library links, as that library names itself ("OpenBLAS 0.3.21").
std::string_view vendor_library()
{
    std::string_view config = openblas_get_config();
    std::size_t end = config.find(' ');
    if (end != std::string_view::npos)
        end = config.find(' ', end + 1);
    return config.substr(0, end);
}
#endif

void assign(std::span<char> out, std::string_view text)
{
    std::size_t n = std::min(out.size(), text.size());
    std::memcpy(out.data(), text.data(), n);
    std::fill(out.begin() + static_cast<std::ptrdiff_t>(n), out.end(), ' ');
}

int number(std::string_view text)
{
    int v = 0;
    std::from_chars(text.data(), text.data() + text.size(), v);
    return v;
}

}  // namespace

// Nothing here allocates: A00AAF and A00ADF have no IFAIL to report with.
void A00AAFN()
{
    // The lines written, each of 132 characters (a blank one is one blank).
    const std::string_view lines[8][4] = {
        {" *** Start of TSL Library implementation details ***"},
        {""},
        {" Implementation title: ", title},
        {"            Precision: ", precision},
        {"         Product Code: ", product},
        {"                 Level: ", major_text, ".", minor_text},
        {""},
        {" *** End of TSL Library implementation details ***"},
    };
    int unit = 0;
    X04ABFN(0, unit);
    for (const auto& parts : lines) {
        char rec[132];
        std::memset(rec, ' ', sizeof rec);
        std::size_t n = 0;
        for (std::string_view p : parts) {
            p = p.substr(0, sizeof rec - n);
            if (!p.empty())
                std::memcpy(rec + n, p.data(), p.size());
            n += p.size();
        }
#ifdef _WIN32
        ::X04BAFNH(&::X04BAFN, &unit, rec, static_cast<std::int32_t>(sizeof rec));
#else
        x04bafnh_(&x04bafn_, &unit, rec, sizeof rec);
#endif
    }
}

void A00ADFN(std::span<char> impl, std::span<char> prec, std::span<char> pcode, int& mkmaj,
             int& mkmin, std::span<char> hdware, std::span<char> opsys_out, std::span<char> fcomp,
             std::span<char> vend)
{
    assign(impl, title);
    assign(prec, precision);
    assign(pcode, product);
    mkmaj = number(major_text);
    mkmin = number(minor_text);
    assign(hdware, hardware);
    assign(opsys_out, opsys);
    assign(fcomp, compiler);
    assign(vend, vendor_library());
}

}  // namespace lbx::frame
