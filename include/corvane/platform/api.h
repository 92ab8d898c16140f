// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/platform/platform.h>

// Short accessors so that control code reads like its description: gdi().FillRect(hdc, rc, brush).
namespace corvane {
inline GdiApi& gdi() { return platform().gdi(); }
inline UserApi& user() { return platform().user(); }
inline SystemApi& sys() { return platform().system(); }
inline RegistryApi& reg() { return platform().registry(); }
inline DialogApi& dlg() { return platform().dialogs(); }
}  // namespace corvane
