// Coded messages: the writer (lbx::Fail), the splitter P01ABTN, the plain
// entry's record builder and the error exit P01ABF.
#include "frame/errors.hpp"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>

#include "frame/entry.hpp"
#include "frame/fail.hpp"
#include "frame/units.hpp"

namespace lbx {

namespace {
constexpr char separator = '\x01';
}

MessageWriter::MessageWriter(char* buf, int ifail, int code, int count) noexcept : buf_(buf)
{
    std::memset(buf_, ' ', errbuf_length);
    buf_[pos_++] = separator;
    add_integer(ifail, 5);
    add_integer(code, 5);
    add_integer(count, 5);
}

// Appends one field, right-justified in width characters (wider text as it
// is), and its closing separator; a field that would not fit is left out (the
// count then disagrees and the plain entry reports an unexpected error rather
// than a wrong value).  The buffer is blank from the constructor on, so the
// padding is only skipped.
void MessageWriter::field(std::string_view text, int width) noexcept
{
    const int size = static_cast<int>(text.size());
    const int pad = width > size ? width - size : 0;
    if (pos_ + pad + size + 1 > errbuf_length - 1)
        return;
    pos_ += pad;
    std::memcpy(buf_ + pos_, text.data(), text.size());
    pos_ += size;
    buf_[pos_++] = separator;
}

// An integer as printf's %<width>d writes it.
void MessageWriter::add_integer(int v, int width) noexcept
{
    char digits[16];
    const auto r = std::to_chars(digits, digits + sizeof digits, v);
    field({digits, static_cast<std::size_t>(r.ptr - digits)}, width);
}

void MessageWriter::add(int v) noexcept
{
    add_integer(v, 11);
}

// A real as 1PE22.15 writes it: 15 decimals, an exponent of at least two
// digits, and a three-digit exponent without its letter, so the field keeps
// 22 characters ("-1.000000000000000-300").  The digits are those of
// printf's %.15E (std::to_chars rounds the same way), at a fraction of its
// cost.
void MessageWriter::add(double v) noexcept
{
    if (v != v) {
        field("NaN", 22);
        return;
    }
    if (v == __builtin_inf() || v == -__builtin_inf()) {
        field(v > 0 ? "Infinity" : "-Infinity", 22);
        return;
    }
    char raw[40];
    const auto r = std::to_chars(raw, raw + sizeof raw, v, std::chars_format::scientific, 15);
    char* e = std::find(raw, r.ptr, 'e');
    char* end = r.ptr;
    if (end - e - 2 < 3) {  // digits after 'e' and sign
        *e = 'E';
    } else {  // the letter gives way to the third digit
        std::copy(e + 1, end, e);
        --end;
    }
    field({raw, static_cast<std::size_t>(end - raw)}, 22);
}

void MessageWriter::add(char v) noexcept
{
    add(std::string_view(&v, 1));
}

void MessageWriter::add(std::string_view v) noexcept
{
    // The separator cannot appear inside a field.
    char text[errbuf_length];
    std::size_t n = 0;
    for (char c : v.substr(0, errbuf_length - 8))
        text[n++] = (c == separator) ? ' ' : c;
    field(std::string_view(text, n));
}

void Fail::exception() noexcept
{
    try {
        throw;
    } catch (const std::bad_alloc&) {
        (*this)(ALLOC_FAILED);
    } catch (...) {
        (*this)(UNEXPECTED_EXCEPTION);
    }
}

}  // namespace lbx

