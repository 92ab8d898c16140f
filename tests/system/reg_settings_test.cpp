// SPDX-License-Identifier: MIT
#include <corvane/platform/api.h>
#include <corvane/runtime/array2d_object.h>
#include <corvane/runtime/array_object.h>
#include <corvane/runtime/class_registry.h>
#include <corvane/system/reg_settings.h>
#include <gtest/gtest.h>

#include <memory>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

class RegSettingsTest : public test::DesktopTest {
 protected:
  int32_t openKeys() { return desktop().registry().openKeys(); }
  // Writes raw data below HKEY_CURRENT_USER, as another program could.
  void writeRaw(const std::string& path, const std::string& name, int32_t type, const std::string& data) {
    HKEY key = 0;
    ASSERT_EQ(reg().RegCreateKeyExA(HKEY_CURRENT_USER, path, 0, "", 0, KEY_ALL_ACCESS, key, nullptr), 0);
    ASSERT_EQ(reg().RegSetValueExA(key, name, 0, type, reinterpret_cast<const uint8_t*>(data.data()),
                                   static_cast<int32_t>(data.size())),
              0);
    ASSERT_EQ(reg().RegCloseKey(key), 0);
  }
  cRegSettings s;
};

TEST_F(RegSettingsTest, StartsWithTheDefaultCompanyApplicationRootAndPath) {
  EXPECT_EQ(s.Company(), "Ostwind");
  EXPECT_EQ(s.AppName(), "OstApp");
  EXPECT_EQ(s.RootHKey(), HKY_CURRENT_USER);
  EXPECT_EQ(s.DefaultPath(), "Software\\Ostwind\\OstApp");
}

TEST_F(RegSettingsTest, RootsCarryThePlatformNumbers) {
  EXPECT_EQ(HKY_CLASSES_ROOT, -2147483647 - 1);
  EXPECT_EQ(HKY_CURRENT_USER, -2147483647);
  EXPECT_EQ(HKY_LOCAL_MACHINE, -2147483646);
  EXPECT_EQ(HKY_USERS, -2147483645);
  EXPECT_EQ(HKY_PERFORMANCE_DATA, -2147483644);
  EXPECT_EQ(HKY_CURRENT_CONFIG, -2147483643);
  EXPECT_EQ(HKY_DYN_DATA, -2147483642);
}

TEST_F(RegSettingsTest, CompanyAndAppNameAreTrimmedAndRebuildTheDefaultPath) {
  s.setCompany("  Acme  ");
  s.setAppName(" Tool ");
  EXPECT_EQ(s.Company(), "Acme");
  EXPECT_EQ(s.AppName(), "Tool");
  EXPECT_EQ(s.DefaultPath(), "Software\\Acme\\Tool");
}

TEST_F(RegSettingsTest, EmptyCompanyRestoresOstwind) {
  s.setCompany("Acme");
  s.setCompany("");
  EXPECT_EQ(s.Company(), "Ostwind");
  EXPECT_EQ(s.DefaultPath(), "Software\\Ostwind\\OstApp");
  s.setCompany("   ");
  EXPECT_EQ(s.Company(), "Ostwind");
}

TEST_F(RegSettingsTest, EmptyAppNameTakesTheRunningApplicationsName) {
  desktop().setApplicationName("Buchhaltung");
  s.setAppName("");
  EXPECT_EQ(s.AppName(), "Buchhaltung");
  EXPECT_EQ(s.DefaultPath(), "Software\\Ostwind\\Buchhaltung");
}

TEST_F(RegSettingsTest, DefaultPathSetByHandNoLongerFollowsAppNameOrCompany) {
  s.setDefaultPath("  Software\\Mine  ");
  EXPECT_EQ(s.DefaultPath(), "Software\\Mine");
  s.setAppName("Other");
  s.setCompany("Else");
  EXPECT_EQ(s.DefaultPath(), "Software\\Mine");
}

TEST_F(RegSettingsTest, DefaultPathTypedInTheDefaultFormFollowsAgain) {
  s.setDefaultPath("Software\\Ostwind\\OstApp");
  s.setAppName("Neu");
  EXPECT_EQ(s.DefaultPath(), "Software\\Ostwind\\Neu");
}

TEST_F(RegSettingsTest, FullPathAppendsThePathOrIsTheDefaultPathAlone) {
  EXPECT_EQ(s.FullPath("Fenster"), "Software\\Ostwind\\OstApp\\Fenster");
  EXPECT_EQ(s.FullPath(""), "Software\\Ostwind\\OstApp");
}

