// SPDX-License-Identifier: MIT
// The factories of the classes built so far. The registry asks for them once, at its first use;
// a class of the table without a factory here is reported as not available in this build.
#include <memory>

#include <corvane/containers/vex_frame.h>
#include <corvane/containers/vex_frame_box.h>
#include <corvane/containers/vex_frame_button.h>
#include <corvane/containers/frame_settings.h>
#include <corvane/containers/frame_box_settings.h>
#include <corvane/containers/vex_l_frame.h>
#include <corvane/containers/vex_l_pane.h>
#include <corvane/containers/vex_pane.h>
#include <corvane/frame/gradient.h>
#include <corvane/frame/isubclass.h>
#include <corvane/frame/subclass.h>
#include <corvane/frame/tile_picture.h>
#include <corvane/html/vex_html.h>
#include <corvane/html/caption_page.h>
#include <corvane/host/std_picture.h>
#include <corvane/msgbox/msg.h>
#include <corvane/runtime/class_registry.h>
#include <corvane/system/mdf.h>
#include <corvane/system/my_tools.h>
#include <corvane/system/reg_settings.h>
#include <corvane/system/color_view_dlg.h>
#include <corvane/system/open_save_dlg.h>
#include <corvane/system/browse_folder_dlg.h>
#include <corvane/system/print_view_dlg.h>
#include <corvane/system/font_view_dlg.h>
#include <corvane/system/form_min_max.h>
#include <corvane/widgets/vex_check.h>
#include <corvane/widgets/vex_color_label.h>
#include <corvane/widgets/vex_hover_pic.h>
#include <corvane/widgets/vex_info_panel.h>
#include <corvane/widgets/vex_info_panel_light.h>
#include <corvane/widgets/vex_splitter.h>
#include <corvane/widgets/vex_line_hover.h>
#include <corvane/widgets/vex_progress.h>
#include <corvane/widgets/vex_snip.h>
#include <corvane/notify/mini_balloon.h>
#include <corvane/notify/vex_balloon.h>
#include <corvane/notify/c_mini_alert.h>
#include <corvane/notify/vex_alert.h>

