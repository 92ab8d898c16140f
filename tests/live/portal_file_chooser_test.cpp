// SPDX-License-Identifier: MIT
// The portal path of the file dialogs, against a stand-in for the desktop portal on a private
// session bus: the request that reaches the bus, and the answer that comes back to ReturnPath.
// The real portal does not run under Xvfb; this checks our side of the protocol.
#include <corvane/app/application.h>
#include <corvane/system/open_save_dlg.h>
#include <gio/gio.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <atomic>
#include <cstdlib>
#include <string>
#include <thread>

#include "live/x_probe.h"

namespace corvane {
namespace {

using namespace std::string_literals;

const char* kIntrospection =
    "<node><interface name='org.freedesktop.portal.FileChooser'>"
    "<method name='OpenFile'><arg type='s' direction='in'/><arg type='s' direction='in'/>"
    "<arg type='a{sv}' direction='in'/><arg type='o' direction='out'/></method>"
    "<method name='SaveFile'><arg type='s' direction='in'/><arg type='s' direction='in'/>"
    "<arg type='a{sv}' direction='in'/><arg type='o' direction='out'/></method>"
    "<property name='version' type='u' access='read'/></interface></node>";

// What the stand-in was asked, and what it answers.
struct StandIn {
  std::string method, title, firstFilter, folder;
  int filters = 0;
  std::string answerUri;
  uint32_t response = 0;
  std::atomic<bool> ready{false}, stop{false};
};

void onCall(GDBusConnection* bus, const gchar* sender, const gchar*, const gchar*, const gchar* method,
            GVariant* parameters, GDBusMethodInvocation* invocation, gpointer data) {
  auto* s = static_cast<StandIn*>(data);
  const gchar *parent = nullptr, *title = nullptr;
  GVariant* options = nullptr;
  g_variant_get(parameters, "(&s&s@a{sv})", &parent, &title, &options);
  s->method = method;
  s->title = title;
  const gchar* token = "none";
  g_variant_lookup(options, "handle_token", "&s", &token);
  if (GVariant* filters = g_variant_lookup_value(options, "filters", G_VARIANT_TYPE("a(sa(us))"))) {
    s->filters = static_cast<int>(g_variant_n_children(filters));
    const gchar* name = nullptr;
    g_variant_get_child(filters, 0, "(&s@a(us))", &name, nullptr);
    s->firstFilter = name;
    g_variant_unref(filters);
  }
  if (GVariant* folder = g_variant_lookup_value(options, "current_folder", G_VARIANT_TYPE_BYTESTRING)) {
    s->folder = g_variant_get_bytestring(folder);
    g_variant_unref(folder);
  }
  g_variant_unref(options);
  std::string name = sender + 1;
  for (char& c : name)
    if (c == '.') c = '_';
  const std::string handle = "/org/freedesktop/portal/desktop/request/" + name + "/" + token;
  g_dbus_method_invocation_return_value(invocation, g_variant_new("(o)", handle.c_str()));
  GVariantBuilder results;
  g_variant_builder_init(&results, G_VARIANT_TYPE_VARDICT);
  const gchar* uris[] = {s->answerUri.c_str(), nullptr};
  g_variant_builder_add(&results, "{sv}", "uris", g_variant_new_strv(uris, 1));
  g_dbus_connection_emit_signal(bus, sender, handle.c_str(), "org.freedesktop.portal.Request", "Response",
                                g_variant_new("(ua{sv})", s->response, &results), nullptr);
}

GVariant* onProperty(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GError**,
                     gpointer) {
  return g_variant_new_uint32(3);
}

// Runs the stand-in on its own thread and main context, on the bus at address.
void serve(const std::string& address, StandIn& s) {
  GMainContext* context = g_main_context_new();
  g_main_context_push_thread_default(context);
  GDBusConnection* bus = g_dbus_connection_new_for_address_sync(
      address.c_str(),
      GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                           G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
      nullptr, nullptr, nullptr);
  if (bus) {
    GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(kIntrospection, nullptr);
    GDBusInterfaceVTable table{onCall, onProperty, nullptr, {}};
    g_dbus_connection_register_object(bus, "/org/freedesktop/portal/desktop", node->interfaces[0], &table, &s,
                                      nullptr, nullptr);
    GVariant* owned = g_dbus_connection_call_sync(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                  "org.freedesktop.DBus", "RequestName",
                                                  g_variant_new("(su)", "org.freedesktop.portal.Desktop", 4u),
                                                  nullptr, G_DBUS_CALL_FLAGS_NONE, 2000, nullptr, nullptr);
    if (owned) g_variant_unref(owned);
    s.ready = true;
    while (!s.stop) g_main_context_iteration(context, FALSE), std::this_thread::yield();
    g_dbus_node_info_unref(node);
    g_object_unref(bus);
  }
  s.ready = true;
  g_main_context_pop_thread_default(context);
  g_main_context_unref(context);
}

TEST(PortalFileChooserTest, AnOpenDialogGoesToThePortalAndItsAnswerReachesReturnPath) {
  if (!std::getenv("DISPLAY")) GTEST_SKIP() << "no X display (run under xvfb-run)";
  if (!live_test::haveProgram("dbus-daemon")) GTEST_SKIP() << "dbus-daemon is needed";
  // A private session bus of this test, ended by its process id at the end.
  std::string out = live_test::runCommand("dbus-daemon --session --fork --print-address=1 --print-pid=1");
  const size_t newline = out.find('\n');
  ASSERT_NE(newline, std::string::npos) << out;
  const std::string address = out.substr(0, newline);
  const int pid = std::atoi(out.c_str() + newline + 1);
  ASSERT_GT(pid, 0) << out;
  setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);

  StandIn standIn;
  standIn.answerUri = "file:///tmp/Gew%C3%A4hlt%20hier.txt";
  std::thread server(serve, address, std::ref(standIn));
  while (!standIn.ready) std::this_thread::yield();

  Application::Options o;
  o.display = Application::DisplayKind::Live;
  Application app(o);
  OpenSaveDLG dialog;
  dialog.setDialogTitle("Portal");
  dialog.setInitDir("/srv");
  dialog.setFilter("Text\0*.txt\0Alle\0*\0"s);
  bool open = true;
  EXPECT_TRUE(dialog.Show(open));
  EXPECT_EQ(dialog.ReturnPath(), "/tmp/Gewählt hier.txt");
  EXPECT_EQ(standIn.method, "OpenFile");
  EXPECT_EQ(standIn.title, "Portal");
  EXPECT_EQ(standIn.filters, 2);
  EXPECT_EQ(standIn.firstFilter, "Text");
  EXPECT_EQ(standIn.folder, "/srv");

  // A cancel in the portal's dialog is a cancel, with CancelError the error 18.
  standIn.response = 1;
  dialog.setCancelError(true);
  open = false;
  int32_t number = 0;
  try {
    dialog.Show(open);
  } catch (const RuntimeError& e) {
    number = e.number();
  }
  EXPECT_EQ(number, 18);
  EXPECT_EQ(standIn.method, "SaveFile");

  standIn.stop = true;
  server.join();
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
  kill(pid, SIGTERM);
}

}  // namespace
}  // namespace corvane
