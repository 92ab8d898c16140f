// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>

#include <corvane/export.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/object.h>

namespace corvane {

// How the previous window procedure takes part in a message that clients of MSubclass handle.
enum EMsgResponse : int32_t {
  emrConsume = 0,      // the previous procedure is not called
  emrPostProcess = 1,  // the previous procedure runs after the clients
  emrPreprocess = 2,   // the previous procedure runs before the first-attached client
};

// The interface of a client of MSubclass. A class that wants messages of a window derives from
// it, overrides WindowProc, and registers for single messages with MSubclass::AttachMessage.
// Window properties refer to a client by its id, without holding it.
class CORVANE_API ISubclass : public Object, public ComponentObject {
 public:
  ISubclass();
  ~ISubclass() override;
  std::string typeName() const override { return "ISubclass"; }

  virtual EMsgResponse MsgResponse() const { return m_MsgResponse; }
  virtual void setMsgResponse(EMsgResponse v) { m_MsgResponse = v; }
  // The message for this client; its result is returned to the system. The plain class gives 0.
  virtual int32_t WindowProc(int32_t hWnd, int32_t iMsg, int32_t wParam, int32_t lParam);

  // The value stored in a window property for this client: its id among the live clients.
  int32_t objectId() const { return m_objectId; }
  static ISubclass* fromObjectId(int32_t id);

 protected:
  const Dispatch* dispatch() const override;

 private:
  EMsgResponse m_MsgResponse = emrConsume;
  int32_t m_objectId;
};

}  // namespace corvane
