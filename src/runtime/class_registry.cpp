// SPDX-License-Identifier: MIT
#include <corvane/runtime/class_registry.h>

#include <stdexcept>

#include <corvane/runtime/component_object.h>
#include <corvane/runtime/runtime_error.h>

namespace corvane {

namespace {

struct Row {
  const char* name;
  const char* clsid;
  ClassKind kind;
  std::vector<std::string> events;
};

// The component's public classes, in the order of its class table.
const std::vector<Row>& rows() {
  static const std::vector<Row> table = {
      {"VexFrame",
       "DBF54F29-1E98-428A-A835-7C6999872029",
       ClassKind::Control,
       {"Click", "DblClick", "Resize", "Expand", "Collapse", "CaptionOver", "IconClick", "MouseDown",
        "MouseMove", "MouseUp"}},
      {"VexFrameButton", "FB1FE12F-087D-4C13-AADF-C8246FE3F213", ClassKind::Control, {}},
      {"VexPane",
       "5F1D171F-1695-4DE3-8845-19B6EBC13682",
       ClassKind::Control,
       {"KeyDown", "KeyPress", "KeyUp", "MouseDown", "MouseMove", "MouseUp", "Resize"}},
      {"VexHoverPic",
       "BB17BF78-3B43-48F1-823E-7B8669B3F70E",
       ClassKind::Control,
       {"Click", "DblClick", "KeyDown", "KeyPress", "KeyUp", "MouseOut", "MouseDown", "MouseMove",
        "MouseUp"}},
      {"CGradient", "67C5C9B9-DDCA-44F8-AAE0-C4955FAA5DAB", ClassKind::Class, {}},
      {"VexAlert",
       "E0475009-32BA-4DA7-8254-E1DF5FFE63DE",
       ClassKind::Control,
       {"AlertShowed", "AlertClosed", "Click", "MouseMove"}},
      {"VexInfoPanel", "344EFB70-3A1A-4292-A336-089144FF1C62", ClassKind::Control, {"Click"}},
      {"VexLineHover",
       "CA606410-3740-486B-ABE8-A6F02DE90A4F",
       ClassKind::Control,
       {"MouseDown", "MouseMove", "MouseUp", "Click", "DblClick", "KeyDown", "KeyPress", "KeyUp"}},
      {"VexFrameBox",
       "D751BAAC-F659-4DD6-9A52-E9D3AADF7587",
       ClassKind::Control,
       {"ScrollVisible", "Resize"}},
      {"FrameSettings", "1E21EAD2-7A91-49DB-B3B4-457011005D2F", ClassKind::PropertyPage, {}},
      {"FrameBoxSettings", "4A4825C2-1D20-45AE-B628-AB3A61F8A0C2", ClassKind::PropertyPage, {}},
      {"cRegSettings", "84D50BB7-2A42-461B-AB4D-DF8F58B35C18", ClassKind::Class, {}},
      {"ColorViewDLG", "BD9E7158-AEA2-41DB-80C7-94AAD75CBC50", ClassKind::Class, {}},
      {"OpenSaveDLG", "C49112B0-EBE6-467C-9CFF-958A3E41CCA5", ClassKind::Class, {}},
      {"BrowseFolderDLG", "F282FC52-F208-4B43-A063-1B9CF2946044", ClassKind::Class, {}},
      {"PrintViewDLG", "B97E67EF-133B-49E4-834D-33929362BA91", ClassKind::Class, {}},
      {"FontViewDLG", "BB9F6178-79F7-4CF3-84E1-65C83481E29B", ClassKind::Class, {}},
      {"VexBalloon", "711F7AAC-524E-4BEE-B484-4DA629D85520", ClassKind::Control, {}},
      {"VexColorLabel",
       "5CAE799A-259E-45FD-B4BC-CACA3535B2D3",
       ClassKind::Control,
       {"Click", "DblClick", "Resize", "MouseDown", "MouseMove", "MouseUp"}},
      {"Caption", "F156DFBA-AD0F-468B-BB0D-AC78C434C91D", ClassKind::PropertyPage, {}},
      {"clsSubClass", "222FF6BF-991E-46A5-B8A7-7DF73F9B9738", ClassKind::Class, {"NewMessage"}},
      {"VexHTML",
       "A5486937-C7AB-4A92-9E5E-B8E5CD41C4C6",
       ClassKind::Control,
       {"Click", "DblClick", "HyperlinkClick", "LoadImage", "MouseDown", "MouseMove", "MouseUp"}},
      {"clsTilePicture", "5729AC66-2DF4-4803-A7E7-0E179D81D8B7", ClassKind::Class, {}},
      {"cMyTools", "16B05484-F9D2-448D-881E-8605B468EB10", ClassKind::Class, {}},
      {"cMiniAlert",
       "8D27A6C3-884A-4A23-95D3-5570B302DCBB",
       ClassKind::Class,
       {"AlertShowed", "AlertClosed", "Click", "MouseMove"}},
      {"cMiniBalloon", "D41B07AB-C163-4FC4-80D0-EF65F362F98E", ClassKind::Class, {}},
      {"ISubclass", "284F12D9-F6EA-41CC-AA4D-15AA715912FD", ClassKind::Class, {}},
      {"cFormMinMax", "A24DE9AD-16DF-4BA5-B4A2-6DB1E39AF32E", ClassKind::Class, {}},
      {"VexLFrame", "CE7B992E-C717-4D65-8007-3A4511DD2627", ClassKind::Control, {"Resize"}},
      {"VexInfoPanelLight",
       "60447AF7-5F07-45EE-BAC6-60884DCA54E1",
       ClassKind::Control,
       {"Click", "MouseMove"}},
      {"VexSnip", "C864BB11-B498-4143-A657-44DB4AEEF6A6", ClassKind::Control, {}},
      {"VexSplitter",
       "4F7C478E-CCD6-4D76-8F63-EBB374D5996D",
       ClassKind::Control,
       {"BeforeScroll", "Scrolling", "AfterScroll", "DblClick"}},
      {"msg", "D4528B28-6DF5-4BC9-AE65-260FC4E841F9", ClassKind::Control, {"SendClick", "Closed"}},
      {"VexCheck",
       "4FE2065A-A1C6-4025-B883-EFA04D925ED6",
       ClassKind::Control,
       {"Click", "KeyDown", "KeyPress", "KeyUp", "MouseOut", "MouseDown", "MouseMove", "MouseUp"}},
      {"VexLPane",
       "A7B56462-D02E-409B-BD54-5F866B6C9CF7",
       ClassKind::Control,
       {"MouseDown", "MouseMove", "MouseUp", "Resize"}},
      {"cMDF", "F7BF2924-2F62-4F1C-ACD5-80A18470CF4F", ClassKind::Class, {}},
      {"VexProgress", "92A8A64E-1FB2-4F5F-91EE-A450B9C73D6D", ClassKind::Control, {}},
  };
  return table;
}

bool equalNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    char x = a[i], y = b[i];
    if (x >= 'A' && x <= 'Z') x = static_cast<char>(x + 32);
    if (y >= 'A' && y <= 'Z') y = static_cast<char>(y + 32);
    if (x != y) return false;
  }
  return true;
}

