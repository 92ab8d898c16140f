// SPDX-License-Identifier: MIT
// A 64 MiB digest by cMDF beside OpenSSL's MD5 in the same run. 64 MiB is a whole number of
// blocks below 512 MiB, where the class's padding is the standard one, so both give the same digest.
#include <benchmark/benchmark.h>
#include <corvane/system/mdf.h>

#include <cstdio>
#include <cstdlib>

#ifdef CORVANE_BENCH_OPENSSL
#include <openssl/evp.h>
#endif

namespace {

constexpr int32_t kSize = 64 << 20;

const corvane::VbArray<uint8_t>& input() {
  static const corvane::VbArray<uint8_t> bytes = [] {
    corvane::VbArray<uint8_t> a(0, kSize - 1);
    uint32_t x = 12345;
    for (uint8_t& b : a) {
      x = x * 1103515245u + 12345u;
      b = static_cast<uint8_t>(x >> 24);
    }
    return a;
  }();
  return bytes;
}

std::string mdfDigest() {
  corvane::cMDF md;
  md.MD5Init();
  md.MD5Update(kSize, input());
  md.MD5Final();
  return md.GetValues();
}

void BM_cMDF_Digest64MiB(benchmark::State& state) {
  input();
  for (auto _ : state) benchmark::DoNotOptimize(mdfDigest());
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kSize);
}
BENCHMARK(BM_cMDF_Digest64MiB)->Unit(benchmark::kMillisecond)->MinTime(2.0);

#ifdef CORVANE_BENCH_OPENSSL
std::string opensslDigest() {
  unsigned char out[16];
  unsigned int len = 0;
  EVP_Digest(input().begin(), kSize, out, &len, EVP_md5(), nullptr);
  std::string hex;
  char two[3];
  for (unsigned int i = 0; i < len; ++i) {
    std::snprintf(two, sizeof two, "%02x", out[i]);
    hex += two;
  }
  return hex;
}

void BM_OpenSSL_MD5_64MiB(benchmark::State& state) {
  if (opensslDigest() != mdfDigest()) {
    state.SkipWithError("the digests differ");
    return;
  }
  for (auto _ : state) benchmark::DoNotOptimize(opensslDigest());
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kSize);
}
BENCHMARK(BM_OpenSSL_MD5_64MiB)->Unit(benchmark::kMillisecond)->MinTime(2.0);
#endif

}  // namespace
