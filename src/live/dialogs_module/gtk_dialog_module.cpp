// SPDX-License-Identifier: MIT
// The live display's dialogs module: GTK's dialogs, and the desktop portal's file chooser where a
// portal answers. GTK is set up when the first dialog is asked for; where it cannot open the
// display, every dialog is cancelled.
#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <algorithm>
#include <cmath>

#include "live/dialog_module.h"
#include "live/dialogs_module/portal_file_chooser.h"

namespace corvane {

namespace {

bool s_started = false;
bool s_usable = false;

// Lets GTK finish what a closed dialog left, so that its window is gone from the screen.
void settle() {
  while (gtk_events_pending()) gtk_main_iteration();
}

// Runs a dialog modal to the owner's real window (when there is one) and gives its response.
int runModal(GtkWidget* dialog, unsigned long owner) {
  gtk_window_set_modal(GTK_WINDOW(dialog), TRUE);
  gtk_widget_realize(dialog);
  GdkDisplay* display = gtk_widget_get_display(dialog);
  if (owner && GDK_IS_X11_DISPLAY(display)) {
    // A window that is gone by now must not end the program: its error is trapped.
    gdk_x11_display_error_trap_push(display);
    GdkWindow* parent = gdk_x11_window_foreign_new_for_display(display, owner);
    if (parent) {
      gdk_window_set_transient_for(gtk_widget_get_window(dialog), parent);
      g_object_unref(parent);
    }
    gdk_x11_display_error_trap_pop_ignored(display);
  }
  return gtk_dialog_run(GTK_DIALOG(dialog));
}

void close(GtkWidget* dialog) {
  gtk_widget_destroy(dialog);
  settle();
}

int32_t channel(double value) { return static_cast<int32_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255)); }

bool gtkStarted() { return s_started; }

bool startGtk() {
  if (!s_started) {
    s_started = true;
    // The program's locale stays as it is (numbers keep their point), and GTK shares the X
    // display our windows are on, so that a dialog can be their transient.
    gtk_disable_setlocale();
    gdk_set_allowed_backends("x11");
    s_usable = gtk_init_check(nullptr, nullptr);
  }
  return s_usable;
}

int32_t chooseColor(CHOOSECOLOR& cc, unsigned long owner) {
  if (!startGtk()) return 0;
  GtkWidget* dialog = gtk_color_chooser_dialog_new("Farbe", nullptr);
  GtkColorChooser* chooser = GTK_COLOR_CHOOSER(dialog);
  gtk_color_chooser_set_use_alpha(chooser, FALSE);
  g_object_set(dialog, "show-editor", (cc.Flags & CC_FULLOPEN) ? TRUE : FALSE, nullptr);
  if (cc.Flags & CC_RGBINIT) {
    GdkRGBA start{(cc.rgbResult & 255) / 255.0, ((cc.rgbResult >> 8) & 255) / 255.0,
                  ((cc.rgbResult >> 16) & 255) / 255.0, 1.0};
    gtk_color_chooser_set_rgba(chooser, &start);
  }
  int32_t result = 0;
  if (runModal(dialog, owner) == GTK_RESPONSE_OK) {
    GdkRGBA chosen;
    gtk_color_chooser_get_rgba(chooser, &chosen);
    cc.rgbResult = RGB(channel(chosen.red), channel(chosen.green), channel(chosen.blue));
    result = 1;
  }
  close(dialog);
  return result;
}