namespace corvane {

void registerLibraryClasses(ClassRegistry& registry) {
  registry.registerFactory("VexColorLabel", [] { return std::make_shared<VexColorLabel>(); });
  registry.registerFactory("VexHoverPic", [] { return std::make_shared<VexHoverPic>(); });
  registry.registerFactory("VexInfoPanel", [] { return std::make_shared<VexInfoPanel>(); });
  registry.registerFactory("VexInfoPanelLight", [] { return std::make_shared<VexInfoPanelLight>(); });
  registry.registerFactory("VexSplitter", [] { return std::make_shared<VexSplitter>(); });
  registry.registerFactory("VexLineHover", [] { return std::make_shared<VexLineHover>(); });
  registry.registerFactory("VexCheck", [] { return std::make_shared<VexCheck>(); });
  registry.registerFactory("VexProgress", [] { return std::make_shared<VexProgress>(); });
  registry.registerFactory("VexSnip", [] { return std::make_shared<VexSnip>(); });
  registry.registerFactory("CGradient", [] { return std::make_shared<CGradient>(); });
  registry.registerFactory("clsTilePicture", [] { return std::make_shared<clsTilePicture>(); });
  registry.registerFactory("clsSubClass", [] { return std::make_shared<clsSubClass>(); });
  registry.registerFactory("ISubclass", [] { return std::make_shared<ISubclass>(); });
  registry.registerFactory("VexPane", [] { return std::make_shared<VexPane>(); });
  registry.registerFactory("VexFrame", [] { return std::make_shared<VexFrame>(); });
  registry.registerFactory("VexFrameBox", [] { return std::make_shared<VexFrameBox>(); });
  registry.registerFactory("VexFrameButton", [] { return std::make_shared<VexFrameButton>(); });
  registry.registerFactory("FrameSettings", [] { return std::make_shared<FrameSettings>(); });
  registry.registerFactory("FrameBoxSettings", [] { return std::make_shared<FrameBoxSettings>(); });
  registry.registerFactory("VexLFrame", [] { return std::make_shared<VexLFrame>(); });
  registry.registerFactory("VexLPane", [] { return std::make_shared<VexLPane>(); });
  registry.registerFactory("VexHTML", [] { return std::make_shared<VexHTML>(); });
  registry.registerFactory("Caption", [] { return std::make_shared<CaptionPage>(); });
  registry.registerFactory("cRegSettings", [] { return std::make_shared<cRegSettings>(); });
  registry.registerFactory("cMyTools", [] { return std::make_shared<cMyTools>(); });
  registry.registerFactory("cMDF", [] { return std::make_shared<cMDF>(); });
  registry.registerFactory("ColorViewDLG", [] { return std::make_shared<ColorViewDLG>(); });
  registry.registerFactory("OpenSaveDLG", [] { return std::make_shared<OpenSaveDLG>(); });
  registry.registerFactory("BrowseFolderDLG", [] { return std::make_shared<BrowseFolderDLG>(); });
  registry.registerFactory("PrintViewDLG", [] { return std::make_shared<PrintViewDLG>(); });
  registry.registerFactory("FontViewDLG", [] { return std::make_shared<FontViewDLG>(); });
  registry.registerFactory("cFormMinMax", [] { return std::make_shared<cFormMinMax>(); });
  registry.registerFactory("msg", [] { return std::make_shared<Msg>(); });
  registry.registerFactory("VexAlert", [] { return std::make_shared<VexAlert>(); });
  registry.registerFactory("cMiniAlert", [] { return std::make_shared<cMiniAlert>(); });

  // Enumerations under the names of the interface; the C++ members carry a prefix.
  registry.registerEnum("BorderType", {{"None", VexPane::btNone},
                                       {"Flat", VexPane::btFlat},
                                       {"Frame", VexPane::btFrame},
                                       {"Inset", VexPane::btInset},
                                       {"Raised", VexPane::btRaised},
                                       {"CrossSingle", VexPane::btCrossSingle},
                                       {"CrossFull", VexPane::btCrossFull},
                                       {"HeadLines", VexPane::btHeadLines}});
  registry.registerEnum("Checker", {{"Haken", Haken}, {"HakenWing", HakenWing}, {"Kreuz", Kreuz}, {"Kreis", Kreis},
                                    {"Dreieck", Dreieck}});
  registry.registerEnum("State", {{"Unchecked", Unchecked}, {"Checked", Checked}, {"Mixed", Mixed}});
  registry.registerEnum("CapHoverMode", {{"OnlyColor", OnlyColor},
                                         {"ColorUnderline", ColorUnderline},
                                         {"OnlyUnderline", OnlyUnderline},
                                         {"Deactivate", Deactivate}});
  registry.registerEnum("PictureTypeConstants", {{"vbPicTypeNone", StdPicture::vbPicTypeNone},
                                                 {"vbPicTypeBitmap", StdPicture::vbPicTypeBitmap},
                                                 {"vbPicTypeIcon", StdPicture::vbPicTypeIcon}});
  registry.registerEnum("enSplitterDir", {{"sdVertical", sdVertical}, {"sdHorizontal", sdHorizontal}});
  registry.registerFactory("VexBalloon", [] { return std::make_shared<VexBalloon>(); });
  registry.registerFactory("cMiniBalloon", [] { return std::make_shared<cMiniBalloon>(); });
  registry.registerEnum("IconType", {{"vbNone", vbNone},
                                     {"vbCritical", vbCritical},
                                     {"vbExclamation", vbExclamation},
                                     {"vbInformation", vbInformation},
                                     {"vbFullContact", vbFullContact}});
}

}  // namespace corvane
