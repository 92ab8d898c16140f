// SPDX-License-Identifier: MIT
#include "desktop/region.h"

#include <algorithm>

namespace corvane {

namespace {

struct Span {
  int32_t left, right;
  bool operator==(const Span&) const = default;
};

// The x intervals of an area that cover the band [top, bottom), merged and sorted.
std::vector<Span> spansOfBand(const std::vector<RECT>& rects, int32_t top, int32_t bottom) {
  std::vector<Span> spans;
  for (const RECT& r : rects)
    if (r.Top <= top && r.Bottom >= bottom) spans.push_back({r.Left, r.Right});
  std::sort(spans.begin(), spans.end(), [](const Span& p, const Span& q) { return p.left < q.left; });
  std::vector<Span> merged;
  for (const Span& s : spans) {
    if (!merged.empty() && s.left <= merged.back().right)
      merged.back().right = std::max(merged.back().right, s.right);
    else
      merged.push_back(s);
  }
  return merged;
}

bool inSpans(const std::vector<Span>& spans, int32_t x) {
  for (const Span& s : spans)
    if (x >= s.left && x < s.right) return true;
  return false;
}

bool apply(int32_t mode, bool a, bool b) {
  switch (mode) {
    case RGN_AND:
      return a && b;
    case RGN_OR:
      return a || b;
    case RGN_XOR:
      return a != b;
    case RGN_DIFF:
      return a && !b;
    default:
      return a;
  }
}

}  // namespace

Region::Region(int32_t left, int32_t top, int32_t right, int32_t bottom) {
  if (left > right) std::swap(left, right);
  if (top > bottom) std::swap(top, bottom);
  if (left < right && top < bottom) m_rects.push_back({left, top, right, bottom});
}

bool Region::contains(int32_t x, int32_t y) const {
  for (const RECT& r : m_rects)
    if (x >= r.Left && x < r.Right && y >= r.Top && y < r.Bottom) return true;
  return false;
}

int32_t Region::kind() const { return m_rects.empty() ? 1 : m_rects.size() == 1 ? 2 : 3; }

Region Region::combine(const Region& a, const Region& b, int32_t mode) {
  if (mode == RGN_COPY) return a;
  // Cut the plane into horizontal bands at every top and bottom edge; inside a band each area is
  // a list of x intervals, and the operation works on their edges.
  std::vector<int32_t> ys;
  for (const RECT& r : a.m_rects) ys.insert(ys.end(), {r.Top, r.Bottom});
  for (const RECT& r : b.m_rects) ys.insert(ys.end(), {r.Top, r.Bottom});
  std::sort(ys.begin(), ys.end());
  ys.erase(std::unique(ys.begin(), ys.end()), ys.end());

  Region out;
  std::vector<Span> previous;
  size_t previousStart = 0;
  for (size_t i = 0; i + 1 < ys.size(); ++i) {
    int32_t top = ys[i], bottom = ys[i + 1];
    std::vector<Span> sa = spansOfBand(a.m_rects, top, bottom), sb = spansOfBand(b.m_rects, top, bottom);
    std::vector<int32_t> xs;
    for (const Span& s : sa) xs.insert(xs.end(), {s.left, s.right});
    for (const Span& s : sb) xs.insert(xs.end(), {s.left, s.right});
    std::sort(xs.begin(), xs.end());
    xs.erase(std::unique(xs.begin(), xs.end()), xs.end());
    std::vector<Span> band;
    for (size_t j = 0; j + 1 < xs.size(); ++j) {
      if (!apply(mode, inSpans(sa, xs[j]), inSpans(sb, xs[j]))) continue;
      if (!band.empty() && band.back().right == xs[j])
        band.back().right = xs[j + 1];
      else
        band.push_back({xs[j], xs[j + 1]});
    }
    // A band that continues the one above with the same intervals only stretches it.
    bool continues = !band.empty() && band == previous && previousStart < out.m_rects.size() &&
                     out.m_rects.back().Bottom == top;
    if (continues) {
      for (size_t k = previousStart; k < out.m_rects.size(); ++k) out.m_rects[k].Bottom = bottom;
    } else {
      previousStart = out.m_rects.size();
      for (const Span& s : band) out.m_rects.push_back({s.left, top, s.right, bottom});
    }
    previous = std::move(band);
  }
  return out;
}

}  // namespace corvane
