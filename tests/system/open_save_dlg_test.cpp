// SPDX-License-Identifier: MIT
#include <corvane/runtime/class_registry.h>
#include <corvane/system/open_save_dlg.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "runtime/expect_error.h"
#include "system/dialog_test_support.h"

namespace corvane {
namespace {

using namespace std::string_literals;

class OpenSaveDlgTest : public test::DialogTest {
 protected:
  ScriptedDialogs::Answer chosen(const std::string& path) {
    auto a = ok();
    a.path = path;
    return a;
  }
  bool show(bool open) { return dialog.Show(open); }
  OpenSaveDLG dialog;
};

TEST_F(OpenSaveDlgTest, TextsAreStoredWithoutOuterBlanks) {
  dialog.setDialogTitle("  Öffnen ");
  dialog.setInitDir(" /tmp ");
  dialog.setFileName(" a b.txt  ");
  dialog.setFilter(" Text\0*.txt\0 "s);
  EXPECT_EQ(dialog.DialogTitle(), "Öffnen");
  EXPECT_EQ(dialog.InitDir(), "/tmp");
  EXPECT_EQ(dialog.FileName(), "a b.txt");
  EXPECT_EQ(dialog.Filter(), "Text\0*.txt\0"s);
}

TEST_F(OpenSaveDlgTest, OpenFillsTheRequestFromTheProperties) {
  dialog.setOwner(77);
  dialog.setDialogTitle("Datei öffnen");
  dialog.setInitDir("/srv/data");
  dialog.setFileName("report.txt");
  dialog.setFilter("Text (*.txt)\0*.txt\0"s);
  show(true);
  const auto& r = lastRequest();
  EXPECT_EQ(r.kind, "GetOpenFileNameA");
  EXPECT_EQ(r.structSize, 76);
  EXPECT_EQ(r.owner, 77);
  EXPECT_EQ(r.title, "Datei öffnen");
  EXPECT_EQ(r.initialDir, "/srv/data");
  EXPECT_EQ(r.filter, "Text (*.txt)\0*.txt\0"s);
  EXPECT_EQ(r.filterIndex, 1);
  EXPECT_EQ(r.file, "report.txt" + std::string(240, '\0'));
  EXPECT_EQ(r.maxFile, 255);
  EXPECT_EQ(r.flags, 0x80000);
}

TEST_F(OpenSaveDlgTest, OpenDlgFalseOpensTheSaveDialog) {
  show(false);
  EXPECT_EQ(lastRequest().kind, "GetSaveFileNameA");
}

TEST_F(OpenSaveDlgTest, ReadOnlySetsTheCheckBoxFlag) {
  dialog.setReadOnly(true);
  show(true);
  EXPECT_EQ(lastRequest().flags, 0x80001);
}

TEST_F(OpenSaveDlgTest, OldStyleIsStoredOnly) {
  dialog.setOldStyle(true);
  EXPECT_TRUE(dialog.OldStyle());
  show(true);
  EXPECT_EQ(lastRequest().flags, 0x80000);
}

TEST_F(OpenSaveDlgTest, AFilterWithSeveralPairsArrivesAsSeveralFilters) {
  dialog.setFilter("Text files (*.txt)\0*.txt\0Pictures\0*.png;*.jpg\0All\0*.*\0\0"s);
  show(true);
  const auto& filters = lastRequest().filters;
  ASSERT_EQ(filters.size(), 3u);
  EXPECT_EQ(filters[0].name, "Text files (*.txt)");
  EXPECT_EQ(filters[0].patterns, std::vector<std::string>{"*.txt"});
  EXPECT_EQ(filters[1].name, "Pictures");
  EXPECT_EQ(filters[1].patterns, (std::vector<std::string>{"*.png", "*.jpg"}));
  EXPECT_EQ(filters[2].patterns, std::vector<std::string>{"*.*"});
}

TEST_F(OpenSaveDlgTest, ADescriptionWithoutPatternIsLeftOut) {
  EXPECT_EQ(parseDialogFilter("Text\0*.txt\0Lonely"s).size(), 1u);
  EXPECT_TRUE(parseDialogFilter("").empty());
}

TEST_F(OpenSaveDlgTest, OkCopiesTheTrimmedPathBack) {
  script().queue(chosen("  /home/anna/Brief an Bob.txt  "));
  EXPECT_TRUE(show(true));
  EXPECT_EQ(dialog.ReturnPath(), "/home/anna/Brief an Bob.txt");
}

TEST_F(OpenSaveDlgTest, AShorterChosenPathLeavesNothingOfTheProposedName) {
  dialog.setFileName("a-rather-long-proposed-name.txt");
  script().queue(chosen("/x"));
  show(false);
  EXPECT_EQ(dialog.ReturnPath(), "/x");
}

TEST_F(OpenSaveDlgTest, AFileNameOfMoreThan250CharactersIsError5) {
  dialog.setFileName(std::string(251, 'a'));
  EXPECT_RUNTIME_ERROR(show(true), 5);
  EXPECT_TRUE(script().requests().empty());
}

TEST_F(OpenSaveDlgTest, AFileNameOf250CharactersFillsTheBuffer) {
  dialog.setFileName(std::string(250, 'a'));
  show(true);
  EXPECT_EQ(lastRequest().file, std::string(250, 'a'));
}

TEST_F(OpenSaveDlgTest, CharactersCountNotBytes) {
  dialog.setFileName(std::string("ä") + std::string(249, 'a'));  // 250 characters, 251 bytes
  show(true);
  EXPECT_EQ(lastRequest().file, std::string("ä") + std::string(249, 'a'));
}

TEST_F(OpenSaveDlgTest, AChosenPathLongerThanTheBufferIsCut) {
  script().queue(chosen("/" + std::string(400, 'p')));
  EXPECT_TRUE(show(true));
  EXPECT_EQ(dialog.ReturnPath(), "/" + std::string(248, 'p'));
}

TEST_F(OpenSaveDlgTest, CancelWithoutCancelErrorReturnsFalseWithAnEmptyPath) {
  script().queue(chosen("/first.txt"));
  show(true);
  script().queue(cancel());
  EXPECT_FALSE(show(true));
  EXPECT_EQ(dialog.ReturnPath(), "");
}

TEST_F(OpenSaveDlgTest, CancelWithCancelErrorRaises18) {
  dialog.setCancelError(true);
  script().queue(cancel());
  EXPECT_RUNTIME_ERROR(show(false), 18);
  EXPECT_EQ(dialog.ReturnPath(), "");
}

TEST_F(OpenSaveDlgTest, AnotherNonZeroResultGivesFalseAndAnEmptyPathWithoutError) {
  dialog.setCancelError(true);
  auto a = chosen("/tmp/x.txt");
  a.result = 2;
  script().queue(a);
  EXPECT_FALSE(show(true));
  EXPECT_EQ(dialog.ReturnPath(), "");
}

TEST_F(OpenSaveDlgTest, ShortFileNameReadsTheShortForm) {
  auto dir = std::filesystem::temp_directory_path() / "corvane_open_save_short";
  std::filesystem::create_directories(dir / "sub");
  std::ofstream(dir / "file.txt") << "x";
  const std::string roundabout = (dir / "sub" / ".." / "file.txt").string();
  script().queue(chosen(roundabout));
  show(true);
  EXPECT_EQ(dialog.ReturnPath(), roundabout);
  dialog.setShortFileName(true);
  EXPECT_EQ(dialog.ReturnPath(), std::filesystem::canonical(dir / "file.txt").string());
  std::filesystem::remove_all(dir);
}

TEST_F(OpenSaveDlgTest, ShortFileNameOfAMissingFileIsEmpty) {
  script().queue(chosen("/no/such/folder/file.txt"));
  show(true);
  dialog.setShortFileName(true);
  EXPECT_EQ(dialog.ReturnPath(), "");
}

TEST_F(OpenSaveDlgTest, ShowByNameGivesTheFlagBack) {
  auto object = ClassRegistry::instance().create("OpenSaveDLG");
  object->let("Filter", Variant("A\0*.a\0B\0*.b\0"s));
  script().queue(chosen("/tmp/b.b"));
  Dispatch::Args args{Variant(false)};
  EXPECT_TRUE(object->invoke("Show", CallType::Method, args).toBool());
  EXPECT_FALSE(args[0].toBool());
  EXPECT_EQ(lastRequest().kind, "GetSaveFileNameA");
  EXPECT_EQ(lastRequest().filters.size(), 2u);
  EXPECT_EQ(object->get("ReturnPath").toString(), "/tmp/b.b");
}

}  // namespace
}  // namespace corvane
