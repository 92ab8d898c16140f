// SPDX-License-Identifier: MIT
#include <corvane/runtime/array_object.h>
#include <corvane/runtime/class_registry.h>
#include <corvane/system/mdf.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "runtime/expect_error.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

// The expected digests come from tests/system/mdf_expected.py, which applies the class's padding
// and file reading to an MD5 compression of its own, checked against hashlib.
struct Expected {
  int32_t length;
  const char* text;      // the text of that many characters
  const char* file;      // a file of that many bytes
  const char* standard;  // standard MD5 of the text
};

const Expected kExpected[] = {
    // length, text digest, file digest, standard MD5 of the same text
    {0, "d41d8cd98f00b204e9800998ecf8427e", "d41d8cd98f00b204e9800998ecf8427e",
     "d41d8cd98f00b204e9800998ecf8427e"},
    {1, "9033e0e305f247c0c3c80d0c7848c8b3", "47ed733b8d10be225eceba344d533586",
     "9033e0e305f247c0c3c80d0c7848c8b3"},
    {55, "1a083889f071ae4b9771426e8b8c479d", "96799d8bf84d94466fb1d4785f0eae6c",
     "1a083889f071ae4b9771426e8b8c479d"},
    {56, "edd354104b7f9aa2d9229ed1435ab963", "35c2806b0b2376f41a44bf0e71a32df5",
     "7d9b3918d688bfb8a120f634fa37263d"},
    {57, "3ffb20a275f6712c4f96aa3a01c02249", "9eb14617df5fd442bf0c75940836ac23",
     "3ffb20a275f6712c4f96aa3a01c02249"},
    {63, "1797a5ef7ab000add2f07a256ad6c8d2", "35692891f16306d06ba365a887de5dd3",
     "1797a5ef7ab000add2f07a256ad6c8d2"},
    {64, "b6546e7ed76aed63f0d30c87d29ce9dc", "d41d8cd98f00b204e9800998ecf8427e",
     "b6546e7ed76aed63f0d30c87d29ce9dc"},
    {65, "b2e1dec739749452e0ee7b5c15c38eb5", "99f97c2c46e2953fc2c2b315db172a78",
     "b2e1dec739749452e0ee7b5c15c38eb5"},
    {119, "f41f27f85f37d89d01a622e80f0fb713", "8c8f2677f6b4338b4477d6842ca735e3",
     "f41f27f85f37d89d01a622e80f0fb713"},
    {120, "90b0b51c4e7cddfe6c5738a3e10cdde9", "68c0f2dad2fed6dc07f071155496887b",
     "917fdbeab48d66327f38b9f6411db878"},
    {121, "50e1cacbf67e3bfd936c43608c74a4a2", "3ffcc06d26c580d9d4085bc2a4389a68",
     "f3d945508a8d22874be02ba5dbe1fba9"},
    {1048576, "82d28f0394aa380113eaa04c6ae0efb1", "0dafb590e80f8e974b31c7b65699d256",
     "82d28f0394aa380113eaa04c6ae0efb1"},
};

// The same contents as the script's: printable ASCII for texts, every byte value for files.
std::string textOfLength(int32_t n) {
  std::string s(static_cast<size_t>(n), ' ');
  for (int32_t i = 0; i < n; ++i) s[i] = static_cast<char>(33 + (i * 7) % 94);
  return s;
}

std::string fileBytes(int32_t n) {
  std::string s(static_cast<size_t>(n), '\0');
  for (int32_t i = 0; i < n; ++i) s[i] = static_cast<char>((i * 131 + 17) % 256);
  return s;
}

VbArray<uint8_t> bytesOf(const std::string& s) {
  VbArray<uint8_t> a;
  if (s.empty()) return a;
  a.redim(0, static_cast<int32_t>(s.size()) - 1);
  for (size_t i = 0; i < s.size(); ++i) a(static_cast<int32_t>(i)) = static_cast<uint8_t>(s[i]);
  return a;
}

