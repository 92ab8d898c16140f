// SPDX-License-Identifier: MIT
#include <corvane/runtime/array_object.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/runtime_error.h>
#include <corvane/runtime/win1252.h>
#include <corvane/system/mdf.h>

#include <bit>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <limits>
#include <memory>
#include <vector>

namespace corvane {

namespace {

constexpr int32_t kFileNotFound = 53;
constexpr int32_t kDeviceIOError = 57;
constexpr int32_t kPathFileAccessError = 75;

// The standard initial state words.
constexpr uint32_t kInitA = 0x67452301, kInitB = 0xefcdab89, kInitC = 0x98badcfe, kInitD = 0x10325476;

inline uint32_t load32(const uint8_t* p) {
  uint32_t v;
  std::memcpy(&v, p, 4);
  if constexpr (std::endian::native == std::endian::big) v = __builtin_bswap32(v);
  return v;
}

// The four round functions, in the forms that give the shortest dependency chains: F selects with
// one AND, G is split into two disjoint terms that can be added one after the other, I uses OR-NOT.
template <int S>
inline void stepF(uint32_t& a, uint32_t b, uint32_t c, uint32_t d, uint32_t x, uint32_t t) {
  a += x + t + (d ^ (b & (c ^ d)));
  a = std::rotl(a, S) + b;
}
template <int S>
inline void stepG(uint32_t& a, uint32_t b, uint32_t c, uint32_t d, uint32_t x, uint32_t t) {
  a += x + t + (c & ~d);
  a += b & d;
  a = std::rotl(a, S) + b;
}
template <int S>
inline void stepH(uint32_t& a, uint32_t b, uint32_t c, uint32_t d, uint32_t x, uint32_t t) {
  a += x + t + (b ^ c ^ d);
  a = std::rotl(a, S) + b;
}
template <int S>
inline void stepI(uint32_t& a, uint32_t b, uint32_t c, uint32_t d, uint32_t x, uint32_t t) {
  a += x + t + (c ^ (b | ~d));
  a = std::rotl(a, S) + b;
}

// Transforms `blocks` consecutive 64-byte blocks into the state words.
void transform(uint32_t state[4], const uint8_t* p, size_t blocks) {
  uint32_t a = state[0], b = state[1], c = state[2], d = state[3];
  for (; blocks > 0; --blocks, p += 64) {
    const uint32_t x0 = load32(p), x1 = load32(p + 4), x2 = load32(p + 8), x3 = load32(p + 12);
    const uint32_t x4 = load32(p + 16), x5 = load32(p + 20), x6 = load32(p + 24), x7 = load32(p + 28);
    const uint32_t x8 = load32(p + 32), x9 = load32(p + 36), x10 = load32(p + 40), x11 = load32(p + 44);
    const uint32_t x12 = load32(p + 48), x13 = load32(p + 52), x14 = load32(p + 56), x15 = load32(p + 60);
    const uint32_t aa = a, bb = b, cc = c, dd = d;

    stepF<7>(a, b, c, d, x0, 0xd76aa478);
    stepF<12>(d, a, b, c, x1, 0xe8c7b756);
    stepF<17>(c, d, a, b, x2, 0x242070db);
    stepF<22>(b, c, d, a, x3, 0xc1bdceee);
    stepF<7>(a, b, c, d, x4, 0xf57c0faf);
    stepF<12>(d, a, b, c, x5, 0x4787c62a);
    stepF<17>(c, d, a, b, x6, 0xa8304613);
    stepF<22>(b, c, d, a, x7, 0xfd469501);
    stepF<7>(a, b, c, d, x8, 0x698098d8);
    stepF<12>(d, a, b, c, x9, 0x8b44f7af);
    stepF<17>(c, d, a, b, x10, 0xffff5bb1);
    stepF<22>(b, c, d, a, x11, 0x895cd7be);
    stepF<7>(a, b, c, d, x12, 0x6b901122);
    stepF<12>(d, a, b, c, x13, 0xfd987193);
    stepF<17>(c, d, a, b, x14, 0xa679438e);
    stepF<22>(b, c, d, a, x15, 0x49b40821);

    stepG<5>(a, b, c, d, x1, 0xf61e2562);
    stepG<9>(d, a, b, c, x6, 0xc040b340);
    stepG<14>(c, d, a, b, x11, 0x265e5a51);
    stepG<20>(b, c, d, a, x0, 0xe9b6c7aa);
    stepG<5>(a, b, c, d, x5, 0xd62f105d);
    stepG<9>(d, a, b, c, x10, 0x02441453);
    stepG<14>(c, d, a, b, x15, 0xd8a1e681);
    stepG<20>(b, c, d, a, x4, 0xe7d3fbc8);
    stepG<5>(a, b, c, d, x9, 0x21e1cde6);
    stepG<9>(d, a, b, c, x14, 0xc33707d6);
    stepG<14>(c, d, a, b, x3, 0xf4d50d87);
    stepG<20>(b, c, d, a, x8, 0x455a14ed);
    stepG<5>(a, b, c, d, x13, 0xa9e3e905);
    stepG<9>(d, a, b, c, x2, 0xfcefa3f8);
    stepG<14>(c, d, a, b, x7, 0x676f02d9);
    stepG<20>(b, c, d, a, x12, 0x8d2a4c8a);

    stepH<4>(a, b, c, d, x5, 0xfffa3942);
    stepH<11>(d, a, b, c, x8, 0x8771f681);
    stepH<16>(c, d, a, b, x11, 0x6d9d6122);
    stepH<23>(b, c, d, a, x14, 0xfde5380c);
    stepH<4>(a, b, c, d, x1, 0xa4beea44);
    stepH<11>(d, a, b, c, x4, 0x4bdecfa9);
    stepH<16>(c, d, a, b, x7, 0xf6bb4b60);
    stepH<23>(b, c, d, a, x10, 0xbebfbc70);
    stepH<4>(a, b, c, d, x13, 0x289b7ec6);
    stepH<11>(d, a, b, c, x0, 0xeaa127fa);
    stepH<16>(c, d, a, b, x3, 0xd4ef3085);
    stepH<23>(b, c, d, a, x6, 0x04881d05);
    stepH<4>(a, b, c, d, x9, 0xd9d4d039);
    stepH<11>(d, a, b, c, x12, 0xe6db99e5);
    stepH<16>(c, d, a, b, x15, 0x1fa27cf8);
    stepH<23>(b, c, d, a, x2, 0xc4ac5665);

    stepI<6>(a, b, c, d, x0, 0xf4292244);
    stepI<10>(d, a, b, c, x7, 0x432aff97);
    stepI<15>(c, d, a, b, x14, 0xab9423a7);
    stepI<21>(b, c, d, a, x5, 0xfc93a039);
    stepI<6>(a, b, c, d, x12, 0x655b59c3);
    stepI<10>(d, a, b, c, x3, 0x8f0ccc92);
    stepI<15>(c, d, a, b, x10, 0xffeff47d);
    stepI<21>(b, c, d, a, x1, 0x85845dd1);
    stepI<6>(a, b, c, d, x8, 0x6fa87e4f);
    stepI<10>(d, a, b, c, x15, 0xfe2ce6e0);
    stepI<15>(c, d, a, b, x6, 0xa3014314);
    stepI<21>(b, c, d, a, x13, 0x4e0811a1);
    stepI<6>(a, b, c, d, x4, 0xf7537e82);
    stepI<10>(d, a, b, c, x11, 0xbd3af235);
    stepI<15>(c, d, a, b, x2, 0x2ad7d2bb);
    stepI<21>(b, c, d, a, x9, 0xeb86d391);

    a += aa;
    b += bb;
    c += cc;
    d += dd;
  }
  state[0] = a;
  state[1] = b;
  state[2] = c;
  state[3] = d;
}

struct FileCloser {
  void operator()(std::FILE* f) const { std::fclose(f); }
};

// The file as named, or, when that does not exist, with the library's "\" separators as "/".
std::filesystem::path nativePath(const std::string& name) {
  std::error_code ec;
  if (std::filesystem::exists(name, ec) || name.find('\\') == std::string::npos) return name;
  std::string alt = name;
  for (char& ch : alt)
    if (ch == '\\') ch = '/';
  return alt;
}

}  // namespace

std::string cMDF::RegisterA() const { return std::to_string(static_cast<int32_t>(m_A)); }
std::string cMDF::RegisterB() const { return std::to_string(static_cast<int32_t>(m_B)); }
std::string cMDF::RegisterC() const { return std::to_string(static_cast<int32_t>(m_C)); }
std::string cMDF::RegisterD() const { return std::to_string(static_cast<int32_t>(m_D)); }

void cMDF::MD5Init() {
  m_A = kInitA;
  m_B = kInitB;
  m_C = kInitC;
  m_D = kInitD;
  m_ByteCounter = 0;
}

void cMDF::update(const uint8_t* input, int32_t length) {
  const int32_t index = m_ByteCounter % 64;  // negative once the counter was lowered below zero
  if (length > 0 && index < 0) throw RuntimeError(err::SubscriptOutOfRange);
  m_ByteCounter = add32(m_ByteCounter, length);
  if (length <= 0) return;
  const int32_t partLen = 64 - index;
  int32_t i = 0;
  int32_t at = index;
  if (length >= partLen) {
    std::memcpy(m_block + index, input, partLen);
    uint32_t state[4] = {m_A, m_B, m_C, m_D};
    transform(state, m_block, 1);
    i = partLen;
    const int32_t whole = (length - i) / 64;
    transform(state, input + i, whole);
    i += whole * 64;
    m_A = state[0], m_B = state[1], m_C = state[2], m_D = state[3];
    at = 0;
  }
  std::memcpy(m_block + at, input + i, length - i);
}

void cMDF::MD5Update(int32_t InputLen, const VbArray<uint8_t>& InputBuffer) {
  if (InputLen > 0 && static_cast<size_t>(InputLen) > InputBuffer.size())
    throw RuntimeError(err::SubscriptOutOfRange);
  update(InputLen > 0 ? InputBuffer.begin() : nullptr, InputLen);
}

void cMDF::MD5Final() {
  static const uint8_t pad[120] = {0x80};
  // The bit count as a floating-point number: only its low four bytes reach the length field.
  const double bits = static_cast<double>(m_ByteCounter) * 8;
  const auto low = static_cast<uint32_t>(static_cast<int64_t>(bits));
  const uint8_t lengthBytes[8] = {static_cast<uint8_t>(low),
                                  static_cast<uint8_t>(low >> 8),
                                  static_cast<uint8_t>(low >> 16),
                                  static_cast<uint8_t>(low >> 24),
                                  0,
                                  0,
                                  0,
                                  0};
  const int32_t index = m_ByteCounter % 64;
  // Above 56 the pad length is taken from the whole count, not the index: short, empty or
  // negative for counts of 64 and more.
  const int32_t padLen = index <= 56 ? 56 - index : 120 - m_ByteCounter;
  update(pad, padLen);
  update(lengthBytes, 8);
}

std::string cMDF::GetValues() const {
  static const char digits[] = "0123456789abcdef";
  std::string out;
  out.reserve(32);
  for (uint32_t word : {m_A, m_B, m_C, m_D}) {
    for (int shift = 0; shift < 32; shift += 8) {
      const uint8_t byte = static_cast<uint8_t>(word >> shift);
      out += digits[byte >> 4];
      out += digits[byte & 15];
    }
  }
  return out;
}

std::string cMDF::DigestStrToHexStr(const std::string& SourceString) {
  const std::string bytes = toAnsi(SourceString);
  MD5Init();
  update(reinterpret_cast<const uint8_t*>(bytes.data()), static_cast<int32_t>(bytes.size()));
  MD5Final();
  return GetValues();
}

std::string cMDF::DigestFileToHexStr(const std::string& FileName) {
  const std::filesystem::path path = nativePath(FileName);
  std::error_code ec;
  const auto status = std::filesystem::status(path, ec);
  if (!std::filesystem::exists(status)) throw RuntimeError(kFileNotFound, "File not found: " + FileName);
  if (!std::filesystem::is_regular_file(status))
    throw RuntimeError(kPathFileAccessError, "Path/File access error: " + FileName);
  std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
  if (!file) throw RuntimeError(kPathFileAccessError, "Path/File access error: " + FileName);
  if (std::fseek(file.get(), 0, SEEK_END) != 0) throw RuntimeError(kDeviceIOError);
  const long length = std::ftell(file.get());
  if (length < 0) throw RuntimeError(kDeviceIOError);
  // The file's length is a 32-bit count.
  if (length > std::numeric_limits<int32_t>::max()) throw RuntimeError(err::Overflow);
  std::rewind(file.get());

  MD5Init();
  // Block by block, every block whose end lies before the end of the file is counted and
  // transformed; the last block, whole or not, stays in the buffer for MD5Final.
  const int64_t transformed = length > 0 ? (length - 1) / 64 : 0;
  constexpr size_t kChunkBlocks = 1024;
  std::vector<uint8_t> chunk(kChunkBlocks * 64);
  uint32_t state[4] = {m_A, m_B, m_C, m_D};
  for (int64_t done = 0; done < transformed;) {
    const size_t blocks = static_cast<size_t>(std::min<int64_t>(kChunkBlocks, transformed - done));
    if (std::fread(chunk.data(), 64, blocks, file.get()) != blocks) throw RuntimeError(kDeviceIOError);
    m_ByteCounter = add32(m_ByteCounter, static_cast<int32_t>(blocks * 64));
    transform(state, chunk.data(), blocks);
    done += static_cast<int64_t>(blocks);
  }
  m_A = state[0], m_B = state[1], m_C = state[2], m_D = state[3];
  const size_t last = static_cast<size_t>(length - transformed * 64);
  if (std::fread(m_block, 1, last, file.get()) != last) throw RuntimeError(kDeviceIOError);
  m_ByteCounter = add32(m_ByteCounter, static_cast<int32_t>(length % 64));
  file.reset();

  MD5Final();
  return GetValues();
}

int32_t cMDF::LongLeftRotate(int32_t value, int32_t bits) {
  return static_cast<int32_t>(std::rotl(static_cast<uint32_t>(value), bits & 31));
}

const Dispatch* cMDF::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    auto arg = [](Dispatch::Args& a, size_t i) -> Variant& {
      if (a.size() <= i) throw RuntimeError(449, "Argument not optional");
      return a[i];
    };
    DispatchBuilder<cMDF>(t)
        .get("RegisterA", &cMDF::RegisterA)
        .get("RegisterB", &cMDF::RegisterB)
        .get("RegisterC", &cMDF::RegisterC)
        .get("RegisterD", &cMDF::RegisterD)
        .method("DigestFileToHexStr",
                [arg](cMDF& m, Dispatch::Args& a) { return m.DigestFileToHexStr(arg(a, 0).toString()); })
        .method("DigestStrToHexStr",
                [arg](cMDF& m, Dispatch::Args& a) { return m.DigestStrToHexStr(arg(a, 0).toString()); })
        .method("GetValues", [](cMDF& m, Dispatch::Args&) { return m.GetValues(); })
        .method("MD5Init", [](cMDF& m, Dispatch::Args&) { m.MD5Init(); })
        .method("MD5Final", [](cMDF& m, Dispatch::Args&) { m.MD5Final(); })
        // InputBuffer is an array object of byte values, as a late-bound caller holds an array.
        .method("MD5Update",
                [arg](cMDF& m, Dispatch::Args& a) {
                  const int32_t len = arg(a, 0).toLong();
                  auto array = std::dynamic_pointer_cast<ArrayObject>(arg(a, 1).toObject());
                  if (!array) throw RuntimeError(err::TypeMismatch);
                  VbArray<uint8_t> bytes;
                  if (!array->items().empty()) {
                    bytes.redim(array->items().lbound(), array->items().ubound());
                    for (int32_t i = bytes.lbound(); i <= bytes.ubound(); ++i)
                      bytes(i) = array->items()(i).toByte();
                  }
                  m.MD5Update(len, bytes);
                })
        .method("LongLeftRotate", [arg](cMDF&, Dispatch::Args& a) {
          return cMDF::LongLeftRotate(arg(a, 0).toLong(), arg(a, 1).toLong());
        });
    return t;
  }();
  return &d;
}

}  // namespace corvane
