// SPDX-License-Identifier: MIT
#include <corvane/runtime/utf8.h>

#include <gtest/gtest.h>

using namespace corvane;

TEST(Utf8, AsciiCheck) {
  EXPECT_TRUE(utf8::isAscii(""));
  EXPECT_TRUE(utf8::isAscii("plain text of some length"));
  EXPECT_FALSE(utf8::isAscii("plain text of some length \xC3\xA4"));
  EXPECT_FALSE(utf8::isAscii("\x80"));
}

TEST(Utf8, DecodeAndEncodeRoundTrip) {
  for (char32_t cp : {U'A', U'\u00E4', U'\u20AC', U'\U0001F600', U'\u07FF', U'\u0800', U'\uFFFF'}) {
    std::string s = utf8::encode(cp);
    size_t i = 0;
    EXPECT_EQ(utf8::decode(s, i), cp);
    EXPECT_EQ(i, s.size());
  }
}

TEST(Utf8, IllFormedBytesDecodeOneByOneAsReplacement) {
  std::string s =
      "\xE2\x82"
      "A";
  size_t i = 0;
  EXPECT_EQ(utf8::decode(s, i), utf8::Replacement);
  EXPECT_EQ(i, 1u);
  EXPECT_EQ(utf8::decode(s, i), utf8::Replacement);
  EXPECT_EQ(utf8::decode(s, i), U'A');
  std::string surrogate = "\xED\xA0\x80";  // an encoded surrogate is not well formed
  EXPECT_EQ(utf8::charSize(surrogate, 0), 1u);
  std::string tooLarge = "\xF4\x90\x80\x80";
  EXPECT_EQ(utf8::charSize(tooLarge, 0), 1u);
}

TEST(Utf8, EncodeReplacesWhatCannotBeEncoded) {
  EXPECT_EQ(utf8::encode(0xD800), "\xEF\xBF\xBD");
  EXPECT_EQ(utf8::encode(0x110000), "\xEF\xBF\xBD");
}

TEST(Utf8, SkipAndLength) {
  std::string s =
      "ab\xC3\xA4"
      "cdefghijkl";
  int64_t n = 3;
  EXPECT_EQ(utf8::skip(s, 0, n), 4u);
  EXPECT_EQ(n, 0);
  n = 100;
  EXPECT_EQ(utf8::skip(s, 0, n), s.size());
  EXPECT_EQ(n, 100 - utf8::length(s));
  EXPECT_EQ(utf8::length(s), 13);
}
