#pragma once
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace corvane {

// A public event of a control. A host connects handlers; raising calls them in the order they
// were connected. Arguments that the event passes by reference are reference types in Args, so
// a handler can change them in place.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  int connect(Handler h) {
    m_handlers->push_back({++m_lastId, std::move(h)});
    return m_lastId;
  }
  void disconnect(int id) {
    auto& v = *m_handlers;
    for (auto it = v.begin(); it != v.end(); ++it)
      if (it->first == id) {
        v.erase(it);
        return;
      }
  }
  bool connected() const { return !m_handlers->empty(); }

  // Raising works on a snapshot, so a handler may connect or disconnect during the call.
  void operator()(Args... args) const {
    auto snapshot = *m_handlers;
    for (auto& [id, h] : snapshot) h(args...);
  }

 private:
  std::shared_ptr<std::vector<std::pair<int, Handler>>> m_handlers =
      std::make_shared<std::vector<std::pair<int, Handler>>>();
  int m_lastId = 0;
};

}  // namespace corvane
