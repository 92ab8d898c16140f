// SPDX-License-Identifier: MIT
#include <corvane/runtime/class_registry.h>
#include <corvane/system/browse_folder_dlg.h>
#include <gtest/gtest.h>

#include "runtime/expect_error.h"
#include "system/dialog_test_support.h"

namespace corvane {
namespace {

class BrowseFolderDlgTest : public test::DialogTest {
 protected:
  ScriptedDialogs::Answer folder(const std::string& path) {
    auto a = ok();
    a.path = path;
    return a;
  }
  BrowseFolderDLG dialog;
};

TEST_F(BrowseFolderDlgTest, ShowFillsTheRequestFromTheProperties) {
  dialog.setOwner(99);
  dialog.setPrompt("Ordner wählen");
  dialog.Show();
  const auto& r = lastRequest();
  EXPECT_EQ(r.kind, "SHBrowseForFolderA");
  EXPECT_EQ(r.owner, 99);
  EXPECT_EQ(r.title, "Ordner wählen");
  EXPECT_EQ(r.flags, 0);
}

TEST_F(BrowseFolderDlgTest, OkCopiesTheFolderBack) {
  script().queue(folder("/home/anna/Bilder"));
  EXPECT_TRUE(dialog.Show());
  EXPECT_EQ(dialog.ReturnPath(), "/home/anna/Bilder");
}

TEST_F(BrowseFolderDlgTest, CancelGivesFalseAndAnEmptyPath) {
  script().queue(folder("/first"));
  dialog.Show();
  script().queue(cancel());
  EXPECT_FALSE(dialog.Show());
  EXPECT_EQ(dialog.ReturnPath(), "");
}

TEST_F(BrowseFolderDlgTest, CancelErrorRaisesNothingForTheFolderDialog) {
  dialog.setCancelError(true);
  script().queue(cancel());
  EXPECT_RUNTIME_ERROR(dialog.Show(), 0);
  EXPECT_TRUE(dialog.CancelError());
}

TEST_F(BrowseFolderDlgTest, TheItemListIsNotFreed) {
  script().queue(folder("/a"));
  script().queue(folder("/b"));
  dialog.Show();
  dialog.Show();
  EXPECT_EQ(script().itemLists(), 2u);
}

TEST_F(BrowseFolderDlgTest, APathLongerThanTheBufferIsCut) {
  script().queue(folder("/" + std::string(600, 'd')));
  EXPECT_TRUE(dialog.Show());
  EXPECT_EQ(dialog.ReturnPath().size(), 511u);
}

TEST_F(BrowseFolderDlgTest, MembersAreReachableByName) {
  auto object = ClassRegistry::instance().create("BrowseFolderDLG");
  object->let("Prompt", Variant(std::string("Wohin?")));
  script().queue(folder("/srv"));
  EXPECT_TRUE(object->call("Show").toBool());
  EXPECT_EQ(object->get("ReturnPath").toString(), "/srv");
  EXPECT_EQ(lastRequest().title, "Wohin?");
}

}  // namespace
}  // namespace corvane
