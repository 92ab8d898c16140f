// SPDX-License-Identifier: MIT
#include <corvane/runtime/object.h>

#include <cctype>

namespace corvane {

namespace {
std::string lowered(std::string_view s) {
  std::string r(s);
  for (char& c : r) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return r;
}
}  // namespace

std::atomic<int64_t> Object::s_live{0};

void Dispatch::addGetter(std::string_view name, Getter g) { m_members[lowered(name)].get = std::move(g); }
void Dispatch::addSetter(std::string_view name, Setter s) { m_members[lowered(name)].let = std::move(s); }
void Dispatch::addMethod(std::string_view name, Method m) { m_members[lowered(name)].call = std::move(m); }

const Dispatch::Member* Dispatch::find(std::string_view name) const {
  auto it = m_members.find(lowered(name));
  return it == m_members.end() ? nullptr : &it->second;
}

Object::Object() { ++s_live; }
Object::~Object() { --s_live; }
int64_t Object::liveCount() { return s_live.load(); }

Variant Object::invoke(std::string_view member, CallType type, Dispatch::Args& args) {
  const Dispatch* d = dispatch();
  const Dispatch::Member* m = d ? d->find(member) : nullptr;
  if (m) {
    switch (type) {
      case CallType::Get:
        if (m->get) return m->get(*this, args);
        if (m->call) return m->call(*this, args);  // a function may be read like a property
        break;
      case CallType::Method:
        if (m->call) return m->call(*this, args);
        if (m->get) return m->get(*this, args);
        break;
      case CallType::Let:
        if (m->let && !args.empty()) {
          Variant value = args.back();
          args.pop_back();
          m->let(*this, args, value);
          return Variant();
        }
        break;
    }
  }
  throw RuntimeError(err::MemberNotFound, {}, typeName());
}

bool Object::hasMember(std::string_view member) const {
  const Dispatch* d = dispatch();
  return d && d->find(member);
}

Variant Object::get(std::string_view member, Dispatch::Args args) { return invoke(member, CallType::Get, args); }

void Object::let(std::string_view member, const Variant& value, Dispatch::Args args) {
  args.push_back(value);
  invoke(member, CallType::Let, args);
}

Variant Object::call(std::string_view member, Dispatch::Args args) { return invoke(member, CallType::Method, args); }

}  // namespace corvane
