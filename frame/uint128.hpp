// An unsigned 128-bit integer for modular arithmetic: the compiler's own where it
// has one (x86-64), otherwise a small portable type with the same operators
// (32-bit targets such as the Windows DLL).
#pragma once

#include <cstdint>
#include <type_traits>

namespace lbx {

// Two 64-bit halves; arithmetic wraps modulo 2^128 like the built-in type.
struct PortableUInt128 {
    std::uint64_t lo = 0;
    std::uint64_t hi = 0;

    constexpr PortableUInt128() = default;
    constexpr PortableUInt128(std::uint64_t v) : lo(v) {}  // NOLINT: widening, as built in
    constexpr PortableUInt128(std::uint64_t h, std::uint64_t l) : lo(l), hi(h) {}

    template <class T>
    requires std::is_integral_v<T>
    explicit constexpr operator T() const
    {
        if constexpr (std::is_same_v<T, bool>)
            return (lo | hi) != 0;
        else
            return static_cast<T>(lo);
    }

    friend constexpr bool operator==(PortableUInt128 a, PortableUInt128 b) = default;
    friend constexpr bool operator<(PortableUInt128 a, PortableUInt128 b)
    {
        return a.hi != b.hi ? a.hi < b.hi : a.lo < b.lo;
    }
    friend constexpr bool operator>=(PortableUInt128 a, PortableUInt128 b) { return !(a < b); }
    friend constexpr PortableUInt128 operator+(PortableUInt128 a, PortableUInt128 b)
    {
        std::uint64_t lo = a.lo + b.lo;
        return {a.hi + b.hi + (lo < a.lo ? 1 : 0), lo};
    }
    friend constexpr PortableUInt128 operator-(PortableUInt128 a, PortableUInt128 b)
    {
        return {a.hi - b.hi - (a.lo < b.lo ? 1 : 0), a.lo - b.lo};
    }
    friend constexpr PortableUInt128 operator&(PortableUInt128 a, PortableUInt128 b)
    {
        return {a.hi & b.hi, a.lo & b.lo};
    }
    friend constexpr PortableUInt128 operator<<(PortableUInt128 a, int n)
    {
        if (n == 0)
            return a;
        if (n >= 64)
            return {a.lo << (n - 64), 0};
        return {(a.hi << n) | (a.lo >> (64 - n)), a.lo << n};
    }
    friend constexpr PortableUInt128 operator>>(PortableUInt128 a, int n)
    {
        if (n == 0)
            return a;
        if (n >= 64)
            return {0, a.hi >> (n - 64)};
        return {a.hi >> n, (a.lo >> n) | (a.hi << (64 - n))};
    }
    // The full product of two 64-bit values, from 32-bit halves.
    static constexpr PortableUInt128 product(std::uint64_t a, std::uint64_t b)
    {
        const std::uint64_t a0 = a & 0xffffffffU, a1 = a >> 32, b0 = b & 0xffffffffU, b1 = b >> 32;
        const std::uint64_t p00 = a0 * b0, p01 = a0 * b1, p10 = a1 * b0, p11 = a1 * b1;
        const std::uint64_t mid = (p00 >> 32) + (p01 & 0xffffffffU) + (p10 & 0xffffffffU);
        return {p11 + (p01 >> 32) + (p10 >> 32) + (mid >> 32), (mid << 32) | (p00 & 0xffffffffU)};
    }
    friend constexpr PortableUInt128 operator*(PortableUInt128 a, PortableUInt128 b)
    {
        PortableUInt128 r = product(a.lo, b.lo);
        r.hi += a.lo * b.hi + a.hi * b.lo;
        return r;
    }
    // Remainder by binary long division.
    friend constexpr PortableUInt128 operator%(PortableUInt128 a, PortableUInt128 q)
    {
        if (a < q)
            return a;
        PortableUInt128 r;
        for (int bit = 127; bit >= 0; --bit) {
            r = (r << 1) + ((a >> bit) & PortableUInt128(1));
            if (r >= q)
                r = r - q;
        }
        return r;
    }
    constexpr PortableUInt128& operator+=(PortableUInt128 b) { return *this = *this + b; }
    constexpr PortableUInt128& operator-=(PortableUInt128 b) { return *this = *this - b; }
    constexpr PortableUInt128& operator*=(PortableUInt128 b) { return *this = *this * b; }
    constexpr PortableUInt128& operator%=(PortableUInt128 b) { return *this = *this % b; }
    constexpr PortableUInt128& operator>>=(int n) { return *this = *this >> n; }
    constexpr PortableUInt128& operator<<=(int n) { return *this = *this << n; }
};

#ifdef __SIZEOF_INT128__
using uint128 = unsigned __int128;
#else
using uint128 = PortableUInt128;
#endif

}  // namespace lbx