// The portal's file chooser where a portal answers, GTK's otherwise.
int32_t chooseFile(const FileDialogRequest& request, FileDialogAnswer& answer) {
  const bool save = request.kind == FileDialogRequest::Save, folder = request.kind == FileDialogRequest::Folder;
  PortalFileChooser::Request portal{folder ? PortalFileChooser::Folder
                                    : save ? PortalFileChooser::Save
                                           : PortalFileChooser::Open,
                                    request.title,       request.filters,  request.filterIndex,
                                    request.initialDir,  request.proposed, request.owner};
  std::string chosen;
  const int32_t byPortal = PortalFileChooser::choose(portal, chosen);
  if (byPortal >= 0) {
    if (byPortal == 1) answer.path = chosen;
    answer.readOnly = request.readOnly;
    return byPortal;
  }
  if (!startGtk()) return 0;
  GtkWidget* dialog = nullptr;
  if (folder) {
    dialog = gtk_file_chooser_dialog_new("Ordner suchen", nullptr, GTK_FILE_CHOOSER_ACTION_SELECT_FOLDER,
                                         "_Abbrechen", GTK_RESPONSE_CANCEL, "_Auswählen", GTK_RESPONSE_ACCEPT,
                                         nullptr);
    if (!request.title.empty()) {
      // The prompt stands above the folders.
      GtkWidget* prompt = gtk_label_new(request.title.c_str());
      gtk_label_set_xalign(GTK_LABEL(prompt), 0);
      GtkWidget* area = gtk_dialog_get_content_area(GTK_DIALOG(dialog));
      gtk_box_pack_start(GTK_BOX(area), prompt, FALSE, FALSE, 6);
      gtk_box_reorder_child(GTK_BOX(area), prompt, 0);
      gtk_widget_show(prompt);
    }
  } else {
    const std::string title = !request.title.empty() ? request.title : save ? "Speichern unter" : "Öffnen";
    dialog = gtk_file_chooser_dialog_new(
        title.c_str(), nullptr, save ? GTK_FILE_CHOOSER_ACTION_SAVE : GTK_FILE_CHOOSER_ACTION_OPEN,
        "_Abbrechen", GTK_RESPONSE_CANCEL, save ? "_Speichern" : "_Öffnen", GTK_RESPONSE_ACCEPT, nullptr);
    gtk_dialog_set_default_response(GTK_DIALOG(dialog), GTK_RESPONSE_ACCEPT);
  }
  GtkFileChooser* chooser = GTK_FILE_CHOOSER(dialog);
  if (!folder) {
    for (size_t i = 0; i < request.filters.size(); ++i) {
      GtkFileFilter* filter = gtk_file_filter_new();
      gtk_file_filter_set_name(filter, request.filters[i].name.c_str());
      for (const auto& pattern : request.filters[i].patterns) gtk_file_filter_add_pattern(filter, pattern.c_str());
      gtk_file_chooser_add_filter(chooser, filter);  // the chooser takes the filter
      if (static_cast<int32_t>(i) + 1 == request.filterIndex) gtk_file_chooser_set_filter(chooser, filter);
    }
    if (!request.initialDir.empty()) gtk_file_chooser_set_current_folder(chooser, request.initialDir.c_str());
    if (!request.proposed.empty()) {
      if (request.proposed.front() == '/')
        gtk_file_chooser_set_filename(chooser, request.proposed.c_str());
      else if (save)
        gtk_file_chooser_set_current_name(chooser, request.proposed.c_str());
    }
    if (!save) {
      gtk_file_chooser_add_choice(chooser, "readonly", "Schreibgeschützt öffnen", nullptr, nullptr);
      gtk_file_chooser_set_choice(chooser, "readonly", request.readOnly ? "true" : "false");
    }
  }
  int32_t result = 0;
  answer.readOnly = request.readOnly;
  if (runModal(dialog, request.owner) == GTK_RESPONSE_ACCEPT) {
    if (gchar* name = gtk_file_chooser_get_filename(chooser)) {
      answer.path = name;
      g_free(name);
      result = 1;
    }
    if (!save && !folder) {
      const char* readOnly = gtk_file_chooser_get_choice(chooser, "readonly");
      answer.readOnly = readOnly && std::string(readOnly) == "true";
    }
  }
  close(dialog);
  return result;
}

int32_t print(PRINTDLG& pd, unsigned long owner) {
  if (!startGtk()) return 0;
  GtkWidget* dialog = gtk_print_unix_dialog_new("Drucken", nullptr);
  GtkPrintUnixDialog* print = GTK_PRINT_UNIX_DIALOG(dialog);
  GtkPrintSettings* settings = gtk_print_settings_new();
  gtk_print_settings_set_n_copies(settings, std::max(1, pd.nCopies));
  gtk_print_settings_set_collate(settings, (pd.Flags & PD_COLLATE) ? TRUE : FALSE);
  if ((pd.Flags & PD_PAGENUMS) && pd.nFromPage > 0 && pd.nToPage >= pd.nFromPage) {
    GtkPageRange range{pd.nFromPage - 1, pd.nToPage - 1};
    gtk_print_settings_set_print_pages(settings, GTK_PRINT_PAGES_RANGES);
    gtk_print_settings_set_page_ranges(settings, &range, 1);
  }
  gtk_print_unix_dialog_set_settings(print, settings);
  g_object_unref(settings);
  gtk_print_unix_dialog_set_support_selection(print, (pd.Flags & PD_NOSELECTION) ? FALSE : TRUE);
  gtk_print_unix_dialog_set_has_selection(print, (pd.Flags & PD_NOSELECTION) ? FALSE : TRUE);
  int32_t result = 0;
  if (runModal(dialog, owner) == GTK_RESPONSE_OK) {
    GtkPrinter* printer = gtk_print_unix_dialog_get_selected_printer(print);
    GtkPrintSettings* chosen = gtk_print_unix_dialog_get_settings(print);
    int32_t flags = pd.Flags & ~(PD_SELECTION | PD_PAGENUMS | PD_COLLATE | PD_PRINTTOFILE);
    const GtkPrintPages pages = gtk_print_settings_get_print_pages(chosen);
    if (pages == GTK_PRINT_PAGES_SELECTION) flags |= PD_SELECTION;
    if (pages == GTK_PRINT_PAGES_RANGES) {
      gint count = 0;
      if (GtkPageRange* ranges = gtk_print_settings_get_page_ranges(chosen, &count)) {
        if (count > 0) {
          flags |= PD_PAGENUMS;
          pd.nFromPage = ranges[0].start + 1;
          pd.nToPage = ranges[count - 1].end + 1;
        }
        g_free(ranges);
      }
    }
    if (gtk_print_settings_get_collate(chosen)) flags |= PD_COLLATE;
    if (printer && gtk_printer_is_virtual(printer)) flags |= PD_PRINTTOFILE;
    pd.Flags = flags;
    pd.devMode.dmDeviceName = printer ? gtk_printer_get_name(printer) : "";
    pd.devMode.dmCopies = static_cast<int16_t>(std::clamp(gtk_print_settings_get_n_copies(chosen), 1, 32767));
    pd.devMode.dmColor = gtk_print_settings_get_use_color(chosen) ? DMCOLOR_COLOR : 1;
    g_object_unref(chosen);
    result = 1;
  }
  close(dialog);
  return result;
}