TEST_F(RegSettingsTest, SetAndGetATextBelowTheDefaultKey) {
  EXPECT_TRUE(s.SetSetting("Fenster", "Titel", "Übersicht"));
  EXPECT_EQ(s.GetSetting("Fenster", "Titel"), Variant("Übersicht"));
  EXPECT_EQ(s.GetKeyValue(HKY_CURRENT_USER, "Software\\Ostwind\\OstApp\\Fenster", "Titel"),
            Variant("Übersicht"));
  EXPECT_EQ(openKeys(), 0);
}

TEST_F(RegSettingsTest, NumbersAreWrittenAsDwordAndComeBackAsText) {
  EXPECT_TRUE(s.SetSetting("", "Breite", 640, true));
  EXPECT_TRUE(s.SetSetting("", "Versatz", "-12", true));
  EXPECT_EQ(s.GetSetting("", "Breite"), Variant("640"));
  EXPECT_EQ(s.GetSetting("", "Versatz"), Variant("-12"));
  int32_t type = 0, size = 0;
  HKEY key = 0;
  ASSERT_EQ(reg().RegOpenKeyExA(HKEY_CURRENT_USER, s.DefaultPath(), 0, KEY_READ, key), 0);
  ASSERT_EQ(reg().RegQueryValueExA(key, "Breite", &type, nullptr, &size), 0);
  EXPECT_EQ(type, REG_DWORD);
  EXPECT_EQ(size, 4);
  reg().RegCloseKey(key);
}

TEST_F(RegSettingsTest, TextIsWrittenAsRegSzWithoutTerminatingNul) {
  ASSERT_TRUE(s.SetSetting("", "Name", "abc"));
  int32_t type = 0, size = 0;
  HKEY key = 0;
  ASSERT_EQ(reg().RegOpenKeyExA(HKEY_CURRENT_USER, s.DefaultPath(), 0, KEY_READ, key), 0);
  ASSERT_EQ(reg().RegQueryValueExA(key, "Name", &type, nullptr, &size), 0);
  EXPECT_EQ(type, REG_SZ);
  EXPECT_EQ(size, 3);
  reg().RegCloseKey(key);
}

TEST_F(RegSettingsTest, MissingKeyOrValueReturnsTheDefault) {
  EXPECT_EQ(s.GetSetting("Nirgends", "x", "Vorgabe"), Variant("Vorgabe"));
  s.SetSetting("Da", "a", "1");
  EXPECT_EQ(s.GetSetting("Da", "fehlt", 7), Variant(7));
}

TEST_F(RegSettingsTest, MissingWithoutDefaultIsEmpty) {
  EXPECT_TRUE(s.GetSetting("Nirgends", "x").isEmpty());
  EXPECT_TRUE(s.GetKeyValue(HKY_LOCAL_MACHINE, "Nirgends", "x").isEmpty());
}

TEST_F(RegSettingsTest, MissingKeyLeavesNoKeyOpen) {
  s.GetSetting("Nirgends", "x");
  EXPECT_EQ(openKeys(), 0);
}

TEST_F(RegSettingsTest, MissingValueLeavesItsKeyOpen) {
  s.SetSetting("Da", "a", "1");
  s.GetSetting("Da", "fehlt");
  EXPECT_EQ(openKeys(), 1);
  s.GetSetting("Da", "a");
  EXPECT_EQ(openKeys(), 1);
}

TEST_F(RegSettingsTest, FailedDataReadGivesDefaultAndLeavesTheKeyOpen) {
  writeRaw("Software\\Ostwind\\OstApp", "Lang", REG_DWORD, std::string(8, '\1'));
  EXPECT_EQ(s.GetSetting("", "Lang", "d"), Variant("d"));
  EXPECT_EQ(openKeys(), 1);
}

TEST_F(RegSettingsTest, StarWritesTheKeysDefaultValue) {
  ASSERT_TRUE(s.SetSetting("Teil", "*", "Standard"));
  EXPECT_EQ(s.GetSetting("Teil", ""), Variant("Standard"));
  HKEY key = 0;
  int32_t type = 0, size = 0;
  ASSERT_EQ(reg().RegOpenKeyExA(HKEY_CURRENT_USER, s.FullPath("Teil"), 0, KEY_READ, key), 0);
  EXPECT_EQ(reg().RegQueryValueExA(key, "*", &type, nullptr, &size), ERROR_FILE_NOT_FOUND);
  reg().RegCloseKey(key);
}

