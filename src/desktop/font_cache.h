// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>

#include "desktop/text_font.h"
#include <corvane/platform/types.h>

// Pango's types, declared here so that users of this header need not see Pango's headers.
typedef struct _PangoContext PangoContext;
typedef struct _PangoFontMap PangoFontMap;

namespace corvane {

// The fonts in use, each made once: by face, pixel size, weight and slant, and, in front of that,
// by the description a caller gives (so that asking again for a known description is a lookup).
class FontCache {
 public:
  static constexpr size_t kMaxFaces = 32;
  // Once maxFaces faces were made, fonts nobody holds are forgotten before another is made.
  explicit FontCache(size_t maxFaces = kMaxFaces);
  ~FontCache();
  // The cache every desktop of the process uses, so that a font and its glyphs are made once.
  static FontCache& shared();
  FontCache(const FontCache&) = delete;
  FontCache& operator=(const FontCache&) = delete;

  // The font for a description at a vertical resolution: pixels = points * pixelsPerInch / 72,
  // rounded. Underline and strikethrough are not part of a TextFont; the caller keeps them.
  std::shared_ptr<TextFont> font(const FontSpec& desc, int32_t pixelsPerInch);

  // The installed family that draws a face name.
  std::string familyFor(const std::string& name);
  bool familiesListed() const { return m_listed; }  // for tests: the list is made when first needed
  size_t faceCount() const { return m_byFace.size(); }  // for tests

 private:
  void forgetUnused();
  struct SpecHash {
    size_t operator()(const FontSpec& s) const;
  };
  PangoFontMap* m_fontMap;
  PangoContext* m_context;
  const std::set<std::string>& installed();
  std::set<std::string> m_installed;  // installed family names, lower case, once listed
  bool m_listed = false;
  size_t m_maxFaces;
  int32_t m_pixelsPerInch = 0;        // resolution the description memo was made for
  std::unordered_map<FontSpec, std::shared_ptr<TextFont>, SpecHash> m_bySpec;
  std::map<std::tuple<std::string, int32_t, bool, bool>, std::shared_ptr<TextFont>> m_byFace;
};

}  // namespace corvane
