// SPDX-License-Identifier: MIT
// A fixed number of gradient draws on a full-HD surface, by the painter or by Cairo's linear
// gradient, for instruction counts under callgrind: run it with two counts and divide the
// difference of the totals by the difference of the counts, so that the set-up cancels out.
//   gradient_draws painter|cairo ANGLE COUNT
#include <cstdio>
#include <cstdlib>
#include <string>

#include "../gradient_rigs.h"

using namespace gradient_rigs;

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: gradient_draws painter|cairo ANGLE COUNT\n");
    return 2;
  }
  const std::string who = argv[1];
  const float angle = std::strtof(argv[2], nullptr);
  const long count = std::strtol(argv[3], nullptr, 10);
  if (who == "painter") {
    GradientRig rig(angle);
    COLORREF sum = 0;
    for (long i = 0; i < count; ++i) {
      COLORREF centre = 0;
      rig.draw(centre);
      sum ^= centre;
    }
    return sum == -1 ? 1 : 0;  // the pixels are used, so no draw is left out
  }
  if (who == "cairo") {
    CairoRig rig(angle);
    for (long i = 0; i < count; ++i) rig.draw();
    return 0;
  }
  return 2;
}
