// SPDX-License-Identifier: MIT
#include <corvane/runtime/indexed_text.h>

#include <gtest/gtest.h>

#include "runtime/expect_error.h"

using namespace corvane;

namespace {
const std::string kMixed =
    "a\xC3\xA4"
    "b\xE2\x82\xAC"
    "c<b>d";  // aäb€c<b>d
}

TEST(IndexedText, AgreesWithTheFreeFunctions) {
  for (const std::string& s :
       {std::string("plain <b>ascii</b> text"), kMixed, std::string(), std::string("\xE4x")}) {
    IndexedText t(s);
    EXPECT_EQ(t.Len(), corvane::Len(s)) << s;
    for (int32_t start = 1; start <= t.Len() + 2; ++start) {
      EXPECT_EQ(t.Mid(start), corvane::Mid(s, start)) << s << " " << start;
      for (int32_t len = 0; len <= 3; ++len) EXPECT_EQ(t.Mid(start, len), corvane::Mid(s, start, len)) << s;
      for (const char* find : {"<", "b", "", "\xC3\xA4",
                               "\xE2\x82\xAC"
                               "c",
                               "B"}) {
        EXPECT_EQ(t.InStr(start, find), corvane::InStr(start, s, find)) << s << " " << start << " " << find;
        EXPECT_EQ(t.InStr(start, find, CompareMethod::Text),
                  corvane::InStr(start, s, find, CompareMethod::Text));
      }
    }
  }
}

TEST(IndexedText, MapsBetweenCharactersAndBytes) {
  IndexedText t(kMixed);
  EXPECT_EQ(t.byteOffset(1), 0u);
  EXPECT_EQ(t.byteOffset(3), 3u);
  EXPECT_EQ(t.byteOffset(5), 7u);
  EXPECT_EQ(t.byteOffset(100), kMixed.size());
  EXPECT_EQ(t.charIndex(0), 1);
  EXPECT_EQ(t.charIndex(2), 2);  // inside "ä"
  EXPECT_EQ(t.charIndex(7), 5);
  EXPECT_EQ(t.charIndex(kMixed.size()), t.Len() + 1);
  EXPECT_EQ(t.midView(4, 2),
            "\xE2\x82\xAC"
            "c");
}

TEST(IndexedText, RejectsTheSameArgumentsAsTheFreeFunctions) {
  IndexedText t("abc");
  EXPECT_RUNTIME_ERROR(t.Mid(0), 5);
  EXPECT_RUNTIME_ERROR(t.Mid(1, -1), 5);
  EXPECT_RUNTIME_ERROR(t.InStr(0, "a"), 5);
  EXPECT_RUNTIME_ERROR(t.byteOffset(0), 5);
}
