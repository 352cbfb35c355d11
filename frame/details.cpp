// A00AAF and A00ADF: what this build of the library is.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "frame/units.hpp"
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
// The reference LAPACK the DLL links, by its own version ("LAPACK 3.11.0").
std::string vendor_library()
{
    int major = 0, minor = 0, patch = 0;
    ilaver_(&major, &minor, &patch);
    return "LAPACK " + std::to_string(major) + "." + std::to_string(minor) + "." +
           std::to_string(patch);
}
#else
// The BLAS the library links, as that library names itself ("OpenBLAS 0.3.21").
std::string vendor_library()
{
    std::string_view config = openblas_get_config();
    std::size_t end = config.find(' ');
    if (end != std::string_view::npos)
        end = config.find(' ', end + 1);
    return std::string(config.substr(0, end));
}
#endif

void assign(std::span<char> out, std::string_view text)
{
    std::size_t n = std::min(out.size(), text.size());
    std::memcpy(out.data(), text.data(), n);
    std::fill(out.begin() + static_cast<std::ptrdiff_t>(n), out.end(), ' ');
}

}  // namespace

void A00AAFN()
{
    // Lines 8 to 19 document the build for readers of the source; only lines
    // 1 to 7 and 20 are written.
    const std::string lines[20] = {
        " *** Start of TSL Library implementation details ***",
        "",
        " Implementation title: " + std::string(title),
        "            Precision: " + std::string(precision),
        "         Product Code: " + std::string(product),
        "                 Level: " + std::string(major_text) + "." + std::string(minor_text),
        "",
        " Created using:",
        "     hardware - " + std::string(hardware),
        "     op. sys. - " + std::string(opsys),
        "     compiler - " + std::string(compiler),
        "",
        "",
        " Applicable to:",
        "     hardware - " + std::string(hardware),
        "     op. sys. - " + std::string(opsys),
        "     compiler - " + std::string(compiler),
        " and compatible systems.",
        "",
        " *** End of TSL Library implementation details ***",
    };
    int unit = 0;
    X04ABFN(0, unit);
    for (int i : {0, 1, 2, 3, 4, 5, 6, 19}) {
        std::string rec = lines[i].substr(0, 132);
#ifdef _WIN32
        ::X04BAFNH(&::X04BAFN, &unit, rec.data(), static_cast<std::int32_t>(rec.size()));
#else
        x04bafnh_(&x04bafn_, &unit, rec.data(), rec.size());
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
    mkmaj = std::atoi(std::string(major_text).c_str());
    mkmin = std::atoi(std::string(minor_text).c_str());
    assign(hdware, hardware);
    assign(opsys_out, opsys);
    assign(fcomp, compiler);
    assign(vend, vendor_library());
}

}  // namespace lbx::frame
