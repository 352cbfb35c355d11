// Call tracing: the trace switch, trace lines, argument lines and frames.
//
// A trace line is a 100-character record with its text from column 5.  An
// argument line has the name in columns 5 to 49, ":    " in columns 50 to 54
// and the value from column 55 (46 characters).  Values: integers
// right-justified in 20; reals right-justified in 45 with 17 significant
// digits; logicals as .TRUE. or .FALSE. right-justified in 20; characters
// quoted, trailing blanks and NULs dropped, other control bytes shown as '.',
// a value too long for one line continued on further lines with a blank name;
// arrays by their element count.  Lines are written to the error unit, fetched
// anew for each line, while the switch is at most 2.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "frame/entry.hpp"
#include "frame/units.hpp"

namespace lbx::frame {

int trace_switch = 0;

namespace {

constexpr int trace_width = 100;
constexpr int name_width = 45;
constexpr int value_width = 46;

bool writing()
{
    return trace_switch <= 2;
}

void write_line(std::string_view text)
{
    if (!writing())
        return;
    char rec[trace_width];
    std::memset(rec, ' ', trace_width);
    std::memcpy(rec + 4, text.data(), std::min<std::size_t>(text.size(), trace_width - 4));
    int unit = 0;
    X04AAFN(0, unit);
    X04BAFN(unit, std::string_view(rec, trace_width));
}

void argument_line(std::string_view name, std::string_view value)
{
    std::string text(name.substr(0, name_width));
    text.resize(name_width, ' ');
    text += ":    ";
    text += value.substr(0, value_width);
    write_line(text);
}

void address_line(const void* p)
{
    char text[32];
    std::snprintf(text, sizeof text, "%p", p);
    argument_line("   Address", text);
}

std::string format_int(int v)
{
    char text[32];
    std::snprintf(text, sizeof text, "%20d", v);
    return text;
}

std::string format_real(double v)
{
    char text[64];
    std::snprintf(text, sizeof text, "%45.16E", v);
    return text;
}

std::string format_logical(int v)
{
    return (v & 1) ? "              .TRUE." : "             .FALSE.";
}

// Quoted text, split over as many lines as it needs.
void character_lines(std::string_view name, std::string_view value, bool full)
{
    std::size_t n = value.size();
    if (!full)
        while (n > 0 && (value[n - 1] == ' ' || value[n - 1] == '\0'))
            --n;
    std::string text = "'";
    for (std::size_t i = 0; i < n; ++i) {
        unsigned char c = static_cast<unsigned char>(value[i]);
        text += (c < 32 || c == 127) ? '.' : static_cast<char>(c);
    }
    text += "'";
    for (std::size_t at = 0; at == 0 || at < text.size(); at += value_width)
        argument_line(at == 0 ? name : std::string_view(),
                      std::string_view(text).substr(at, value_width));
}

}  // namespace

// ---------------------------------------------------------------- switch

void Y90GCFT(int itrace)
{
    trace_switch = itrace;
}

void Y90GCZN(int iflag, int& itrace)
{
    if (iflag == 0)
        itrace = trace_switch;
    else
        trace_switch = itrace;
}

int Y90GDFT()
{
    return trace_switch != 0 && writing() ? 1 : 0;
}

// ---------------------------------------------------------------- record writers

void Y90AHFT(std::string_view text)
{
    write_line(text);
}

void Y90ADFT(std::string_view name, const int* value, bool addr)
{
    argument_line(name, format_int(*value));
    if (addr)
        address_line(value);
}

void Y90AGFT(std::string_view name, const double* value, bool addr)
{
    argument_line(name, format_real(*value));
    if (addr)
        address_line(value);
}

void Y90ABET(std::string_view name, const Logical* value, bool addr)
{
    argument_line(name, format_logical(*value));
    if (addr)
        address_line(value);
}

void Y90ACFT(std::string_view name, const double* value, bool addr)
{
    char text[64];
    std::snprintf(text, sizeof text, "(%.16E,%.16E)", value[0], value[1]);
    argument_line(name, text);
    if (addr)
        address_line(value);
}

void Y90AAFT(std::string_view name, std::string_view value, bool addr, bool full)
{
    character_lines(name, value, full);
    if (addr)
        address_line(value.data());
}

void Y90AEFT(std::string_view name, int n, const int* ivec)
{
    for (int i = 0; i < n; ++i)
        argument_line(std::string(name) + "(" + std::to_string(i + 1) + ")", format_int(ivec[i]));
}

void Y90AFET(std::string_view name, int n, const double* rvec)
{
    for (int i = 0; i < n; ++i)
        argument_line(std::string(name) + "(" + std::to_string(i + 1) + ")", format_real(rvec[i]));
}

void Y90AJFT(std::string_view name, int m, int n, const double* a, int lda)
{
    if (lda < std::max(1, m))
        return;
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < m; ++i)
            argument_line(
                std::string(name) + "(" + std::to_string(i + 1) + "," + std::to_string(j + 1) + ")",
                format_real(a[i + static_cast<long>(j) * lda]));
}

// ---------------------------------------------------------------- frames

TraceFrame::TraceFrame(std::string_view routine, Kind kind)
{
    const std::string dashes(75, '-');
    write_line("");
    write_line(dashes);
    write_line(routine);
    write_line(kind == on_entry ? "Arguments on entry:" : "Arguments on exit:");
    write_line(dashes);
}

TraceFrame::~TraceFrame()
{
    write_line(std::string(75, '-'));
    write_line("");
}

void TraceFrame::integer(std::string_view name, int v)
{
    argument_line(name, format_int(v));
}
void TraceFrame::real(std::string_view name, double v)
{
    argument_line(name, format_real(v));
}
void TraceFrame::complex(std::string_view name, lbx::Complex v)
{
    const double parts[2] = {v.real(), v.imag()};
    Y90ACFT(name, parts, false);
}
void TraceFrame::logical(std::string_view name, int v)
{
    argument_line(name, format_logical(v));
}
void TraceFrame::character(std::string_view name, std::string_view v)
{
    character_lines(name, v, false);
}

void TraceFrame::array(std::string_view name, long length)
{
    argument_line(name, length < 0 ? std::string("array of assumed size")
                                   : "array of " + std::to_string(length) + " elements");
}

void TraceFrame::procedure(std::string_view name, const void* address)
{
    char text[48];
    std::snprintf(text, sizeof text, "procedure at %p", address);
    argument_line(name, text);
}

}  // namespace lbx::frame
