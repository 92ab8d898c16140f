// SPDX-License-Identifier: MIT
#include <corvane/runtime/class_registry.h>
#include <corvane/system/print_view_dlg.h>
#include <gtest/gtest.h>

#include "system/dialog_test_support.h"

namespace corvane {
namespace {

class PrintViewDlgTest : public test::DialogTest {
 protected:
  int32_t requestedFlags() {
    dialog.Show();
    return lastRequest().flags;
  }
  ScriptedDialogs::Answer printed(int32_t flags) {
    auto a = ok();
    a.printFlags = flags;
    a.devMode.dmDeviceName = "Laser Büro";
    a.devMode.dmCopies = 3;
    a.devMode.dmColor = 2;
    a.printDC = 555;
    a.fromPage = 4;
    a.toPage = 9;
    a.maxPage = 20;
    return a;
  }
  PrintViewDLG dialog;
};

TEST_F(PrintViewDlgTest, ShowFillsTheRequestFromTheProperties) {
  dialog.setOwner(31);
  dialog.setFromPage(2);
  dialog.setToPage(5);
  dialog.setMaxPage(10);
  dialog.setCopies(4);
  dialog.Show();
  const auto& r = lastRequest();
  EXPECT_EQ(r.kind, "PrintDlgA");
  EXPECT_EQ(r.structSize, 66);
  EXPECT_EQ(r.owner, 31);
  EXPECT_EQ(r.fromPage, 2);
  EXPECT_EQ(r.toPage, 5);
  EXPECT_EQ(r.minPage, 0);
  EXPECT_EQ(r.maxPage, 10);
  EXPECT_EQ(r.copies, 4);
  EXPECT_EQ(r.flags, 0x100);  // always a device context
}

TEST_F(PrintViewDlgTest, EachOptionAddsItsFlag) {
  dialog.setDisablePntToFile(true);
  EXPECT_EQ(requestedFlags(), 0x80000 + 0x100);
  dialog.setDisablePntToFile(false);
  dialog.setDisableSelection(true);
  EXPECT_EQ(requestedFlags(), 4 + 0x100);
  dialog.setDisableSelection(false);
  dialog.setPrintToFile(true);
  EXPECT_EQ(requestedFlags(), 32 + 0x100);
  dialog.setPrintToFile(false);
  dialog.setNoPageNums(true);
  EXPECT_EQ(requestedFlags(), 8 + 0x100);
  dialog.setNoPageNums(false);
  dialog.setSort(true);
  EXPECT_EQ(requestedFlags(), 16 + 0x100);
  dialog.setSort(false);
  dialog.setPageNums(true);
  EXPECT_EQ(requestedFlags(), 2 + 0x100);
  dialog.setPageNums(false);
  dialog.setPrintALL(true);
  EXPECT_EQ(requestedFlags(), 0x100);
}

TEST_F(PrintViewDlgTest, HidePrintToFileReplacesDisable) {
  dialog.setDisablePntToFile(true);
  dialog.setHidePntToFile(true);
  dialog.setSort(true);
  EXPECT_EQ(requestedFlags(), 0x100000 + 16 + 0x100);
}

TEST_F(PrintViewDlgTest, ShowGivesFalseEvenOnOk) {
  script().queue(printed(0));
  EXPECT_FALSE(dialog.Show());
  EXPECT_FALSE(dialog.PrintCancel());
}

TEST_F(PrintViewDlgTest, PrintCancelIsTrueUntilOk) {
  EXPECT_TRUE(dialog.PrintCancel());
  script().queue(printed(0));
  dialog.Show();
  EXPECT_FALSE(dialog.PrintCancel());
  script().queue(cancel());
  dialog.Show();
  EXPECT_TRUE(dialog.PrintCancel());
}

TEST_F(PrintViewDlgTest, OkWithPageNumbersCopiesTheRange) {
  dialog.setPrintALL(true);
  script().queue(printed(PD_PAGENUMS | PD_COLLATE | PD_PRINTTOFILE));
  dialog.Show();
  EXPECT_EQ(dialog.FromPage(), 4);
  EXPECT_EQ(dialog.ToPage(), 9);
  EXPECT_FALSE(dialog.PrintALL());
  EXPECT_TRUE(dialog.Sort());
  EXPECT_TRUE(dialog.PrintToFile());
  EXPECT_EQ(dialog.PrinthDC(), 555);
  EXPECT_EQ(dialog.PrinterName(), "Laser Büro");
  EXPECT_TRUE(dialog.PrintColors());
  EXPECT_EQ(dialog.Copies(), 3);
  EXPECT_EQ(dialog.MaxPage(), 20);
}

TEST_F(PrintViewDlgTest, OkWithoutPageNumbersMeansAllAndKeepsTheRange) {
  dialog.setFromPage(1);
  dialog.setToPage(2);
  dialog.setSort(true);
  dialog.setPrintToFile(true);
  script().queue(printed(0));
  dialog.Show();
  EXPECT_TRUE(dialog.PrintALL());
  EXPECT_EQ(dialog.FromPage(), 1);
  EXPECT_EQ(dialog.ToPage(), 2);
  EXPECT_FALSE(dialog.Sort());
  EXPECT_FALSE(dialog.PrintToFile());
}

TEST_F(PrintViewDlgTest, TheSelectionFlagSetsDisableSelection) {
  script().queue(printed(PD_SELECTION));
  dialog.Show();
  EXPECT_TRUE(dialog.DisableSelection());
}

TEST_F(PrintViewDlgTest, AMonochromeDeviceIsNoColourPrinter) {
  auto a = printed(0);
  a.devMode.dmColor = 1;
  script().queue(a);
  dialog.Show();
  EXPECT_FALSE(dialog.PrintColors());
}

TEST_F(PrintViewDlgTest, ThePrinterNameIsAFieldOf32Characters) {
  auto a = printed(0);
  a.devMode.dmDeviceName = std::string(40, 'P');
  script().queue(a);
  dialog.Show();
  EXPECT_EQ(dialog.PrinterName(), std::string(32, 'P'));
}

TEST_F(PrintViewDlgTest, CancelChangesNoResult) {
  dialog.setFromPage(3);
  dialog.setCopies(2);
  script().queue(cancel());
  EXPECT_FALSE(dialog.Show());
  EXPECT_EQ(dialog.FromPage(), 3);
  EXPECT_EQ(dialog.Copies(), 2);
  EXPECT_EQ(dialog.PrinterName(), "");
  EXPECT_EQ(dialog.PrinthDC(), 0);
}

TEST_F(PrintViewDlgTest, MembersAreReachableByName) {
  auto object = ClassRegistry::instance().create("PrintViewDLG");
  object->let("HidePntToFile", Variant(true));
  script().queue(printed(0));
  EXPECT_FALSE(object->call("Show").toBool());
  EXPECT_FALSE(object->get("PrintCancel").toBool());
  EXPECT_EQ(object->get("Copies").toLong(), 3);
  EXPECT_EQ(lastRequest().flags, 0x100000 + 0x100);
}

}  // namespace
}  // namespace corvane
