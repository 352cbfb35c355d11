// Every (error number, message code) pair of the chapter, each raised once through the
// traced entries, which return the coded message in ERRBUF.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "random_test_util.hpp"

namespace {

struct Raised {
  int ifail;
  int code;
};

using Call = std::function<Raised()>;

struct Case {
  std::string name;
  Call call;
  int ifail;
  int code;
};

Raised kff(int genid, std::vector<int> seed, int lstate) {
  std::vector<int> state(lstate > 0 ? lstate : 1);
  int subid = 1, lseed = static_cast<int>(seed.size()), ifail = 0;
  if (seed.empty()) seed.push_back(1);
  char errbuf[200];
  g05kfft_(&genid, &subid, seed.data(), &lseed, state.data(), &lstate, errbuf, &ifail, 200);
  return {ifail, rt::message_code(errbuf)};
}

Raised kgf(int genid, int lstate) {
  std::vector<int> state(lstate > 0 ? lstate : 1);
  int subid = 1, ifail = 0;
  char errbuf[200];
  g05kgft_(&genid, &subid, state.data(), &lstate, errbuf, &ifail, 200);
  return {ifail, rt::message_code(errbuf)};
}

std::vector<int> good(int genid, int lstate = 1260) { return rt::make(genid, {3}, 1, lstate); }

std::vector<int> damaged(int genid) {
  std::vector<int> s = good(genid);
  s[1] += 1;
  return s;
}

Raised khf(int n, int k, std::vector<int> s, int lstate = 0) {
  if (lstate == 0) lstate = s[0];
  int ifail = 0;
  char errbuf[200];
  g05khft_(&n, &k, s.data(), &lstate, errbuf, &ifail, 200);
  return {ifail, rt::message_code(errbuf)};
}

Raised kjf(int n, std::vector<int> s, int lstate = 0) {
  if (lstate == 0) lstate = s[0];
  int ifail = 0;
  char errbuf[200];
  g05kjft_(&n, s.data(), &lstate, errbuf, &ifail, 200);
  return {ifail, rt::message_code(errbuf)};
}

Raised kkf(int n, std::vector<int> s, int lstate = 0) {
  if (lstate == 0) lstate = s[0];
  int ifail = 0;
  char errbuf[200];
  g05kkft_(&n, s.data(), &lstate, errbuf, &ifail, 200);
  return {ifail, rt::message_code(errbuf)};
}

Raised saf(int n, std::vector<int> s, int lstate = 0) {
  if (lstate == 0) lstate = s[0];
  std::vector<double> x(n > 0 ? n : 1);
  int ifail = 0;
  char errbuf[200];
  g05saft_(&n, s.data(), x.data(), &lstate, errbuf, &ifail, 200);
  return {ifail, rt::message_code(errbuf)};
}

Raised skf(int n, double var, std::vector<int> s, int lstate = 0) {
  if (lstate == 0) lstate = s[0];
  std::vector<double> x(n > 0 ? n : 1);
  double xmu = 0.0;
  int ifail = 0;
  char errbuf[200];
  g05skft_(&n, &xmu, &var, s.data(), x.data(), &lstate, errbuf, &ifail, 200);
  return {ifail, rt::message_code(errbuf)};
}

Raised tjf(int mode, int n, double lambda, std::vector<double> r, std::vector<int> s,
           int lstate = 0) {
  if (lstate == 0) lstate = s[0];
  std::vector<int> x(n > 0 ? n : 1);
  int lr = static_cast<int>(r.size()), ifail = 0;
  char errbuf[200];
  g05tjft_(&mode, &n, &lambda, r.data(), &lr, s.data(), x.data(), &lstate, errbuf, &ifail, 200);
  return {ifail, rt::message_code(errbuf)};
}

std::vector<double> reference(double lambda) {
  std::vector<double> r(100);
  std::vector<int> s = good(1), x(1);
  int mode = 0, n = 0, lr = 100, ifail = 1;
  g05tjf_(&mode, &n, &lambda, r.data(), &lr, s.data(), x.data(), &ifail);
  return r;
}

TEST(RandomMessages, EveryPairOnce) {
  const std::vector<Case> cases = {
      {"G05KFF GENID", [] { return kff(0, {1}, 17); }, 1, 99999},
      {"G05KFF SEED", [] { return kff(2, {1, 0}, 21); }, 3, 99998},
      {"G05KFF LSEED", [] { return kff(1, {}, 17); }, 4, 99997},
      {"G05KFF LSTATE", [] { return kff(6, {1}, 60); }, 6, 99996},
      {"G05KFF query", [] { return kff(4, {1}, 0); }, -1, 99995},
      {"G05KGF GENID", [] { return kgf(7, 17); }, 1, 99999},
      {"G05KGF LSTATE", [] { return kgf(3, 632); }, 6, 99996},
      {"G05KGF query", [] { return kgf(5, -1); }, -1, 99995},
      {"G05KHF N", [] { return khf(0, 1, good(2)); }, 1, 99999},
      {"G05KHF K", [] { return khf(2, 3, good(2)); }, 2, 99998},
      {"G05KHF STATE", [] { return khf(2, 1, damaged(2)); }, 3, 99997},
      {"G05KHF LSTATE", [] { return khf(2, 1, good(2), 22); }, 4, 99996},
      {"G05KHF ACORN", [] { return khf(2, 1, good(5)); }, 23, 99995},
      {"G05KJF N", [] { return kjf(-1, good(4)); }, 1, 99999},
      {"G05KJF STATE", [] { return kjf(1, damaged(4)); }, 2, 99998},
      {"G05KJF LSTATE", [] { return kjf(1, good(4), 30); }, 3, 99997},
      {"G05KJF MT", [] { return kjf(1, good(3, 633)); }, 5, 99996},
      {"G05KKF N", [] { return kkf(-1, good(6)); }, 1, 99999},
      {"G05KKF STATE", [] { return kkf(1, damaged(6)); }, 2, 99998},
      {"G05KKF LSTATE", [] { return kkf(1, good(6), 62); }, 3, 99997},
      {"G05KKF MT", [] { return kkf(1, good(3, 700)); }, 5, 99996},
      {"G05SAF N", [] { return saf(-1, good(1)); }, 1, 99999},
      {"G05SAF STATE", [] { return saf(1, damaged(1)); }, 2, 99998},
      {"G05SAF LSTATE", [] { return saf(1, good(1), 20); }, 4, 99997},
      {"G05SKF N", [] { return skf(-1, 1.0, good(1)); }, 1, 99999},
      {"G05SKF VAR", [] { return skf(1, -1.0, good(1)); }, 3, 99998},
      {"G05SKF STATE", [] { return skf(1, 1.0, damaged(3)); }, 4, 99997},
      {"G05SKF LSTATE", [] { return skf(1, 1.0, good(1), 2); }, 6, 99996},
      {"G05TJF MODE", [] { return tjf(5, 1, 1.0, {0.0}, good(1)); }, 1, 99999},
      {"G05TJF N", [] { return tjf(3, -1, 1.0, {0.0}, good(1)); }, 2, 99998},
      {"G05TJF LAMBDA", [] { return tjf(3, 1, -2.0, {0.0}, good(1)); }, 3, 99997},
      {"G05TJF LR overflow", [] { return tjf(0, 1, 1e20, {0.0}, good(1)); }, 3, 99996},
      {"G05TJF LAMBDA changed", [] { return tjf(1, 1, 2.0, reference(1.0), good(1)); }, 4, 99995},
      {"G05TJF R", [] { return tjf(1, 1, 1.0, std::vector<double>(100, 0.0), good(1)); }, 4, 99994},
      {"G05TJF LR", [] { return tjf(2, 1, 100.0, std::vector<double>(100), good(1)); }, 5, 99993},
      {"G05TJF STATE", [] { return tjf(3, 1, 1.0, {0.0}, damaged(1)); }, 6, 99992},
      {"G05TJF LSTATE", [] { return tjf(3, 1, 1.0, {0.0}, good(1), 18); }, 8, 99991},
      {"G05TJF LAMBDA limit", [] { return tjf(1, 1, 2.5e9, {0.0}, good(1)); }, 3, 99990},
  };
  for (const Case& c : cases) {
    const Raised r = c.call();
    EXPECT_EQ(r.ifail, c.ifail) << c.name;
    EXPECT_EQ(r.code, c.code) << c.name;
  }
}

}  // namespace
