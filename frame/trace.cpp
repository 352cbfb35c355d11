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
//
// Nothing here allocates: every line is built in a fixed buffer, so tracing
// cannot fail for want of memory and a traced call has exactly the outcomes
// of an untraced one.
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "frame/entry.hpp"
#include "frame/units.hpp"

namespace lbx::frame {

std::atomic<int> trace_switch{0};

namespace {

constexpr int trace_width = 100;
constexpr int name_width = 45;
constexpr int value_width = 46;
constexpr std::string_view dashes =
    "---------------------------------------------------------------------------";
static_assert(dashes.size() == 75);

// A short formatted value.
struct Text {
    char s[64];
    int n = 0;
    operator std::string_view() const { return {s, static_cast<std::size_t>(n)}; }
};

template <class... A>
Text format(const char* fmt, A... a)
{
    Text t;
    const int n = std::snprintf(t.s, sizeof t.s, fmt, a...);
    t.n = std::clamp(n, 0, static_cast<int>(sizeof t.s) - 1);
    return t;
}

bool writing()
{
    return trace_switch.load(std::memory_order_relaxed) <= 2;
}

void write_line(std::string_view text)
{
    if (!writing())
        return;
    char rec[trace_width];
    std::memset(rec, ' ', trace_width);
    if (!text.empty())
        std::memcpy(rec + 4, text.data(), std::min<std::size_t>(text.size(), trace_width - 4));
    int unit = 0;
    X04AAFN(0, unit);
    X04BAFN(unit, std::string_view(rec, trace_width));
}

void argument_line(std::string_view name, std::string_view value)
{
    char text[name_width + 5 + value_width];
    std::memset(text, ' ', name_width);
    name = name.substr(0, name_width);
    if (!name.empty())
        std::memcpy(text, name.data(), name.size());
    std::memcpy(text + name_width, ":    ", 5);
    value = value.substr(0, value_width);
    if (!value.empty())
        std::memcpy(text + name_width + 5, value.data(), value.size());
    write_line(std::string_view(text, name_width + 5 + value.size()));
}

void address_line(const void* p)
{
    argument_line("   Address", format("%p", p));
}

Text format_int(int v)
{
    return format("%20d", v);
}

Text format_real(double v)
{
    return format("%45.16E", v);
}

std::string_view format_logical(int v)
{
    return (v & 1) ? "              .TRUE." : "             .FALSE.";
}

// An element name such as "IVEC(3)" or "A(2,7)".
Text element(std::string_view name, long i, long j = 0)
{
    const int n = static_cast<int>(std::min<std::size_t>(name.size(), 40));
    return j == 0 ? format("%.*s(%ld)", n, name.data(), i)
                  : format("%.*s(%ld,%ld)", n, name.data(), i, j);
}

// Quoted text, split over as many lines as it needs.
void character_lines(std::string_view name, std::string_view value, bool full)
{
    std::size_t n = value.size();
    if (!full)
        while (n > 0 && (value[n - 1] == ' ' || value[n - 1] == '\0'))
            --n;
    // The quoted text is a quote, the n characters with control bytes shown
    // as '.', and a quote: character i of it is made when its line is.
    const std::size_t quoted = n + 2;
    for (std::size_t at = 0; at == 0 || at < quoted; at += value_width) {
        char line[value_width];
        const std::size_t len = std::min<std::size_t>(value_width, quoted - at);
        for (std::size_t k = 0; k < len; ++k) {
            const std::size_t i = at + k;
            if (i == 0 || i == quoted - 1) {
                line[k] = '\'';
            } else {
                const unsigned char c = static_cast<unsigned char>(value[i - 1]);
                line[k] = (c < 32 || c == 127) ? '.' : static_cast<char>(c);
            }
        }
        argument_line(at == 0 ? name : std::string_view(), std::string_view(line, len));
    }
}

}  // namespace

// ---------------------------------------------------------------- switch

void Y90GCFT(int itrace)
{
    trace_switch.store(itrace, std::memory_order_relaxed);
}

void Y90GCZN(int iflag, int& itrace)
{
    if (iflag == 0)
        itrace = trace_switch.load(std::memory_order_relaxed);
    else
        trace_switch.store(itrace, std::memory_order_relaxed);
}

int Y90GDFT()
{
    return tracing() && writing() ? 1 : 0;
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
    argument_line(name, format("(%.16E,%.16E)", value[0], value[1]));
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
        argument_line(element(name, i + 1), format_int(ivec[i]));
}

void Y90AFET(std::string_view name, int n, const double* rvec)
{
    for (int i = 0; i < n; ++i)
        argument_line(element(name, i + 1), format_real(rvec[i]));
}

void Y90AJFT(std::string_view name, int m, int n, const double* a, int lda)
{
    if (lda < std::max(1, m))
        return;
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < m; ++i)
            argument_line(element(name, i + 1, j + 1),
                          format_real(a[i + static_cast<long>(j) * lda]));
}

// ---------------------------------------------------------------- frames

TraceFrame::TraceFrame(std::string_view routine, Kind kind) noexcept
{
    write_line("");
    write_line(dashes);
    write_line(routine);
    write_line(kind == on_entry ? "Arguments on entry:" : "Arguments on exit:");
    write_line(dashes);
}

TraceFrame::~TraceFrame()
{
    write_line(dashes);
    write_line("");
}

void TraceFrame::integer(std::string_view name, int v) noexcept
{
    argument_line(name, format_int(v));
}
void TraceFrame::real(std::string_view name, double v) noexcept
{
    argument_line(name, format_real(v));
}
void TraceFrame::complex(std::string_view name, lbx::Complex v) noexcept
{
    const double parts[2] = {v.real(), v.imag()};
    Y90ACFT(name, parts, false);
}
void TraceFrame::logical(std::string_view name, int v) noexcept
{
    argument_line(name, format_logical(v));
}
void TraceFrame::character(std::string_view name, std::string_view v) noexcept
{
    character_lines(name, v, false);
}

void TraceFrame::array(std::string_view name, long length) noexcept
{
    argument_line(name, length < 0 ? format("array of assumed size")
                                   : format("array of %ld elements", length));
}

void TraceFrame::procedure(std::string_view name, const void* address) noexcept
{
    argument_line(name, format("procedure at %p", address));
}

}  // namespace lbx::frame