std::string_view withoutBraces(std::string_view id) {
  if (id.size() >= 2 && id.front() == '{' && id.back() == '}') return id.substr(1, id.size() - 2);
  return id;
}

}  // namespace

ClassRegistry::ClassRegistry() {
  m_classes.reserve(rows().size());
  for (const Row& r : rows()) {
    ClassInfo info;
    info.name = r.name;
    info.clsid = r.clsid;
    info.kind = r.kind;
    info.defaultInterface = "_" + info.name;
    if (!r.events.empty()) info.eventInterface = "__" + info.name;
    info.events = r.events;
    m_classes.push_back(std::move(info));
  }
}

ClassRegistry& ClassRegistry::instance() {
  static ClassRegistry& registry = [] () -> ClassRegistry& {
    static ClassRegistry r;
    registerLibraryClasses(r);
    return r;
  }();
  return registry;
}

void ClassRegistry::registerFactory(std::string_view name, std::function<ObjectRef()> factory) {
  for (ClassInfo& c : m_classes)
    if (equalNoCase(c.name, name)) {
      c.factory = std::move(factory);
      return;
    }
  throw std::logic_error("registerFactory: no public class named '" + std::string(name) + "'");
}

const ClassInfo* ClassRegistry::find(std::string_view name) const {
  for (const ClassInfo& c : m_classes)
    if (equalNoCase(c.name, name)) return &c;
  return nullptr;
}

const ClassInfo* ClassRegistry::findById(std::string_view clsid) const {
  std::string_view id = withoutBraces(clsid);
  for (const ClassInfo& c : m_classes)
    if (equalNoCase(c.clsid, id)) return &c;
  return nullptr;
}

ObjectRef ClassRegistry::make(const ClassInfo* info, std::string_view asked) const {
  if (!info)
    throw RuntimeError(err::CannotCreateObject, "Class '" + std::string(asked) + "' is not registered");
  if (!info->factory)
    throw RuntimeError(err::CannotCreateObject, "Class '" + info->name + "' is not available in this build");
  ObjectRef o = info->factory();
  if (!o) throw RuntimeError(err::CannotCreateObject);
  return o;
}

ObjectRef ClassRegistry::create(std::string_view name) const { return make(find(name), name); }

ObjectRef ClassRegistry::createById(std::string_view clsid) const { return make(findById(clsid), clsid); }

void ClassRegistry::registerEnum(std::string_view name, std::vector<std::pair<std::string, int32_t>> members) {
  m_enums.push_back(EnumInfo{std::string(name), std::move(members)});
}

int32_t ClassRegistry::enumValue(std::string_view name) const {
  size_t dot = name.find('.');
  std::string_view enumName = dot == std::string_view::npos ? std::string_view{} : name.substr(0, dot);
  std::string_view member = dot == std::string_view::npos ? name : name.substr(dot + 1);
  for (const EnumInfo& e : m_enums) {
    if (!enumName.empty() && !equalNoCase(e.name, enumName)) continue;
    for (const auto& [memberName, value] : e.members)
      if (equalNoCase(memberName, member)) return value;
  }
  throw RuntimeError(err::MemberNotFound, "No enumeration member '" + std::string(name) + "'");
}

int64_t ClassRegistry::liveObjects() { return ComponentObject::liveCount(); }

bool ClassRegistry::canUnloadNow() { return liveObjects() == 0; }

}  // namespace corvane
