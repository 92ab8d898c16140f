// SPDX-License-Identifier: MIT
// The settings store and cRegSettings with input that is not what they expect: files that are no
// database, and key paths with quotes, percent signs, binary garbage and deep nesting.
#include <corvane/platform/api.h>
#include <corvane/runtime/array_object.h>
#include <corvane/system/reg_settings.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "desktop/registry_store.h"
#include "support/desktop_fixture.h"

namespace corvane {
namespace {

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

void writeFile(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

class SettingsStoreBadInputTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    test::DesktopTest::SetUp();
    std::string pattern = testing::TempDir() + "corvane-bad-XXXXXX";
    ASSERT_TRUE(mkdtemp(pattern.data()));
    m_folder = pattern;
  }
  void TearDown() override {
    desktop().registry().useFile("");
    std::filesystem::remove_all(m_folder);
    test::DesktopTest::TearDown();
  }

  // A sound store file with enough values to fill several pages, closed again.
  std::string makeStore() {
    const std::string file = m_folder + "/registry.sqlite";
    desktop().registry().useFile(file);
    cRegSettings s;
    for (int i = 0; i < 300; ++i)
      s.SetSetting("Teil" + std::to_string(i % 10), "k" + std::to_string(i), std::string(200, 'v'));
    desktop().registry().useFile("");
    return file;
  }

  // Every operation on a store that cannot be used: False, the Default, Empty, nothing; a clear
  // message on the error stream, and the file's bytes as they were.
  void expectRefusedAndUntouched(const std::string& file) {
    const std::string before = readFile(file);
    testing::internal::CaptureStderr();
    desktop().registry().useFile(file);
    cRegSettings s;
    EXPECT_FALSE(s.SetSetting("A", "b", "c"));
    EXPECT_FALSE(s.SetSetting("A", "n", 5, true));
    EXPECT_EQ(s.GetSetting("Teil1", "k1", "Vorgabe"), Variant("Vorgabe"));
    EXPECT_TRUE(s.GetSetting("Teil1", "k1").isEmpty());
    EXPECT_TRUE(s.GetAllSections().isEmpty());
    EXPECT_TRUE(s.GetAllSettings("Teil1").isEmpty());
    EXPECT_TRUE(s.DeletePath(HKY_CURRENT_USER, "Software").isEmpty());
    EXPECT_TRUE(s.DeleteKey(HKY_CURRENT_USER, "Software\\Ostwind\\OstApp\\Teil1", "k1").isEmpty());
    EXPECT_FALSE(s.SetKeyValue(HKY_LOCAL_MACHINE, "X", "y", "z"));
    HKEY key = 0;
    EXPECT_EQ(reg().RegOpenKeyExA(HKEY_CURRENT_USER, "", 0, KEY_READ, key), ERROR_REGISTRY_CORRUPT);
    const std::string errors = testing::internal::GetCapturedStderr();
    desktop().registry().useFile("");
    EXPECT_NE(errors.find("settings store '" + file + "' cannot be used"), std::string::npos) << errors;
    EXPECT_EQ(errors.find("cannot be used", errors.find("cannot be used") + 1), std::string::npos)
        << "said once, not at every call";
    EXPECT_EQ(readFile(file), before) << "the file was changed";
    EXPECT_FALSE(std::filesystem::exists(file + "-wal"));
  }