TEST_F(RegSettingsTest, MultiStringReadsAsItsFirstString) {
  writeRaw("Software\\Ostwind\\OstApp", "Liste", REG_MULTI_SZ, std::string("eins\0zwei\0\0", 11));
  EXPECT_EQ(s.GetSetting("", "Liste"), Variant("eins"));
}

TEST_F(RegSettingsTest, ExpandableStringStaysUnexpanded) {
  writeRaw("Software\\Ostwind\\OstApp", "Pfad", REG_EXPAND_SZ, std::string("%TEMP%\\x\0", 9));
  EXPECT_EQ(s.GetSetting("", "Pfad"), Variant("%TEMP%\\x"));
}

TEST_F(RegSettingsTest, TextIsCutAtItsFirstNul) {
  writeRaw("Software\\Ostwind\\OstApp", "Mit", REG_SZ, std::string("ab\0cd", 5));
  EXPECT_EQ(s.GetSetting("", "Mit"), Variant("ab"));
}

TEST_F(RegSettingsTest, BinaryReadsAsHexTextWithTrailingBlank) {
  writeRaw("Software\\Ostwind\\OstApp", "Bin", REG_BINARY, std::string("\x00\x05\x10\xFF", 4));
  EXPECT_EQ(s.GetSetting("", "Bin"), Variant("00 05 10 FF "));
}

TEST_F(RegSettingsTest, HexTextUsesTheFixedPiecesForDigitAndA) {
  const std::string fixed("\x1A\x3A\x4A\x5A\x6A\x7A\x8A\x9A", 8);
  EXPECT_EQ(cRegSettings::HexText(fixed), "1A 3A 4A 5A 6A 7A 8A 9A ");
}

TEST_F(RegSettingsTest, HexTextOfByte42ReadsAsATimeOfDay) { EXPECT_EQ(cRegSettings::HexText("\x2A"), "00 "); }

TEST_F(RegSettingsTest, HexTextOfOtherBytes) {
  EXPECT_EQ(cRegSettings::HexText(std::string("\x0A\x0F\x12\xAA\xE5", 5)), "A F 12 AA E5 ");
  EXPECT_EQ(cRegSettings::HexText(""), "");
}

TEST_F(RegSettingsTest, UnknownTypeGivesTheDefaultAndClosesTheKey) {
  writeRaw("Software\\Ostwind\\OstApp", "Anders", 11, std::string(8, 'x'));
  EXPECT_EQ(s.GetSetting("", "Anders", "d"), Variant("d"));
  EXPECT_EQ(openKeys(), 0);
}

TEST_F(RegSettingsTest, ShortDwordReadsWithZeroHighBytes) {
  writeRaw("Software\\Ostwind\\OstApp", "Kurz", REG_DWORD, std::string("\x05\x01", 2));
  EXPECT_EQ(s.GetSetting("", "Kurz"), Variant("261"));
}

TEST_F(RegSettingsTest, NamesCompareWithoutRegardToCase) {
  ASSERT_TRUE(s.SetSetting("Fenster", "Titel", "a"));
  EXPECT_EQ(s.GetSetting("FENSTER", "tItEl"), Variant("a"));
  ASSERT_TRUE(s.SetSetting("fenster", "TITEL", "b"));
  EXPECT_EQ(s.GetSetting("Fenster", "Titel"), Variant("b"));
  ASSERT_TRUE(s.SetSetting("Größe", "Ä", "c"));
  EXPECT_EQ(s.GetSetting("GRÖSSE", "ä"), Variant()) << "ß has no capital in the code page";
  EXPECT_EQ(s.GetSetting("GRÖße", "ä"), Variant("c"));
}

TEST_F(RegSettingsTest, TextThatIsNoNumberSkipsTheWriteYetReportsSuccess) {
  // Errors are ignored: the failed conversion skips the write and the key's creation decides.
  EXPECT_TRUE(s.SetSetting("", "Zahl", "abc", true));
  EXPECT_TRUE(s.GetSetting("", "Zahl").isEmpty());
}

TEST_F(RegSettingsTest, SetSettingFailsWhenTheKeyCannotBeCreated) {
  EXPECT_FALSE(s.SetSetting("a\\\\b", "x", "1"));
  EXPECT_FALSE(s.SetKeyValue(12345, "a", "x", "1"));
}

