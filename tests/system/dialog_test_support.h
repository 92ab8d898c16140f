// SPDX-License-Identifier: MIT
#pragma once
#include "desktop/scripted_dialogs.h"
#include "support/desktop_fixture.h"

namespace corvane::test {

// A headless desktop whose dialogs a test answers in advance.
class DialogTest : public DesktopTest {
 protected:
  ScriptedDialogs& script() { return desktop().scriptedDialogs(); }
  const ScriptedDialogs::Request& lastRequest() { return script().requests().back(); }
  static ScriptedDialogs::Answer ok() {
    ScriptedDialogs::Answer a;
    a.ok = true;
    return a;
  }
  static ScriptedDialogs::Answer cancel() { return ScriptedDialogs::Answer{}; }
};

}  // namespace corvane::test