  std::string m_folder;
};

TEST_F(SettingsStoreBadInputTest, FileThatIsNotADatabaseIsRefusedAndLeftAlone) {
  const std::string file = m_folder + "/registry.sqlite";
  std::string text;
  for (int i = 0; i < 200; ++i) text += "Dies ist keine Datenbank, nur Text. ";
  writeFile(file, text);
  expectRefusedAndUntouched(file);
}

TEST_F(SettingsStoreBadInputTest, StoreTruncatedToHalfIsRefusedAndLeftAlone) {
  const std::string file = makeStore();
  const std::string whole = readFile(file);
  ASSERT_GT(whole.size(), 8192u);
  writeFile(file, whole.substr(0, whole.size() / 2));
  expectRefusedAndUntouched(file);
}

TEST_F(SettingsStoreBadInputTest, StoreTruncatedInsideItsHeaderIsRefusedAndLeftAlone) {
  const std::string file = makeStore();
  writeFile(file, readFile(file).substr(0, 50));
  expectRefusedAndUntouched(file);
}

TEST_F(SettingsStoreBadInputTest, StoreWithDamagedPagesIsRefusedAndLeftAlone) {
  const std::string file = makeStore();
  std::string bytes = readFile(file);
  for (size_t i = 4096 + 100; i < bytes.size(); i += 7) bytes[i] = static_cast<char>(0xA5);
  writeFile(file, bytes);
  expectRefusedAndUntouched(file);
}

TEST_F(SettingsStoreBadInputTest, SoundStoreFileKeepsItsValuesAcrossOpenings) {
  const std::string file = makeStore();
  desktop().registry().useFile(file);
  cRegSettings s;
  EXPECT_EQ(s.GetSetting("Teil7", "k297"), Variant(std::string(200, 'v')));
  EXPECT_EQ(RegistryStore(file).integrityCheck(), "ok");
}

TEST_F(SettingsStoreBadInputTest, FolderOfTheStoreIsCreated) {
  const std::string file = m_folder + "/neu/corvane/registry.sqlite";
  desktop().registry().useFile(file);
  cRegSettings s;
  EXPECT_TRUE(s.SetSetting("", "a", "b"));
  EXPECT_TRUE(std::filesystem::exists(file));
}

TEST_F(SettingsStoreBadInputTest, StoreThatCannotBeOpenedIsAClearFailure) {
  testing::internal::CaptureStderr();
  desktop().registry().useFile(m_folder);  // a folder, not a file
  cRegSettings s;
  EXPECT_FALSE(s.SetSetting("", "a", "b"));
  EXPECT_EQ(s.GetSetting("", "a", 1), Variant(1));
  EXPECT_NE(testing::internal::GetCapturedStderr().find("cannot be used"), std::string::npos);
}

TEST_F(SettingsStoreBadInputTest, QuotesAndPercentSignsInPathsNamesAndValues) {
  cRegSettings s;
  const std::string tricky[] = {"'", "\"", "''; DROP TABLE keys; --", "%s%n%d%%", "100%", "a\"b'c", "%x\"'%"};
  for (const std::string& t : tricky) {
    ASSERT_TRUE(s.SetSetting("Q" + t + "\\" + t, t, t)) << t;
    EXPECT_EQ(s.GetSetting("Q" + t + "\\" + t, t), Variant(t)) << t;
  }
  auto sections = std::dynamic_pointer_cast<ArrayObject>(s.GetAllSections().toObject());
  ASSERT_TRUE(sections);
  EXPECT_EQ(sections->items().ubound(), 6);
  EXPECT_TRUE(s.SetSetting("after", "still", "works"));
}

TEST_F(SettingsStoreBadInputTest, NulFreeBinaryGarbageInNamesRoundTripsOrFailsCleanly) {
  cRegSettings s;
  std::mt19937 random(14);
  std::uniform_int_distribution<int> byte(1, 255), length(1, 60);
  int stored = 0;
  for (int n = 0; n < 300; ++n) {
    std::string path, name, value;
    for (int i = length(random); i > 0; --i) path += static_cast<char>(byte(random));
    for (int i = length(random); i > 0; --i) name += static_cast<char>(byte(random));
    for (int i = length(random); i > 0; --i) value += static_cast<char>(byte(random));
    if (s.SetSetting(path, name, value)) {
      ++stored;
      EXPECT_EQ(s.GetSetting(path, name), Variant(value));
    } else {
      // Only a path with an empty name ("\\" twice in a row) is refused.
      EXPECT_NE(("\\" + path).find("\\\\"), std::string::npos);
    }
  }
  EXPECT_GT(stored, 200);
  EXPECT_EQ(desktop().registry().store().integrityCheck(), "ok");
}

TEST_F(SettingsStoreBadInputTest, TenThousandLevelsOfNesting) {
  cRegSettings s;
  s.setDefaultPath("Tief");
  std::string path = "L0";
  for (int i = 1; i < 10000; ++i) path += "\\L" + std::to_string(i);
  ASSERT_TRUE(s.SetSetting(path, "Boden", "erreicht"));
  EXPECT_EQ(s.GetSetting(path, "boden"), Variant("erreicht"));
  const std::string parent = path.substr(0, path.rfind('\\'));
  auto sections = std::dynamic_pointer_cast<ArrayObject>(s.GetAllSections(parent).toObject());
  ASSERT_TRUE(sections);
  EXPECT_EQ(sections->items()(0), Variant("L9999"));
  s.DeletePath(HKY_CURRENT_USER, "Tief\\" + path);
  EXPECT_TRUE(s.GetAllSections(parent).isEmpty());
  EXPECT_EQ(desktop().registry().openKeys(), 0);
}

}  // namespace
}  // namespace corvane
