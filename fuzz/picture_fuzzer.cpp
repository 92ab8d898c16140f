// SPDX-License-Identifier: MIT
// Pictures from bytes: PNG, BMP, ICO and CUR. The first byte asks for an icon (bit 0); the rest
// is the file. A picture that decodes is measured and drawn.
#include <corvane/host/std_picture.h>
#include <corvane/platform/api.h>

#include "fuzz_desktop.h"
#include "fuzz_input.h"

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzz::headlessDesktop();
  fuzz::FuzzInput in(data, size);
  const bool asIcon = in.byte() & 1;
  PictureRef picture = StdPicture::fromBytes(in.bytes(size), asIcon);
  if (!picture) return 0;
  const SIZE pixels = picture->pixelSize();
  if (pixels.cx <= 0 || pixels.cy <= 0 || pixels.cx > 16384 || pixels.cy > 16384) __builtin_trap();
  (void)picture->Width();
  (void)picture->Height();
  HDC dc = gdi().CreateCompatibleDC(0);
  picture->Render(dc, 0, 0, 16, 16);
  gdi().DeleteDC(dc);
  return 0;
}
