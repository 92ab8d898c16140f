// SPDX-License-Identifier: MIT
#pragma once
#include <gtest/gtest.h>

#include <memory>

#include "desktop/desktop.h"
#include "desktop/gdi.h"
#include <corvane/host/form.h>
#include <corvane/platform/platform.h>

namespace corvane::test {

// A fresh headless desktop with a virtual clock for each test, installed as the platform.
class DesktopTest : public ::testing::Test {
 protected:
  void SetUp() override {
    m_desktop = std::make_unique<Desktop>(options());
    setPlatform(m_desktop.get());
  }
  void TearDown() override {
    Forms::unloadAll();
    m_desktop.reset();
    setPlatform(nullptr);
  }
  virtual Desktop::Options options() const { return Desktop::Options{}; }

  Desktop& desktop() { return *m_desktop; }
  // The colour of a pixel of the composed screen, as &H00BBGGRR.
  COLORREF screenPixel(int32_t x, int32_t y) { return desktop().screen().pixel(x, y); }

 private:
  std::unique_ptr<Desktop> m_desktop;
};

}  // namespace corvane::test
