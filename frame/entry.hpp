// Run-time support of the generated plain and traced entries.
#pragma once

#include <atomic>
#include <cstddef>
#include <span>
#include <string_view>

#include "frame/fail.hpp"

namespace lbx::frame {

// One (error number, message code) pair of a routine and its record templates;
// "{k}" in a template inserts value field k with its blanks stripped.
struct MessageText {
    int ifail;
    int code;
    const char* const* records;
    int nrecords;
    // The error number depends on the arguments (1..N): ifail is its least value.
    bool ranged = false;
};

// Steps after the traced entry returns: on success the error exit with error
// number 0; otherwise split ERRBUF, build the records of the routine's pair
// (or "Unexpected error" and -99) and hand them to the error exit.  Returns
// what the caller's IFAIL receives.
int plain_exit(int ifail_on_entry, int error, const char* errbuf, std::string_view srname,
               std::span<const MessageText> table);

// The records of a coded message as the plain entry writes them; error is
// replaced by -99 when the pair is not in the table.  Exposed for tests.
int format_records(int error, const char* errbuf, std::span<const MessageText> table,
                   char (*records)[80], int& nrecords);

// A CHARACTER*1 option: its first character.  The option's declared length is
// 1, so the first character is read whatever length the caller passes.
inline char option_char(const char* s)
{
    return s[0];
}

// A CHARACTER input of declared length (0 = assumed, the caller's length); never
// reads beyond the caller's length.
inline std::string_view char_in(const char* s, std::size_t len, std::size_t declared)
{
    return {s, declared == 0 || declared > len ? len : declared};
}

inline std::span<char> char_out(char* s, std::size_t len, std::size_t declared)
{
    return {s, declared == 0 || declared > len ? len : declared};
}

// The address of a routine of the external BLAS/LAPACK library by its symbol
// (for example "dgetrf_"), for forwards and the external side of paired
// routines; looked up once per routine.  A symbol the library lacks is reported
// on the error unit and stops the process.
void* external_routine(const char* symbol) noexcept;

// The coded message in ERRBUF up to its first NUL (empty after a success).
inline std::string_view errbuf_text(const char* errbuf)
{
    std::size_t n = 0;
    while (n < 200 && errbuf[n] != '\0')
        ++n;
    return {errbuf, n};
}

// Call tracing.  The switch is a relaxed atomic, as the message units are.
extern std::atomic<int> trace_switch;
inline bool tracing()
{
    return trace_switch.load(std::memory_order_relaxed) != 0;
}

// One entry or exit frame: the header lines on construction, the closing
// lines on destruction, an argument line per call in between.  Nothing of it
// allocates or throws.
class TraceFrame {
public:
    enum Kind { on_entry, on_exit };
    TraceFrame(std::string_view routine, Kind kind) noexcept;
    ~TraceFrame();
    TraceFrame(const TraceFrame&) = delete;
    TraceFrame& operator=(const TraceFrame&) = delete;

    void integer(std::string_view name, int v) noexcept;
    void real(std::string_view name, double v) noexcept;
    void complex(std::string_view name, lbx::Complex v) noexcept;
    void logical(std::string_view name, int v) noexcept;
    void character(std::string_view name, std::string_view v) noexcept;
    void array(std::string_view name, long length) noexcept;
    void procedure(std::string_view name, const void* address) noexcept;
};

}  // namespace lbx::frame
