// SPDX-License-Identifier: MIT
#include "desktop/desktop_registry.h"

#include <corvane/platform/api.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

class DesktopRegistryTest : public test::DesktopTest {
 protected:
  HKEY create(HKEY root, const std::string& path, int32_t* disposition = nullptr) {
    HKEY key = 0;
    EXPECT_EQ(reg().RegCreateKeyExA(root, path, 0, "", 0, KEY_ALL_ACCESS, key, disposition), ERROR_SUCCESS);
    return key;
  }
  int32_t setText(HKEY key, const std::string& name, const std::string& text) {
    return reg().RegSetValueExA(key, name, 0, REG_SZ, reinterpret_cast<const uint8_t*>(text.data()),
                                static_cast<int32_t>(text.size()));
  }
};

TEST_F(DesktopRegistryTest, KeyHandlesLiveInTheHandleTableButAreNoDrawingObjects) {
  const int32_t drawing = gdi().liveObjectCount();
  HKEY key = create(HKEY_CURRENT_USER, "A");
  EXPECT_GE(key, 0x100);
  EXPECT_EQ(desktop().registry().openKeys(), 1);
  EXPECT_EQ(gdi().liveObjectCount(), drawing);
  EXPECT_FALSE(gdi().DeleteObject(key));
  HBRUSH brush = gdi().CreateSolidBrush(0);
  EXPECT_NE(brush, key);
  EXPECT_EQ(reg().RegCloseKey(brush), ERROR_INVALID_HANDLE);
  EXPECT_TRUE(gdi().DeleteObject(brush));
  EXPECT_EQ(reg().RegCloseKey(key), ERROR_SUCCESS);
  EXPECT_EQ(reg().RegCloseKey(key), ERROR_INVALID_HANDLE);
  EXPECT_EQ(desktop().registry().openKeys(), 0);
}

TEST_F(DesktopRegistryTest, CreateReportsNewOrExistingAndNestedPathsAtOnce) {
  int32_t disposition = 0;
  HKEY a = create(HKEY_CURRENT_USER, "Eins\\Zwei\\Drei", &disposition);
  EXPECT_EQ(disposition, REG_CREATED_NEW_KEY);
  HKEY b = create(HKEY_CURRENT_USER, "eins\\ZWEI\\drei\\", &disposition);
  EXPECT_EQ(disposition, REG_OPENED_EXISTING_KEY);
  std::string name;
  ASSERT_EQ(reg().RegEnumKeyExA(HKEY_CURRENT_USER, 0, name), ERROR_SUCCESS);
  EXPECT_EQ(name, "Eins") << "a key keeps the case it was created with";
  reg().RegCloseKey(a);
  reg().RegCloseKey(b);
}

TEST_F(DesktopRegistryTest, BadPathsAreRefused) {
  HKEY key = 0;
  EXPECT_EQ(reg().RegCreateKeyExA(HKEY_CURRENT_USER, "\\a", 0, "", 0, KEY_ALL_ACCESS, key, nullptr),
            ERROR_BAD_PATHNAME);
  EXPECT_EQ(reg().RegCreateKeyExA(HKEY_CURRENT_USER, "a\\\\b", 0, "", 0, KEY_ALL_ACCESS, key, nullptr),
            ERROR_BAD_PATHNAME);
  EXPECT_EQ(reg().RegOpenKeyExA(HKEY_CURRENT_USER, "a", 0, KEY_READ, key), ERROR_FILE_NOT_FOUND)
      << "nothing of the refused paths was created";
  EXPECT_EQ(reg().RegOpenKeyExA(12345, "", 0, KEY_READ, key), ERROR_INVALID_HANDLE);
}

