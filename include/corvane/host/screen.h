// SPDX-License-Identifier: MIT
#pragma once
#include <string>

#include <corvane/export.h>
#include <corvane/runtime/object.h>

namespace corvane {

// The system's Screen object. Twips per pixel follow the platform's resolution: they are read
// again whenever the drawing side's resolution serial says it may have changed.
class CORVANE_API Screen : public Object {
 public:
  static Screen& instance();
  std::string typeName() const override { return "Screen"; }

  float TwipsPerPixelX() const;
  float TwipsPerPixelY() const;
  float Width() const;   // twips
  // The screen's resolution, asked of the platform whenever it may have changed.
  static int32_t pixelsPerInchX();
  static int32_t pixelsPerInchY();
  float Height() const;  // twips

 protected:
  const Dispatch* dispatch() const override;
};

// The system's App object.
class CORVANE_API App : public Object {
 public:
  static App& instance();
  std::string typeName() const override { return "App"; }

  std::string Path() const;     // folder of the program, without a trailing separator
  std::string EXEName() const;  // program name without extension
  std::string Title() const { return m_title.empty() ? EXEName() : m_title; }
  void setTitle(const std::string& t) { m_title = t; }
  // The application's help file, which a box with a help button swaps for its own while it shows.
  const std::string& HelpFile() const { return m_helpFile; }
  void setHelpFile(const std::string& f) { m_helpFile = f; }

 protected:
  const Dispatch* dispatch() const override;

 private:
  std::string m_title;
  std::string m_helpFile;
};

}  // namespace corvane
