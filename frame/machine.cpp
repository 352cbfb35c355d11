// X01 and X02: mathematical and machine constants.
#include "frame/machine.hpp"

#include "gen/frame.hpp"

namespace lbx::frame {

double X01AAFN()
{
    return machine::pi;
}
double X01ABFN()
{
    return machine::euler_gamma;
}
double X02AHFN()
{
    return machine::two_150;
}
double X02AJFN()
{
    return machine::eps;
}
double X02AKFN()
{
    return machine::tiny;
}
double X02ALFN()
{
    return machine::huge;
}
double X02AMFN()
{
    return machine::safe_min;
}
double X02ANFN()
{
    return machine::safe_min;
}
int X02BBFN()
{
    return machine::big_int;
}
int X02BEFN()
{
    return machine::decimal_digits;
}
int X02BHFN()
{
    return machine::base;
}
int X02BJFN()
{
    return machine::mantissa_digits;
}
int X02BKFN()
{
    return machine::min_exponent;
}
int X02BLFN()
{
    return machine::max_exponent;
}

}  // namespace lbx::frame