namespace lbx::frame {

namespace {

// A list-directed read of one integer from a field (blank beyond its end):
// optional blanks, sign and digits, ended by the end of the field, a blank, a
// comma or a slash.
bool read_integer(std::string_view f, int& value)
{
    const std::size_t n = std::min<std::size_t>(f.size(), field_length);
    std::size_t i = 0;
    while (i < n && f[i] == ' ')
        ++i;
    bool negative = false;
    if (i < n && (f[i] == '+' || f[i] == '-'))
        negative = f[i++] == '-';
    long long v = 0;
    int digits = 0;
    while (i < n && f[i] >= '0' && f[i] <= '9') {
        v = v * 10 + (f[i++] - '0');
        if (v > 2147483648LL)
            return false;
        ++digits;
    }
    if (digits == 0)
        return false;
    if (i < n && f[i] != ' ' && f[i] != ',' && f[i] != '/')
        return false;
    v = negative ? -v : v;
    if (v > 2147483647LL)
        return false;
    value = static_cast<int>(v);
    return true;
}

// Splits a coded message into its fields, each cut to 80 characters and
// without its leading blanks, handing field k to take(k, text) for k below
// max_fields; reads the header (error number, code, count) on the way.
// Returns the status P01ABTN reports.
template <class Take>
int split_message(const char* errbuf, int& code, Take take)
{
    code = 0;
    if (errbuf[0] != separator)
        return status_malformed;
    // The last byte that is neither blank nor NUL: past the closing NUL, the
    // blank tail eight bytes at a time (a message fills a third of it).
    int last = errbuf_length - 1;
    while (last >= 0 && errbuf[last] == '\0')
        --last;
    constexpr std::uint64_t blanks = 0x2020202020202020ULL;
    std::uint64_t word;
    while (last >= 8 && (std::memcpy(&word, errbuf + last - 7, 8), word == blanks))
        last -= 8;
    while (last >= 0 && (errbuf[last] == ' ' || errbuf[last] == '\0'))
        --last;
    if (last <= 0 || errbuf[last] != separator)
        return status_malformed;
    int nfields = 0;
    int header[3] = {0, 0, 0};
    int header_read = 0;  // leading header fields read as integers
    for (int start = 1; start <= last && nfields < max_fields;) {
        const void* sep =
            std::memchr(errbuf + start, separator, static_cast<std::size_t>(last + 1 - start));
        const int end = static_cast<int>(static_cast<const char*>(sep) - errbuf);
        std::string_view f(errbuf + start,
                           static_cast<std::size_t>(std::min(end - start, field_length)));
        while (!f.empty() && f.front() == ' ')
            f.remove_prefix(1);
        if (nfields == header_read && nfields < 3 && read_integer(f, header[nfields]))
            ++header_read;
        take(nfields, f);
        ++nfields;
        start = end + 1;
    }
    if (nfields < 3 || header_read < 2)
        return status_malformed;
    code = header[1];
    if (header_read < 3)
        return status_malformed;
    return nfields == header[2] + 3 ? status_ok : status_inconsistent;
}

std::string_view stripped(const char* f, int n)
{
    int b = 0, e = n;
    while (b < e && (f[b] == ' ' || f[b] == '\0'))
        ++b;
    while (e > b && (f[e - 1] == ' ' || f[e - 1] == '\0'))
        --e;
    return {f + b, static_cast<std::size_t>(e - b)};
}

void set_record(char (&rec)[record_length], std::string_view text)
{
    std::memset(rec, ' ', record_length);
    std::memcpy(rec, text.data(), std::min<std::size_t>(text.size(), record_length));
}

}  // namespace

void P01ABTN(const char* errbuf, int& code, char (&fields)[max_fields][field_length], int& status)
{
    std::memset(fields, ' ', sizeof fields);
    status = split_message(errbuf, code, [&](int k, std::string_view f) {
        std::memcpy(fields[k], f.data(), f.size());
    });
}

namespace {

// The table's row for an error number and message code, or null.
const MessageText* table_row(int error, int code, std::span<const MessageText> table)
{
    const MessageText* m = nullptr;
    for (const MessageText& t : table)
        if ((t.ifail == error || (t.ranged && error > t.ifail)) && t.code == code)
            m = &t;
    return m;
}

// The table's message for the coded message in errbuf (its fields split
// into fields), or null when the message is malformed or its pair undefined.
const MessageText* find_message(int error, const char* errbuf, std::span<const MessageText> table,
                                char (&fields)[max_fields][field_length], int& code)
{
    int status = 0;
    P01ABTN(errbuf, code, fields, status);
    return status == status_ok ? table_row(error, code, table) : nullptr;
}

}  // namespace

int format_records(int error, const char* errbuf, std::span<const MessageText> table,
                   char (*records)[record_length], int& nrecords)
{
    int code = 0;
    char fields[max_fields][field_length];
    const MessageText* m = find_message(error, errbuf, table, fields, code);
    if (m == nullptr) {
        char text[64];
        std::snprintf(text, sizeof text, " ** Unexpected error (%5d,%5d)", error, code);
        set_record(records[0], text);
        nrecords = 1;
        return -99;
    }
    nrecords = m->nrecords;
    for (int r = 0; r < m->nrecords; ++r) {
        char text[4 * record_length];
        std::size_t n = 0;
        for (const char* p = m->records[r]; *p && n < sizeof text; ++p) {
            int slot = 0;
            const char* q = p + 1;
            if (*p == '{') {
                while (*q >= '0' && *q <= '9')
                    slot = slot * 10 + (*q++ - '0');
            }
            if (*p == '{' && *q == '}' && slot >= 1 && slot + 2 < max_fields) {
                std::string_view v = stripped(fields[slot + 2], field_length);
                for (char c : v)
                    if (n < sizeof text)
                        text[n++] = c;
                p = q;
            } else {
                text[n++] = *p;
            }
        }
        set_record(records[r], std::string_view(text, n));
    }
    return error;
}

int plain_exit(int ifail_on_entry, int error, const char* errbuf, std::string_view srname,
               std::span<const MessageText> table)
{
    if (error == 0)
        return P01ABF(ifail_on_entry, 0, srname, 0, nullptr);
    if (quiet(ifail_on_entry)) {
        // Nothing is written: only the number the caller gets back counts.
        // A quiet writer has checked the message's form already; otherwise
        // it is checked without copying its fields out.
        int code = 0;
        int status = status_ok;
        if (errbuf[0] == checked_message)
            std::memcpy(&code, errbuf + 1, sizeof code);
        else
            status = split_message(errbuf, code, [](int, std::string_view) {});
        return status == status_ok && table_row(error, code, table) != nullptr ? error : -99;
    }
    char records[max_records][record_length];
    int nrecords = 0;
    int number = format_records(error, errbuf, table, records, nrecords);
    return P01ABF(ifail_on_entry, number, srname, nrecords, records);
}

int P01ABF(int ifail, int error, std::string_view srname, int nrecords,
           const char (*records)[record_length])
{
    if (error == 0)
        return 0;
    const bool hard = ifail == 0;
    if (quiet(ifail))
        return error;
    int unit = 0;
    X04AAFN(0, unit);
    // One block, so that no other thread's records come in between.
    RecordBlock block;
    for (int r = 0; r < nrecords; ++r)
        block.add(std::string_view(records[r], record_length));
    char line[73];
    std::snprintf(line, sizeof line, " ** ABNORMAL EXIT from TSL Library routine %.*s: IFAIL =%6d",
                  static_cast<int>(srname.size()), srname.data(), error);
    block.add(line);
    block.add(hard ? " ** TSL hard failure - execution terminated"
                   : " ** TSL soft failure - control returned");
    const bool written = write_block(unit, block);
    if (hard) {
        // The unit is held by the caller's own output statement: the records
        // cannot go there, and the process must stop all the same.
        if (!written)
            block.write_to_stderr();
        stop_process();
    }
    return error;
}

}  // namespace lbx::frame
