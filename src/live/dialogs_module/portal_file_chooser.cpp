// SPDX-License-Identifier: MIT
#include "live/dialogs_module/portal_file_chooser.h"

#include <gio/gio.h>

#include <cstdio>
#include <cstdlib>

namespace corvane {

namespace {

constexpr const char* kPortal = "org.freedesktop.portal.Desktop";
constexpr const char* kPortalPath = "/org/freedesktop/portal/desktop";
constexpr const char* kFileChooser = "org.freedesktop.portal.FileChooser";
constexpr int kCallTimeoutMs = 3000;

// The session bus, when the session names one. Without an address no bus is started for us:
// GLib would otherwise launch one on the X display.
GDBusConnection* sessionBus() {
  if (!std::getenv("DBUS_SESSION_BUS_ADDRESS")) return nullptr;
  GError* error = nullptr;
  GDBusConnection* bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, &error);
  if (error) g_error_free(error);
  return bus;
}

// The file chooser's version, 0 when no portal offers it. Asking starts a portal that the bus
// can start.
uint32_t fileChooserVersion(GDBusConnection* bus) {
  GError* error = nullptr;
  GVariant* reply =
      g_dbus_connection_call_sync(bus, kPortal, kPortalPath, "org.freedesktop.DBus.Properties", "Get",
                                  g_variant_new("(ss)", kFileChooser, "version"), G_VARIANT_TYPE("(v)"),
                                  G_DBUS_CALL_FLAGS_NONE, kCallTimeoutMs, nullptr, &error);
  if (!reply) {
    g_error_free(error);
    return 0;
  }
  GVariant* inner = nullptr;
  g_variant_get(reply, "(v)", &inner);
  uint32_t version = g_variant_is_of_type(inner, G_VARIANT_TYPE_UINT32) ? g_variant_get_uint32(inner) : 0;
  g_variant_unref(inner);
  g_variant_unref(reply);
  return version;
}

GVariant* filterVariant(const FileFilter& filter) {
  GVariantBuilder patterns;
  g_variant_builder_init(&patterns, G_VARIANT_TYPE("a(us)"));
  for (const auto& p : filter.patterns) g_variant_builder_add(&patterns, "(us)", 0u, p.c_str());
  return g_variant_new("(sa(us))", filter.name.c_str(), &patterns);
}

// A path as the portal takes it: bytes with their NUL.
GVariant* pathBytes(const std::string& path) { return g_variant_new_bytestring(path.c_str()); }

struct Wait {
  bool done = false;
  uint32_t response = 2;
  std::string path;
};

void onResponse(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*,
                GVariant* parameters, gpointer data) {
  auto* wait = static_cast<Wait*>(data);
  GVariant* results = nullptr;
  g_variant_get(parameters, "(u@a{sv})", &wait->response, &results);
  const gchar** uris = nullptr;
  if (results && g_variant_lookup(results, "uris", "^a&s", &uris) && uris && uris[0]) {
    if (gchar* file = g_filename_from_uri(uris[0], nullptr, nullptr)) {
      wait->path = file;
      g_free(file);
    }
  }
  g_free(uris);
  if (results) g_variant_unref(results);
  wait->done = true;
}

}  // namespace

int32_t PortalFileChooser::choose(const Request& request, std::string& path) {
  GDBusConnection* bus = sessionBus();
  if (!bus) return -1;
  const uint32_t version = fileChooserVersion(bus);
  if (version == 0 || (request.kind == Folder && version < 3)) {
    g_object_unref(bus);
    return -1;
  }

  // The answer comes as a signal on a request object whose path the sender's name and a token
  // of ours make; it is listened for before the call, so that no answer is missed.
  static unsigned counter = 0;
  char token[32];
  std::snprintf(token, sizeof token, "corvane%u", ++counter);
  std::string sender = g_dbus_connection_get_unique_name(bus) + 1;  // without the ':'
  for (char& c : sender)
    if (c == '.') c = '_';
  const std::string handle = std::string(kPortalPath) + "/request/" + sender + "/" + token;
  Wait wait;
  const guint subscription = g_dbus_connection_signal_subscribe(
      bus, kPortal, "org.freedesktop.portal.Request", "Response", handle.c_str(), nullptr,
      G_DBUS_SIGNAL_FLAGS_NONE, onResponse, &wait, nullptr);

  GVariantBuilder options;
  g_variant_builder_init(&options, G_VARIANT_TYPE_VARDICT);
  g_variant_builder_add(&options, "{sv}", "handle_token", g_variant_new_string(token));
  g_variant_builder_add(&options, "{sv}", "modal", g_variant_new_boolean(TRUE));
  if (request.kind == Folder)
    g_variant_builder_add(&options, "{sv}", "directory", g_variant_new_boolean(TRUE));
  if (!request.filters.empty()) {
    GVariantBuilder filters;
    g_variant_builder_init(&filters, G_VARIANT_TYPE("a(sa(us))"));
    for (const auto& f : request.filters) g_variant_builder_add_value(&filters, filterVariant(f));
    g_variant_builder_add(&options, "{sv}", "filters", g_variant_builder_end(&filters));
    if (request.filterIndex >= 1 && request.filterIndex <= static_cast<int32_t>(request.filters.size()))
      g_variant_builder_add(&options, "{sv}", "current_filter",
                            filterVariant(request.filters[request.filterIndex - 1]));
  }
  if (!request.initialDir.empty())
    g_variant_builder_add(&options, "{sv}", "current_folder", pathBytes(request.initialDir));
  if (request.kind == Save && !request.proposed.empty()) {
    if (request.proposed.front() == '/')
      g_variant_builder_add(&options, "{sv}", "current_file", pathBytes(request.proposed));
    else
      g_variant_builder_add(&options, "{sv}", "current_name", g_variant_new_string(request.proposed.c_str()));
  }
  char parent[32] = "";
  if (request.owner) std::snprintf(parent, sizeof parent, "x11:%lx", request.owner);
  const std::string title = !request.title.empty()   ? request.title
                            : request.kind == Save   ? "Speichern unter"
                            : request.kind == Folder ? "Ordner suchen"
                                                     : "Öffnen";

  GError* error = nullptr;
  GVariant* reply = g_dbus_connection_call_sync(
      bus, kPortal, kPortalPath, kFileChooser, request.kind == Save ? "SaveFile" : "OpenFile",
      g_variant_new("(ssa{sv})", parent, title.c_str(), &options), G_VARIANT_TYPE("(o)"),
      G_DBUS_CALL_FLAGS_NONE, kCallTimeoutMs, nullptr, &error);
  int32_t result = -1;
  if (reply) {
    g_variant_unref(reply);
    // The user takes as long as the user takes: the dialog is modal.
    while (!wait.done) g_main_context_iteration(nullptr, TRUE);
    result = wait.response == 0 && !wait.path.empty() ? 1 : wait.response == 2 ? -1 : 0;
    if (result == 1) path = wait.path;
  } else {
    g_error_free(error);
  }
  g_dbus_connection_signal_unsubscribe(bus, subscription);
  g_object_unref(bus);
  return result;
}

}  // namespace corvane