TEST_F(DesktopRegistryTest, RootsAreSeparateTrees) {
  HKEY a = create(HKEY_LOCAL_MACHINE, "Nur");
  HKEY key = 0;
  EXPECT_EQ(reg().RegOpenKeyExA(HKEY_CURRENT_USER, "Nur", 0, KEY_READ, key), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(reg().RegOpenKeyExA(HKEY_LOCAL_MACHINE, "nur", 0, KEY_READ, key), ERROR_SUCCESS);
  reg().RegCloseKey(key);
  reg().RegCloseKey(a);
  EXPECT_EQ(reg().RegCloseKey(HKEY_CURRENT_USER), ERROR_SUCCESS);
}

TEST_F(DesktopRegistryTest, KeyOpenedForReadingTakesNoValues) {
  reg().RegCloseKey(create(HKEY_CURRENT_USER, "R"));
  HKEY key = 0;
  ASSERT_EQ(reg().RegOpenKeyExA(HKEY_CURRENT_USER, "R", 0, KEY_READ, key), ERROR_SUCCESS);
  EXPECT_EQ(setText(key, "v", "x"), ERROR_ACCESS_DENIED);
  EXPECT_EQ(reg().RegDeleteValueA(key, "v"), ERROR_ACCESS_DENIED);
  reg().RegCloseKey(key);
}

TEST_F(DesktopRegistryTest, QueryGivesSizeFirstAndMoreDataForASmallBuffer) {
  HKEY key = create(HKEY_CURRENT_USER, "Q");
  ASSERT_EQ(setText(key, "v", "abcdef"), ERROR_SUCCESS);
  int32_t type = 0, size = 0;
  ASSERT_EQ(reg().RegQueryValueExA(key, "V", &type, nullptr, &size), ERROR_SUCCESS);
  EXPECT_EQ(type, REG_SZ);
  EXPECT_EQ(size, 6);
  uint8_t small[3];
  size = 3;
  EXPECT_EQ(reg().RegQueryValueExA(key, "v", &type, small, &size), ERROR_MORE_DATA);
  EXPECT_EQ(size, 6);
  uint8_t buffer[8] = {};
  size = 8;
  ASSERT_EQ(reg().RegQueryValueExA(key, "v", &type, buffer, &size), ERROR_SUCCESS);
  EXPECT_EQ(std::string(reinterpret_cast<char*>(buffer), 6), "abcdef");
  EXPECT_EQ(reg().RegSetValueExA(key, "v", 0, REG_SZ, nullptr, 4), ERROR_INVALID_PARAMETER);
  reg().RegCloseKey(key);
}

TEST_F(DesktopRegistryTest, InfoAndEnumerationOfKeysAndValues) {
  HKEY key = create(HKEY_CURRENT_USER, "I");
  reg().RegCloseKey(create(key, "zz"));
  reg().RegCloseKey(create(key, "Langer Name"));
  setText(key, "b", "12345");
  setText(key, "A", "1");
  setText(key, "B", "123");  // the same value again keeps its place and name
  int32_t subKeys = 0, maxSub = 0, values = 0, maxName = 0, maxData = 0;
  ASSERT_EQ(reg().RegQueryInfoKeyA(key, &subKeys, &maxSub, &values, &maxName, &maxData), ERROR_SUCCESS);
  EXPECT_EQ(subKeys, 2);
  EXPECT_EQ(maxSub, 11);
  EXPECT_EQ(values, 2);
  EXPECT_EQ(maxName, 1);
  EXPECT_EQ(maxData, 3);
  std::string name;
  std::vector<uint8_t> data;
  int32_t type = 0;
  ASSERT_EQ(reg().RegEnumValueA(key, 0, name, &type, &data), ERROR_SUCCESS);
  EXPECT_EQ(name, "b");
  EXPECT_EQ(std::string(data.begin(), data.end()), "123");
  ASSERT_EQ(reg().RegEnumValueA(key, 1, name, &type, &data), ERROR_SUCCESS);
  EXPECT_EQ(name, "A");
  EXPECT_EQ(reg().RegEnumValueA(key, 2, name, &type, &data), ERROR_NO_MORE_ITEMS);
  ASSERT_EQ(reg().RegEnumKeyExA(key, 0, name), ERROR_SUCCESS);
  EXPECT_EQ(name, "Langer Name");
  EXPECT_EQ(reg().RegEnumKeyExA(key, 2, name), ERROR_NO_MORE_ITEMS);
  reg().RegCloseKey(key);
}

TEST_F(DesktopRegistryTest, DeleteKeyNeedsALeafAndTakesItsValues) {
  HKEY key = create(HKEY_CURRENT_USER, "Del\\Leaf");
  setText(key, "v", "x");
  EXPECT_EQ(reg().RegDeleteKeyA(HKEY_CURRENT_USER, "Del"), ERROR_ACCESS_DENIED);
  EXPECT_EQ(reg().RegDeleteKeyA(HKEY_CURRENT_USER, "DEL\\leaf"), ERROR_SUCCESS);
  EXPECT_EQ(setText(key, "v", "y"), ERROR_KEY_DELETED) << "a handle of a deleted key";
  reg().RegCloseKey(key);
  HKEY again = create(HKEY_CURRENT_USER, "Del\\Leaf");
  int32_t values = -1;
  reg().RegQueryInfoKeyA(again, nullptr, nullptr, &values, nullptr, nullptr);
  EXPECT_EQ(values, 0);
  reg().RegCloseKey(again);
  EXPECT_EQ(reg().RegDeleteKeyA(HKEY_CURRENT_USER, "Del\\Nirgends"), ERROR_FILE_NOT_FOUND);
}

TEST_F(DesktopRegistryTest, DefaultFileFollowsXdgConfigHome) {
  const char* saved = std::getenv("XDG_CONFIG_HOME");
  const std::string keep = saved ? saved : "";
  setenv("XDG_CONFIG_HOME", "/srv/cfg", 1);
  EXPECT_EQ(DesktopRegistry::defaultFilePath(), "/srv/cfg/corvane/registry.sqlite");
  unsetenv("XDG_CONFIG_HOME");
  const std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
  if (!home.empty()) {
    EXPECT_EQ(DesktopRegistry::defaultFilePath(), home + "/.config/corvane/registry.sqlite");
  }
  setenv("XDG_CONFIG_HOME", "relative", 1);
  if (!home.empty()) {
    EXPECT_EQ(DesktopRegistry::defaultFilePath(), home + "/.config/corvane/registry.sqlite");
  }
  if (saved)
    setenv("XDG_CONFIG_HOME", keep.c_str(), 1);
  else
    unsetenv("XDG_CONFIG_HOME");
}

TEST_F(DesktopRegistryTest, HeadlessStoreIsInMemoryByDefault) { EXPECT_EQ(desktop().registry().file(), ""); }

}  // namespace
}  // namespace corvane
