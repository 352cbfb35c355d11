// Failure reporting of an implementation: the coded message in ERRBUF.
//
// A coded message is a sequence of fields, each preceded and followed by the
// separator byte 1: the error number and the message code right-justified in
// 5, the count k of value fields, then the k values (integers right-justified
// in 11, reals in a 22-wide exponent form with 15 decimals, text as is).  The
// rest of the 200-character buffer is blank.  An implementation reports with
// fail(MESSAGE, values...); the message constants come from the catalogue, and
// the count of values is checked when the implementation is compiled.
#pragma once

#include <algorithm>
#include <complex>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace lbx {

// A Fortran LOGICAL: a 32-bit word, true when bit 0 is set.
using Logical = std::int32_t;
// A Fortran COMPLEX*16: two doubles, real part first.
using Complex = std::complex<double>;

inline constexpr int errbuf_length = 200;

// A catalogue message: error number and message code, quoting K values.
template <int K>
struct Message {
    int ifail;
    int code;
};

// One message of a routine's catalogue entry, as the generated index lists it.
struct MessageRow {
    const char* routine;
    const char* id;
    int ifail;
    int code;
    int nrecords;
    bool ranged = false;  // ifail is the least of the error numbers (1..N)
};

// Frame messages every routine with IFAIL can raise.
inline constexpr Message<0> ALLOC_FAILED{-999, 99991};
// An exception other than allocation failure escaped an implementation; no
// routine defines this pair, so the caller sees "Unexpected error" and -99.
inline constexpr Message<0> UNEXPECTED_EXCEPTION{-99, 99990};

// An IFAIL on entry that asks for no records: 1 (soft, silent) and every
// value other than 0 and -1.
inline bool quiet(int ifail)
{
    return ifail == 1 || ifail < -1 || ifail > 1;
}

// A buffer a quiet writer marked instead of writing the message: this byte,
// then the message code as 4 bytes.  The message it stands for fits and is
// well formed; the plain entry only looks its pair up.
inline constexpr char checked_message = '\x02';

// Writes one coded message into a buffer: the header fields in its
// constructor, then one value field per add.  It lives only on a failure's
// path, so a routine that succeeds never keeps a writer in memory.
class MessageWriter {
public:
    MessageWriter(char* buf, int ifail, int code, int count) noexcept;
    void add(int v) noexcept;
    void add(double v) noexcept;
    void add(char v) noexcept;
    void add(std::string_view v) noexcept;
    void add(const char* v) noexcept { add(std::string_view(v)); }

    // The characters a value's field and its closing separator take.
    static constexpr int size(int) noexcept { return 12; }
    static constexpr int size(double) noexcept { return 23; }
    static constexpr int size(char) noexcept { return 2; }
    static int size(std::string_view v) noexcept
    {
        return static_cast<int>(std::min<std::size_t>(v.size(), errbuf_length - 8)) + 1;
    }
    static int size(const char* v) noexcept { return size(std::string_view(v)); }
    // The header: the leading separator and three 5-wide fields.
    static constexpr int header_size = 19;

private:
    void field(std::string_view text, int width = 0) noexcept;
    void add_integer(int v, int width) noexcept;

    char* buf_;
    int pos_ = 0;
};

class Fail {
public:
    // Clears the indicator and marks the buffer empty (first byte NUL).  A
    // plain entry passes its caller's IFAIL, read only on a failure: when it
    // asks for no records, a message that fits is marked (checked_message),
    // not written.
    Fail(char* errbuf, int& ifail, const int* caller_ifail = nullptr) noexcept
        : buf_(errbuf), ifail_(&ifail), caller_ifail_(caller_ifail)
    {
        buf_[0] = '\0';
        ifail = 0;
    }
    Fail(const Fail&) = delete;
    Fail& operator=(const Fail&) = delete;

    template <int K, class... V>
    void operator()(const Message<K>& m, const V&... values) noexcept
    {
        static_assert(sizeof...(V) == K, "value count differs from the message's slots");
        report(buf_, ifail_, caller_ifail_, m.ifail, m.code, values...);
    }

    bool failed() const noexcept { return *ifail_ != 0; }
    int ifail() const noexcept { return *ifail_; }

    // Reports the exception in flight (allocation failure or anything else).
    void exception() noexcept;
    // Sets the 200th byte to NUL, as on every return.
    void finish() noexcept { buf_[errbuf_length - 1] = '\0'; }

private:
    // Out of line and cold, with everything passed by value in registers: a
    // failure's path is one call in an implementation inlined into its entry,
    // and the success path keeps its registers and a small frame.
    template <class... V>
    [[gnu::cold, gnu::noinline]] static void report(char* buf, int* ifail_out,
                                                    const int* caller_ifail, int ifail, int code,
                                                    V... values) noexcept
    {
        *ifail_out = ifail;
        // Every field fits exactly when their sum does (the writer leaves out
        // a field that would not, and the message is then malformed).
        if (caller_ifail != nullptr && quiet(*caller_ifail) &&
            (MessageWriter::header_size + ... + MessageWriter::size(values)) <= errbuf_length - 1) {
            buf[0] = checked_message;
            std::memcpy(buf + 1, &code, sizeof code);
            return;
        }
        MessageWriter writer(buf, ifail, code, static_cast<int>(sizeof...(V)));
        (writer.add(values), ...);
    }

    // Three pointers: once an implementation is inlined into its entry, the
    // writer of a call that succeeds needs no memory.
    char* buf_;
    int* ifail_;
    const int* caller_ifail_;
};

}  // namespace lbx
