// SPDX-License-Identifier: MIT
#pragma once
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace corvane {

// A public event of a control. A host connects handlers; raising calls them in the order they
// were connected. Arguments that the event passes by reference are reference types in Args, so
// a handler can change them in place and the raiser sees the change.
//
// Re-entrancy: a handler may connect, disconnect or raise again while the event is being raised,
// and the owner of the event may even go away meanwhile. A handler disconnected during a raise
// is not called any more, also not later in that raise; a handler connected during a raise is
// called from the next raise on.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  int connect(Handler h) {
    auto& s = *m_state;
    s.slots.push_back(std::make_shared<Slot>(Slot{++s.lastId, std::move(h), true}));
    return s.lastId;
  }

  void disconnect(int id) {
    auto& s = *m_state;
    for (auto it = s.slots.begin(); it != s.slots.end(); ++it)
      if ((*it)->id == id && (*it)->live) {
        (*it)->live = false;
        if (!s.raising) s.slots.erase(it);  // during a raise the slot is purged afterwards
        return;
      }
  }

  void clear() {
    for (auto& slot : m_state->slots) slot->live = false;
    if (!m_state->raising) m_state->slots.clear();
  }

  bool connected() const {
    for (auto& slot : m_state->slots)
      if (slot->live) return true;
    return false;
  }

  void operator()(Args... args) const {
    std::shared_ptr<State> state = m_state;  // survives the owner's end inside a handler
    Raising guard(*state);
    const size_t count = state->slots.size();
    for (size_t i = 0; i < count; ++i) {
      std::shared_ptr<Slot> slot = state->slots[i];  // the vector may grow under the call
      if (slot->live) slot->handler(args...);
    }
  }

 private:
  struct Slot {
    int id;
    Handler handler;
    bool live;
  };
  struct State {
    std::vector<std::shared_ptr<Slot>> slots;
    int lastId = 0;
    int raising = 0;
  };
  // Counts nested raises; the outermost one purges the slots disconnected meanwhile.
  struct Raising {
    explicit Raising(State& s) : state(s) { ++state.raising; }
    ~Raising() {
      if (--state.raising == 0)
        std::erase_if(state.slots, [](const std::shared_ptr<Slot>& slot) { return !slot->live; });
    }
    State& state;
  };

  std::shared_ptr<State> m_state = std::make_shared<State>();
};

}  // namespace corvane
