// The standard-name exports reach the external library's routine and return
// its result.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

namespace {

using dgetrf_type = void(const int*, const int*, double*, const int*, int*, int*);

void* symbol_of(const char* library, const char* symbol)
{
    void* handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);
    EXPECT_NE(handle, nullptr) << dlerror();
    return handle != nullptr ? dlsym(handle, symbol) : nullptr;
}

TEST(Forwards, DgetrfOfTheLibraryIsTheExternalLibrarysDgetrf)
{
    auto* ours = reinterpret_cast<dgetrf_type*>(symbol_of(LBX_SHARED_LIBRARY, "dgetrf_"));
    auto* external = reinterpret_cast<dgetrf_type*>(symbol_of(LBX_PEER_LIBRARY, "dgetrf_"));
    ASSERT_NE(ours, nullptr);
    ASSERT_NE(external, nullptr);
    ASSERT_NE(reinterpret_cast<void*>(ours), reinterpret_cast<void*>(external));
    // A matrix large enough that differently blocked factorizations differ in
    // their last bits, and one exactly singular column: the same factors bit
    // for bit, the same pivots and the same INFO.
    const int n = 300;
    std::vector<double> a(n * n);
    std::mt19937_64 gen(7);
    std::uniform_real_distribution<double> u(-1, 1);
    for (double& x : a)
        x = u(gen);
    for (int i = 0; i < n; ++i)
        a[150 * n + i] = 0;
    std::vector<double> a1 = a, a2 = a;
    std::vector<int> p1(n), p2(n);
    int info1 = -7, info2 = -7;
    ours(&n, &n, a1.data(), &n, p1.data(), &info1);
    external(&n, &n, a2.data(), &n, p2.data(), &info2);
    EXPECT_EQ(info1, 151);
    EXPECT_EQ(info1, info2);
    EXPECT_EQ(p1, p2);
    EXPECT_EQ(std::memcmp(a1.data(), a2.data(), a1.size() * sizeof(double)), 0);
}

}  // namespace