TEST_F(RegSettingsTest, SetKeyValueWritesExactlyTheGivenPath) {
  EXPECT_TRUE(s.SetKeyValue(HKY_LOCAL_MACHINE, "Software\\Frei", "Wert", 3, true));
  EXPECT_EQ(s.GetKeyValue(HKY_LOCAL_MACHINE, "Software\\Frei", "Wert"), Variant("3"));
  EXPECT_TRUE(s.GetKeyValue(HKY_CURRENT_USER, "Software\\Frei", "Wert").isEmpty());
}

TEST_F(RegSettingsTest, RootHKeyChoosesTheRootOfTheDefaultPath) {
  s.setRootHKey(HKY_USERS);
  ASSERT_TRUE(s.SetSetting("", "Wo", "hier"));
  EXPECT_EQ(s.GetKeyValue(HKY_USERS, "Software\\Ostwind\\OstApp", "Wo"), Variant("hier"));
  EXPECT_TRUE(s.GetKeyValue(HKY_CURRENT_USER, "Software\\Ostwind\\OstApp", "Wo").isEmpty());
}

TEST_F(RegSettingsTest, GetAllSectionsListsSubkeysZeroBased) {
  s.SetSetting("Teil\\beta", "x", "1");
  s.SetSetting("Teil\\Alpha", "x", "1");
  s.SetSetting("Teil\\gamma", "x", "1");
  Variant v = s.GetAllSections("Teil");
  auto names = std::dynamic_pointer_cast<ArrayObject>(v.toObject());
  ASSERT_TRUE(names);
  EXPECT_EQ(names->items().lbound(), 0);
  ASSERT_EQ(names->items().ubound(), 2);
  EXPECT_EQ(names->items()(0), Variant("Alpha"));
  EXPECT_EQ(names->items()(1), Variant("beta"));
  EXPECT_EQ(names->items()(2), Variant("gamma"));
  EXPECT_EQ(openKeys(), 0);
}

TEST_F(RegSettingsTest, GetAllSectionsWithoutSubkeysOrKeyIsEmpty) {
  s.SetSetting("Blatt", "x", "1");
  EXPECT_TRUE(s.GetAllSections("Blatt").isEmpty());
  EXPECT_TRUE(s.GetAllSections("Nirgends").isEmpty());
}

TEST_F(RegSettingsTest, GetAllSettingsGivesNamesAndDataLessTheirLastByte) {
  s.SetSetting("Werte", "Titel", "Hallo");
  s.SetSetting("Werte", "Leer", "");
  writeRaw("Software\\Ostwind\\OstApp\\Werte", "MitNul", REG_SZ, std::string("Welt\0", 5));
  writeRaw("Software\\Ostwind\\OstApp\\Werte", "Umlaut", REG_SZ, "aö");
  Variant v = s.GetAllSettings("Werte");
  auto table = std::dynamic_pointer_cast<Array2DObject>(v.toObject());
  ASSERT_TRUE(table);
  EXPECT_EQ(table->lbound(1), 0);
  EXPECT_EQ(table->ubound(1), 1);
  EXPECT_EQ(table->lbound(2), 0);
  ASSERT_EQ(table->ubound(2), 3);
  EXPECT_EQ((*table)(0, 0), Variant("Titel"));
  EXPECT_EQ((*table)(1, 0), Variant("Hall"));
  EXPECT_EQ((*table)(0, 1), Variant("Leer"));
  EXPECT_EQ((*table)(1, 1), Variant(""));
  EXPECT_EQ((*table)(1, 2), Variant("Welt"));
  EXPECT_EQ((*table)(1, 3), Variant("a")) << "a cut character is left out whole";
  EXPECT_EQ(openKeys(), 0);
}

TEST_F(RegSettingsTest, GetAllSettingsTreatsANumberAsText) {
  s.SetSetting("Zahl", "n", 0x00434241, true);
  auto table = std::dynamic_pointer_cast<Array2DObject>(s.GetAllSettings("Zahl").toObject());
  ASSERT_TRUE(table);
  EXPECT_EQ((*table)(1, 0), Variant("ABC"));
}

TEST_F(RegSettingsTest, GetAllSettingsWithoutValuesIsEmpty) {
  s.SetSetting("Eltern\\Kind", "x", "1");
  EXPECT_TRUE(s.GetAllSettings("Eltern").isEmpty());
  EXPECT_TRUE(s.GetAllSettings("Nirgends").isEmpty());
}

