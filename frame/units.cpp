// X04AAF, X04ABF (unit numbers), X04BAF (write a record), X04BBF (read one).
//
// Every record for a unit of zero or more is written through the Fortran
// runtime: a unit the caller has not connected is connected by the runtime's
// own default (file fort.N), and the preconnected units 5 and 6 are standard
// input and output.  On Linux that is all.  On Windows a record for the console
// device "CONOUT$", or for a unit not connected at all, goes to the output
// window when the process has no console (frame/window.cpp).
#include "frame/units.hpp"

#include <cfenv>
#include <cstdio>

#include "frame/fail.hpp"
#include "frame/window.hpp"

extern "C" {
void lbx_unit_write(int unit, const char* rec, int n);
void lbx_unit_inquire(int unit, char* name, int n, int* opened);
void lbx_unit_read(int unit, char* buf, int n, int* ios);
[[noreturn]] void lbx_process_stop();
}

namespace lbx::frame {

std::atomic<int> error_unit{6};
std::atomic<int> advisory_unit{6};

#ifdef _WIN32
namespace {

// Whether unit is the console device or not connected at all.
bool for_window(int unit)
{
    char name[40];
    int opened = 0;
    lbx_unit_inquire(unit, name, static_cast<int>(sizeof name), &opened);
    if (opened == 0)
        return true;
    // The runtime pads the name with blanks or ends it with NULs.
    std::string_view n(name, sizeof name);
    n = n.substr(0, n.find('\0'));
    n = n.substr(0, n.find_last_not_of(' ') + 1);
    return n == "CONOUT$";
}

}  // namespace
#endif

void X04AAFN(int iflag, int& nerr)
{
    if (iflag == 0)
        nerr = error_unit.load(std::memory_order_relaxed);
    else if (iflag == 1)
        error_unit.store(nerr, std::memory_order_relaxed);
}

void X04ABFN(int iflag, int& nadv)
{
    if (iflag == 0)
        nadv = advisory_unit.load(std::memory_order_relaxed);
    else if (iflag == 1)
        advisory_unit.store(nadv, std::memory_order_relaxed);
}

void X04BAFN(int nout, std::string_view rec)
{
    if (nout < 0)
        return;
    std::size_t len = rec.size();
    while (len >= 2 && rec[len - 1] == ' ')
        --len;
#ifdef _WIN32
    if (for_window(nout) && !window::has_console()) {
        window::show_record(rec.substr(0, len));
        return;
    }
#endif
    // A C caller's own buffered output comes first.
    std::fflush(stdout);
    lbx_unit_write(nout, rec.data(), static_cast<int>(len));
}

void call_writer(const X04BAF_WRITERProc& writer, int nout, std::string_view rec)
{
    writer(nout, rec);
}

void X04BBFN(int nin, std::span<char> recin, lbx::Fail& fail)
{
    if (nin < 0)
        return;
    int ios = 0;
    lbx_unit_read(nin, recin.data(), static_cast<int>(recin.size()), &ios);
    if (ios < 0)
        fail(X04BBF_msg::END_OF_FILE);
    else if (ios > 0)
        fail(X04BBF_msg::READ_ERROR, nin);
}

void stop_process()
{
    std::fflush(stdout);
    // The runtime's stop would otherwise report raised floating-point flags.
    std::feclearexcept(FE_ALL_EXCEPT);
    lbx_process_stop();
}

}  // namespace lbx::frame
