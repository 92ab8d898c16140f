// SPDX-License-Identifier: MIT
#pragma once

// The whole public API of the library.
#include <corvane/export.h>
#include <corvane/version.h>

#include <corvane/runtime/array2d_object.h>
#include <corvane/runtime/array_object.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/class_registry.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/datetime.h>
#include <corvane/runtime/error_handler.h>
#include <corvane/runtime/event.h>
#include <corvane/runtime/format.h>
#include <corvane/runtime/guard.h>
#include <corvane/runtime/indexed_text.h>
#include <corvane/runtime/object.h>
#include <corvane/runtime/runtime_error.h>
#include <corvane/runtime/strings.h>
#include <corvane/runtime/utf8.h>
#include <corvane/runtime/val.h>
#include <corvane/runtime/variant.h>
#include <corvane/runtime/vb_array.h>
#include <corvane/runtime/win1252.h>

#include <corvane/platform/api.h>
#include <corvane/platform/dialogs.h>
#include <corvane/platform/message_memory.h>
#include <corvane/platform/platform.h>
#include <corvane/platform/types.h>

#include <corvane/host/control_collection.h>
#include <corvane/host/extender.h>
#include <corvane/host/form.h>
#include <corvane/host/form_file.h>
#include <corvane/host/label.h>
#include <corvane/host/text_box.h>
#include <corvane/host/hosted_control.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/property_page.h>
#include <corvane/host/scroll_bar.h>
#include <corvane/host/property_bag.h>
#include <corvane/host/screen.h>
#include <corvane/host/std_font.h>
#include <corvane/host/std_picture.h>
#include <corvane/host/surface.h>

#include <corvane/frame/control_base.h>
#include <corvane/frame/global.h>
#include <corvane/frame/gradient.h>
#include <corvane/frame/isubclass.h>
#include <corvane/frame/msubclass.h>
#include <corvane/frame/subclass.h>
#include <corvane/frame/tile_picture.h>

#include <corvane/containers/vex_frame.h>
#include <corvane/containers/vex_frame_box.h>
#include <corvane/containers/vex_frame_button.h>
#include <corvane/containers/frame_settings.h>
#include <corvane/containers/frame_box_settings.h>
#include <corvane/containers/vex_l_frame.h>
#include <corvane/containers/vex_l_pane.h>
#include <corvane/containers/vex_pane.h>

#include <corvane/notify/frm_alert.h>
#include <corvane/notify/vex_alert.h>
#include <corvane/notify/c_mini_alert.h>

#include <corvane/html/html_chunk.h>
#include <corvane/html/html_decode.h>
#include <corvane/html/html_document.h>
#include <corvane/html/html_dump.h>
#include <corvane/html/html_hover_runs.h>
#include <corvane/html/html_layout.h>
#include <corvane/html/html_source.h>
#include <corvane/html/html_tag_reader.h>
#include <corvane/html/html_tags.h>
#include <corvane/html/html_tokenizer.h>
#include <corvane/html/html_tree.h>
#include <corvane/html/vex_html.h>
#include <corvane/html/caption_page.h>

#include <corvane/system/mdf.h>
#include <corvane/system/my_tools.h>
#include <corvane/system/reg_settings.h>
#include <corvane/system/color_view_dlg.h>
#include <corvane/system/open_save_dlg.h>
#include <corvane/system/browse_folder_dlg.h>
#include <corvane/system/print_view_dlg.h>
#include <corvane/system/font_view_dlg.h>
#include <corvane/system/form_min_max.h>

#include <corvane/widgets/painted_label.h>
#include <corvane/widgets/vex_check.h>
#include <corvane/widgets/vex_color_label.h>
#include <corvane/widgets/vex_hover_pic.h>
#include <corvane/widgets/vex_info_panel.h>
#include <corvane/widgets/vex_info_panel_light.h>
#include <corvane/widgets/vex_splitter.h>
#include <corvane/widgets/vex_line_hover.h>
#include <corvane/widgets/vex_progress.h>
#include <corvane/widgets/vex_snip.h>

#include <corvane/notify/balloon_window.h>
#include <corvane/notify/mini_balloon.h>
#include <corvane/notify/vex_balloon.h>
#include <corvane/msgbox/ex_msg_box_style.h>
#include <corvane/msgbox/ex_send_methode.h>
#include <corvane/msgbox/frm_msg_box_ie.h>
#include <corvane/msgbox/msg.h>
#include <corvane/runtime/msg_box_result.h>
#include <corvane/msgbox/msg_button.h>
#include <corvane/msgbox/msg_timer.h>
#include <corvane/platform/modal_loop.h>
#include <corvane/platform/shell.h>

#include <corvane/app/application.h>
#include <corvane/app/headless_display.h>