TEST_F(RegSettingsTest, DeleteKeyRemovesOneValueOnCompletePath) {
  s.SetSetting("D", "a", "1");
  s.SetSetting("D", "b", "2");
  EXPECT_TRUE(s.DeleteKey(HKY_CURRENT_USER, "Software\\Ostwind\\OstApp\\D", "a").isEmpty());
  EXPECT_TRUE(s.GetSetting("D", "a").isEmpty());
  EXPECT_EQ(s.GetSetting("D", "b"), Variant("2"));
  EXPECT_EQ(openKeys(), 1) << "the failed read of 'a' left its key open";
}

TEST_F(RegSettingsTest, DeletePathRemovesALeafKeyWithItsValues) {
  s.SetSetting("P\\Blatt", "a", "1");
  EXPECT_TRUE(s.DeletePath(HKY_CURRENT_USER, "Software\\Ostwind\\OstApp\\P\\Blatt").isEmpty());
  EXPECT_TRUE(s.GetAllSections("P").isEmpty());
  EXPECT_EQ(s.GetSetting("P\\Blatt", "a", "weg"), Variant("weg"));
}

TEST_F(RegSettingsTest, DeletePathOfAKeyWithSubkeysDoesNothing) {
  s.SetSetting("P\\Blatt", "a", "1");
  s.DeletePath(HKY_CURRENT_USER, "Software\\Ostwind\\OstApp\\P");
  EXPECT_EQ(s.GetSetting("P\\Blatt", "a"), Variant("1"));
}

TEST_F(RegSettingsTest, DeletingWhatIsMissingReportsNothing) {
  EXPECT_TRUE(s.DeletePath(HKY_CURRENT_USER, "Nirgends\\x").isEmpty());
  EXPECT_TRUE(s.DeleteKey(HKY_CURRENT_USER, "Nirgends", "x").isEmpty());
  EXPECT_EQ(openKeys(), 0);
}

TEST_F(RegSettingsTest, CreatedByNameAndByClassIdentifier) {
  ObjectRef a = ClassRegistry::instance().create("cRegSettings");
  ObjectRef b = ClassRegistry::instance().createById("{84D50BB7-2A42-461B-AB4D-DF8F58B35C18}");
  EXPECT_TRUE(std::dynamic_pointer_cast<cRegSettings>(a));
  EXPECT_TRUE(std::dynamic_pointer_cast<cRegSettings>(b));
}

TEST_F(RegSettingsTest, EveryMemberIsReachableByName) {
  ObjectRef o = ClassRegistry::instance().create("cregsettings");
  o->let("Company", "Firma");
  o->let("AppName", "App");
  o->let("RootHKey", static_cast<int32_t>(HKY_LOCAL_MACHINE));
  EXPECT_EQ(o->get("Company"), Variant("Firma"));
  EXPECT_EQ(o->get("AppName"), Variant("App"));
  EXPECT_EQ(o->get("RootHKey"), Variant(static_cast<int32_t>(HKY_LOCAL_MACHINE)));
  EXPECT_EQ(o->get("DefaultPath"), Variant("Software\\Firma\\App"));
  EXPECT_EQ(o->call("SetSetting", {"S\\T", "k", 5, true}), Variant(true));
  EXPECT_EQ(o->call("GetSetting", {"S\\T", "k"}), Variant("5"));
  EXPECT_EQ(o->call("GetSetting", {"S\\T", "x", "d"}), Variant("d"));
  EXPECT_TRUE(o->call("GetAllSections", {"S"}).isObject());
  EXPECT_TRUE(o->call("GetAllSettings", {"S\\T"}).isObject());
  EXPECT_EQ(o->call("SetKeyValue", {static_cast<int32_t>(HKY_USERS), "U", "v", "w"}), Variant(true));
  EXPECT_EQ(o->call("GetKeyValue", {static_cast<int32_t>(HKY_USERS), "U", "v"}), Variant("w"));
  EXPECT_TRUE(o->call("DeleteKey", {static_cast<int32_t>(HKY_USERS), "U", "v"}).isEmpty());
  EXPECT_TRUE(o->call("GetKeyValue", {static_cast<int32_t>(HKY_USERS), "U", "v"}).isEmpty());
  EXPECT_TRUE(o->call("DeletePath", {static_cast<int32_t>(HKY_USERS), "U"}).isEmpty());
  o->let("DefaultPath", " Hand ");
  EXPECT_EQ(o->get("DefaultPath"), Variant("Hand"));
}

}  // namespace
}  // namespace corvane
