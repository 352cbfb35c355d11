// The POSIX pieces of the C library that the chapters use and mingw-w64 spells
// differently; force-included into every C++ source of the Windows DLL
// (windows/CMakeLists.txt), so that the chapters stay free of platform code.
#pragma once

#ifdef _WIN32

#define _USE_MATH_DEFINES  // M_PI and friends
#include <math.h>

// The reentrant log-gamma (sign in *sign, no global signgam), as libmingwex
// names it.
extern "C" double __lgamma_r(double x, int* sign);
inline double lgamma_r(double x, int* sign)
{
    return __lgamma_r(x, sign);
}

#endif
