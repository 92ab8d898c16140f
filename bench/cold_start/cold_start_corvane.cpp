// SPDX-License-Identifier: MIT
// Cold start: a fresh process that draws one markup label, then prints the time its main took
// and its peak resident memory. Run by bench/cold_start/run.sh beside the Pango program.
#include <corvane/host/form.h>
#include <corvane/platform/platform.h>
#include <corvane/widgets/vex_color_label.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <memory>

#include "desktop/desktop.h"

using namespace corvane;

int main() {
  auto start = std::chrono::steady_clock::now();
  long pixel = 0;
  {
    Desktop desktop;
    setPlatform(&desktop);
    FormRef form = Form::create("ColdForm", 6000, 1000);
    form->surface().Font()->setName("Arial");
    form->surface().Font()->setSize(10);
    auto label =
        std::dynamic_pointer_cast<VexColorLabel>(form->add("VexColorLabel", "lbl", nullptr, 0, 0, 6000, 300));
    label->setCaption("<b>Fett</b> und <c&HFF>rot</c> und <i>kursiv</i>");
    label->DrawLabel();
    pixel = static_cast<long>(desktop.windows().windowCanvas(label->hWnd())->pixel(2, 2));
    auto end = std::chrono::steady_clock::now();
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf(
        "corvane main_us=%lld maxrss_kb=%ld pixel=%ld\n",
        static_cast<long long>(std::chrono::duration_cast<std::chrono::microseconds>(end - start).count()),
        usage.ru_maxrss, pixel);
    label.reset();
    Forms::unloadAll();
    setPlatform(nullptr);
  }
  return 0;
}