int32_t chooseFont(CHOOSEFONT& cf, const std::string& face, unsigned long owner) {
  if (!startGtk()) return 0;
  GtkWidget* dialog = gtk_font_chooser_dialog_new("Schriftart", nullptr);
  GtkFontChooser* chooser = GTK_FONT_CHOOSER(dialog);
  if (!face.empty()) gtk_font_chooser_set_font(chooser, face.c_str());
  // The effects GTK's chooser lacks: underline, strike-out and colour, below the font.
  GtkWidget* underline = gtk_check_button_new_with_mnemonic("_Unterstrichen");
  GtkWidget* strikeOut = gtk_check_button_new_with_mnemonic("_Durchgestrichen");
  GtkWidget* colour = gtk_color_button_new();
  if (cf.Flags & CF_EFFECTS) {
    GtkWidget* row = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 12);
    gtk_box_pack_start(GTK_BOX(row), underline, FALSE, FALSE, 0);
    gtk_box_pack_start(GTK_BOX(row), strikeOut, FALSE, FALSE, 0);
    gtk_box_pack_end(GTK_BOX(row), colour, FALSE, FALSE, 0);
    gtk_box_pack_end(GTK_BOX(row), gtk_label_new("Farbe:"), FALSE, FALSE, 0);
    gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(underline), cf.lf.lfUnderline ? TRUE : FALSE);
    gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(strikeOut), cf.lf.lfStrikeOut ? TRUE : FALSE);
    GdkRGBA start{(cf.rgbColors & 255) / 255.0, ((cf.rgbColors >> 8) & 255) / 255.0,
                  ((cf.rgbColors >> 16) & 255) / 255.0, 1.0};
    gtk_color_chooser_set_rgba(GTK_COLOR_CHOOSER(colour), &start);
    gtk_box_pack_end(GTK_BOX(gtk_dialog_get_content_area(GTK_DIALOG(dialog))), row, FALSE, FALSE, 6);
    gtk_widget_show_all(row);
  }
  int32_t result = 0;
  if (runModal(dialog, owner) == GTK_RESPONSE_OK) {
    if (PangoFontDescription* font = gtk_font_chooser_get_font_desc(chooser)) {
      const char* family = pango_font_description_get_family(font);
      cf.lf = LOGFONT{};
      cf.lf.lfFaceName = family ? std::string(family).substr(0, 31) : std::string();
      cf.lf.lfWeight = static_cast<int32_t>(pango_font_description_get_weight(font));
      const PangoStyle style = pango_font_description_get_style(font);
      cf.lf.lfItalic = style == PANGO_STYLE_NORMAL ? 0 : 1;
      const double points = static_cast<double>(pango_font_description_get_size(font)) / PANGO_SCALE;
      cf.iPointSize = static_cast<int32_t>(std::lround(points * 10));
      cf.lf.lfHeight = -static_cast<int32_t>(std::lround(points * 96 / 72));
      if (cf.Flags & CF_EFFECTS) {
        cf.lf.lfUnderline = gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(underline)) ? 1 : 0;
        cf.lf.lfStrikeOut = gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(strikeOut)) ? 1 : 0;
        GdkRGBA chosen;
        gtk_color_chooser_get_rgba(GTK_COLOR_CHOOSER(colour), &chosen);
        cf.rgbColors = RGB(channel(chosen.red), channel(chosen.green), channel(chosen.blue));
      }
      pango_font_description_free(font);
      result = 1;
    }
  }
  // Widgets never packed (without effects) are not owned by the dialog.
  if (!(cf.Flags & CF_EFFECTS)) {
    for (GtkWidget* w : {underline, strikeOut, colour}) g_object_ref_sink(w), g_object_unref(w);
  }
  close(dialog);
  return result;
}

const DialogModule kFunctions{DialogModule::kVersion, gtkStarted, chooseColor, chooseFile, print, chooseFont};

}  // namespace
}  // namespace corvane

extern "C" __attribute__((visibility("default"))) const corvane::DialogModule* corvane_dialog_module() {
  return &corvane::kFunctions;
}
