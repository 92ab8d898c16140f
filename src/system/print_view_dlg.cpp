// SPDX-License-Identifier: MIT
#include <corvane/platform/api.h>
#include <corvane/system/print_view_dlg.h>

namespace corvane {

int32_t PrintViewDLG::dialogFlags() const {
  int32_t flags = 0;
  if (m_DisablePntToFile) flags = PD_DISABLEPRINTTOFILE;
  if (m_HidePntToFile) flags = PD_HIDEPRINTTOFILE;  // replaces the disable flag
  if (m_DisableSelection) flags += PD_NOSELECTION;
  if (m_PrintToFile) flags += PD_PRINTTOFILE;
  if (m_NoPageNums) flags += PD_NOPAGENUMS;
  if (m_Sort) flags += PD_COLLATE;
  if (m_PageNums) flags += PD_PAGENUMS;
  return flags + PD_RETURNDC;  // PrintALL adds nothing
}

bool PrintViewDLG::Show() {
  PRINTDLG pd;
  pd.lStructSize = 66;
  pd.hwndOwner = m_Owner;
  pd.Flags = dialogFlags();
  pd.nFromPage = m_FromPage;
  pd.nToPage = m_ToPage;
  pd.nMinPage = 0;
  pd.nMaxPage = m_MaxPage;
  pd.nCopies = m_Copies;
  m_PrintCancel = true;
  if (dlg().PrintDlgA(pd)) {
    const DEVMODE mode = pd.devMode;
    m_PrintToFile = pd.Flags & PD_PRINTTOFILE;
    m_Sort = pd.Flags & PD_COLLATE;
    if (pd.Flags & PD_PAGENUMS) {
      m_FromPage = pd.nFromPage;
      m_ToPage = pd.nToPage;
      m_PrintALL = false;
    } else {
      m_PrintALL = true;
    }
    m_PrinthDC = pd.hDC;
    m_PrintCancel = false;
    if (pd.Flags & PD_SELECTION) m_DisableSelection = true;
    // The device name is a field of 32 characters.
    m_PrinterName = bufferText(mode.dmDeviceName).substr(0, 32);
    m_PrintColors = mode.dmColor == DMCOLOR_COLOR;
    m_Copies = mode.dmCopies;
    m_MaxPage = pd.nMaxPage;
  }
  return false;  // a host reads PrintCancel
}

const Dispatch* PrintViewDLG::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    using P = PrintViewDLG;
    DispatchBuilder<P>(t)
        .get("PrinterName", &P::PrinterName)
        .get("PrinthDC", &P::PrinthDC)
        .get("PrintCancel", &P::PrintCancel)
        .get("PrintColors", &P::PrintColors)
        .prop("ToPage", &P::ToPage, &P::setToPage)
        .prop("FromPage", &P::FromPage, &P::setFromPage)
        .prop("MaxPage", &P::MaxPage, &P::setMaxPage)
        .prop("Copies", &P::Copies, &P::setCopies)
        .prop("DisablePntToFile", &P::DisablePntToFile, &P::setDisablePntToFile)
        .prop("HidePntToFile", &P::HidePntToFile, &P::setHidePntToFile)
        .prop("DisableSelection", &P::DisableSelection, &P::setDisableSelection)
        .prop("Sort", &P::Sort, &P::setSort)
        .prop("PrintALL", &P::PrintALL, &P::setPrintALL)
        .prop("NoPageNums", &P::NoPageNums, &P::setNoPageNums)
        .prop("PageNums", &P::PageNums, &P::setPageNums)
        .prop("PrintToFile", &P::PrintToFile, &P::setPrintToFile)
        .method("Show", [](P& o, Dispatch::Args&) { return o.Show(); })
        .prop("Owner", &P::Owner, &P::setOwner);
    return t;
  }();
  return &d;
}

}  // namespace corvane