const Expected& expectedFor(int32_t length) {
  for (const auto& e : kExpected)
    if (e.length == length) return e;
  throw std::logic_error("no expected digest");
}

class MdfFiles : public ::testing::Test {
 protected:
  void SetUp() override {
    m_dir = fs::temp_directory_path() / ("corvane_mdf_" + std::to_string(::getpid()));
    fs::create_directories(m_dir);
  }
  void TearDown() override { fs::remove_all(m_dir); }

  std::string write(const std::string& name, const std::string& bytes) {
    const fs::path p = m_dir / name;
    std::ofstream(p, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return p.string();
  }
  fs::path m_dir;
};

TEST(cMDF, TextDigestsOfTheListedLengths) {
  cMDF md;
  for (const auto& e : kExpected) EXPECT_EQ(md.DigestStrToHexStr(textOfLength(e.length)), e.text) << e.length;
}

TEST_F(MdfFiles, FileDigestsOfTheListedLengths) {
  cMDF md;
  for (const auto& e : kExpected) {
    const std::string path = write("f" + std::to_string(e.length), fileBytes(e.length));
    EXPECT_EQ(md.DigestFileToHexStr(path), e.file) << e.length;
  }
}

TEST(cMDF, EmptyTextHasTheStandardDigest) {
  cMDF md;
  EXPECT_EQ(md.DigestStrToHexStr(""), "d41d8cd98f00b204e9800998ecf8427e");
}

TEST(cMDF, FiftySixCharactersDifferFromStandardWhile55And57Agree) {
  cMDF md;
  EXPECT_NE(md.DigestStrToHexStr(textOfLength(56)), expectedFor(56).standard);
  EXPECT_EQ(md.DigestStrToHexStr(textOfLength(55)), expectedFor(55).standard);
  EXPECT_EQ(md.DigestStrToHexStr(textOfLength(57)), expectedFor(57).standard);
  EXPECT_EQ(md.DigestStrToHexStr(textOfLength(63)), expectedFor(63).standard);
}

TEST(cMDF, AboveFiftySixPastTheFirstBlockThePadIsShortOrNegative) {
  cMDF md;
  // 120 characters: index 56, no pad byte; 121: a pad of -1 bytes.
  EXPECT_NE(md.DigestStrToHexStr(textOfLength(120)), expectedFor(120).standard);
  EXPECT_NE(md.DigestStrToHexStr(textOfLength(121)), expectedFor(121).standard);
  EXPECT_EQ(md.DigestStrToHexStr(textOfLength(119)), expectedFor(119).standard);
}

TEST_F(MdfFiles, A64ByteFileHasTheDigestOfAnEmptyText) {
  cMDF md;
  EXPECT_EQ(md.DigestFileToHexStr(write("f64", fileBytes(64))), md.DigestStrToHexStr(""));
  EXPECT_EQ(md.DigestFileToHexStr(write("f0", "")), md.DigestStrToHexStr(""));
}

TEST_F(MdfFiles, A65ByteFileAgreesWithStandard) {
  cMDF md;
  // Standard MD5 of the 65 bytes, from the same script.
  EXPECT_EQ(md.DigestFileToHexStr(write("f65", fileBytes(65))), "99f97c2c46e2953fc2c2b315db172a78");
}

TEST_F(MdfFiles, AFileOfWholeBlocksLosesItsLastBlock) {
  cMDF md;
  const std::string text = textOfLength(128);
  EXPECT_EQ(md.DigestFileToHexStr(write("t128", text)), md.DigestStrToHexStr(text.substr(0, 64)));
  EXPECT_EQ(md.ByteCounter(), 64 + 56 + 8);  // one block counted, then the pad and the length
}

TEST_F(MdfFiles, AFileEqualsItsTextWhenNotAWholeNumberOfBlocks) {
  cMDF md;
  for (int32_t n : {1, 55, 56, 57, 63, 65, 119, 120, 121, 200}) {
    const std::string text = textOfLength(n);
    EXPECT_EQ(md.DigestFileToHexStr(write("t" + std::to_string(n), text)), md.DigestStrToHexStr(text)) << n;
  }
}

TEST_F(MdfFiles, MissingFileIsError53AndKeepsTheState) {
  cMDF md;
  md.DigestStrToHexStr("abc");
  const std::string before = md.GetValues();
  EXPECT_RUNTIME_ERROR(md.DigestFileToHexStr((m_dir / "none").string()), 53);
  EXPECT_EQ(md.GetValues(), before);
}

TEST_F(MdfFiles, AFolderIsAFileAccessError) {
  cMDF md;
  EXPECT_RUNTIME_ERROR(md.DigestFileToHexStr(m_dir.string()), 75);
}

TEST_F(MdfFiles, BackslashSeparatorsFindTheFile) {
  cMDF md;
  const std::string path = write("slashes", "abc");
  std::string library = path;
  for (char& c : library)
    if (c == '/') c = '\\';
  EXPECT_EQ(md.DigestFileToHexStr(library), "900150983cd24fb0d6963f7d28e17f72");
}

TEST(cMDF, TextIsReadAsWindows1252) {
  cMDF md;
  // Standard MD5 of the five bytes 47 72 FC DF 65.
  EXPECT_EQ(md.DigestStrToHexStr("Grüße"), "2c987648c54e9054bf8c8c916b17d5c0");
  // A character the code page lacks counts as "?".
  EXPECT_EQ(md.DigestStrToHexStr("Ω"), md.DigestStrToHexStr("?"));
  EXPECT_EQ(md.DigestStrToHexStr("?"), "d1457b72c3fb323a2671125aef3eab5d");
}

TEST(cMDF, RegisterACanBeNegative) {
  cMDF md;
  md.DigestStrToHexStr("");
  EXPECT_EQ(md.RegisterA(), "-645128748");  // the word d98c1dd4
  EXPECT_EQ(md.GetValues().substr(0, 8), "d41d8cd9");
}

TEST(cMDF, InitSetsTheStandardWordsAndClearsTheCounter) {
  cMDF md;
  md.DigestStrToHexStr("abc");
  md.MD5Init();
  EXPECT_EQ(md.RegisterA(), "1732584193");
  EXPECT_EQ(md.RegisterB(), "-271733879");
  EXPECT_EQ(md.RegisterC(), "-1732584194");
  EXPECT_EQ(md.RegisterD(), "271733878");
  EXPECT_EQ(md.ByteCounter(), 0);
  EXPECT_EQ(md.GetValues(), "0123456789abcdeffedcba9876543210");
}

TEST(cMDF, UpdatesInPiecesEqualOneUpdate) {
  cMDF md;
  const std::string text = textOfLength(300);
  const std::string whole = md.DigestStrToHexStr(text);
  for (size_t cut : {0u, 1u, 63u, 64u, 65u, 128u, 299u}) {
    md.MD5Init();
    md.MD5Update(static_cast<int32_t>(cut), bytesOf(text.substr(0, cut)));
    md.MD5Update(static_cast<int32_t>(300 - cut), bytesOf(text.substr(cut)));
    md.MD5Final();
    EXPECT_EQ(md.GetValues(), whole) << cut;
  }
}

TEST(cMDF, UpdateTakesOnlyInputLenBytes) {
  cMDF md;
  md.MD5Init();
  md.MD5Update(3, bytesOf("abcdef"));
  md.MD5Final();
  EXPECT_EQ(md.GetValues(), "900150983cd24fb0d6963f7d28e17f72");
}

TEST(cMDF, NegativeInputLenOnlyLowersTheCounter) {
  cMDF md;
  md.MD5Init();
  md.MD5Update(10, bytesOf("0123456789"));
  const std::string state = md.GetValues();
  md.MD5Update(-3, bytesOf("xyz"));
  EXPECT_EQ(md.ByteCounter(), 7);
  EXPECT_EQ(md.GetValues(), state);
  // The lowered count decides the length field: the digest is that of the first 7 bytes.
  md.MD5Final();
  EXPECT_EQ(md.GetValues(), cMDF().DigestStrToHexStr("0123456"));
}

TEST(cMDF, BytesAfterTheCounterWentBelowZeroAreError9) {
  cMDF md;
  md.MD5Init();
  md.MD5Update(-5, bytesOf("x"));
  EXPECT_EQ(md.ByteCounter(), -5);
  EXPECT_RUNTIME_ERROR(md.MD5Update(1, bytesOf("x")), 9);
  EXPECT_EQ(md.ByteCounter(), -5);
  EXPECT_RUNTIME_ERROR(md.MD5Final(), 9);
}

TEST(cMDF, MoreBytesThanTheArrayHoldsIsError9) {
  cMDF md;
  md.MD5Init();
  EXPECT_RUNTIME_ERROR(md.MD5Update(4, bytesOf("abc")), 9);
  EXPECT_RUNTIME_ERROR(md.MD5Update(1, VbArray<uint8_t>()), 9);
  EXPECT_EQ(md.ByteCounter(), 0);
}

TEST(cMDF, FinalWithoutInitWorksOnTheZeroState) {
  cMDF md;  // all words 0 until MD5Init
  EXPECT_EQ(md.GetValues(), std::string(32, '0'));
  EXPECT_EQ(md.RegisterA(), "0");
}

TEST(cMDF, LongLeftRotateReducesBitsTo0To31) {
  EXPECT_EQ(cMDF::LongLeftRotate(1, 1), 2);
  EXPECT_EQ(cMDF::LongLeftRotate(1, 33), 2);
  EXPECT_EQ(cMDF::LongLeftRotate(1, 32), 1);
  EXPECT_EQ(cMDF::LongLeftRotate(INT32_MIN, 1), 1);
  EXPECT_EQ(cMDF::LongLeftRotate(0x40000000, 1), INT32_MIN);
  EXPECT_EQ(cMDF::LongLeftRotate(2, -1), 1);  // -1 is 31
  EXPECT_EQ(cMDF::LongLeftRotate(0x12345678, 8), 0x34567812);
}

TEST(cMDF, CreatedByNameAndIdentifierAndCalledByName) {
  ObjectRef byId = ClassRegistry::instance().createById("{F7BF2924-2F62-4F1C-ACD5-80A18470CF4F}");
  ASSERT_TRUE(byId);
  EXPECT_EQ(byId->typeName(), "cMDF");
  ObjectRef md = ClassRegistry::instance().create("cMDF");
  EXPECT_EQ(md->call("DigestStrToHexStr", {"abc"}).toString(), "900150983cd24fb0d6963f7d28e17f72");
  EXPECT_EQ(md->get("RegisterA").toString(), "-1739587184");  // the word 98500190
  md->call("MD5Init");
  EXPECT_EQ(md->get("RegisterB").toString(), "-271733879");
  EXPECT_EQ(md->get("RegisterC").toString(), "-1732584194");
  EXPECT_EQ(md->get("RegisterD").toString(), "271733878");
  auto bytes = std::make_shared<ArrayObject>();
  bytes->items().redim(0, 2);
  bytes->items()(0) = Variant(int32_t('a'));
  bytes->items()(1) = Variant(int32_t('b'));
  bytes->items()(2) = Variant(int32_t('c'));
  md->call("MD5Update", {Variant(3), Variant(bytes)});
  md->call("MD5Final");
  EXPECT_EQ(md->call("GetValues").toString(), "900150983cd24fb0d6963f7d28e17f72");
  EXPECT_EQ(md->call("LongLeftRotate", {Variant(1), Variant(4)}).toLong(), 16);
  EXPECT_RUNTIME_ERROR(md->call("DigestFileToHexStr", {"/nonexistent/corvane/file"}), 53);
  EXPECT_RUNTIME_ERROR(md->call("MD5Update", {Variant(1), Variant("x")}), 13);
}

}  // namespace
}  // namespace corvane
