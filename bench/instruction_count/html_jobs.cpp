// SPDX-License-Identifier: MIT
// A fixed number of HTML jobs on the 30 KB page at 600 pixels, for instruction counts under
// callgrind: run it with two counts and divide the difference of the totals by the difference of
// the counts, so that the set-up (fonts, Qt's application) cancels out.
//   html_jobs view-refresh|view-hover|qt|litehtml COUNT
// view-refresh sets Text (with its Refresh); view-hover is one measuring pass and the viewport
// copy; qt and litehtml are the peers' whole jobs as in the benchmark suite (present only when
// the peers were installed at configure time).
#include <corvane/host/form.h>
#include <corvane/html/vex_html.h>
#include <corvane/platform/platform.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "../html_pages.h"
#include "desktop/desktop.h"

#ifdef CORVANE_BENCH_QT
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTextDocument>
#endif
#ifdef CORVANE_BENCH_LITEHTML
#include "../peers/litehtml_cairo_container.h"
#endif

using namespace corvane;

namespace {

void view(bool hover, long count) {
  Desktop desktop;
  setPlatform(&desktop);
  {
    FormRef form = Form::create("CountForm", 12000, 9000);
    auto v = std::dynamic_pointer_cast<VexHTML>(form->add("VexHTML", "htm", nullptr, 0, 0, 9000, 6000));
    v->setEnableAnchors(true);
    v->setEnableScroll(3);
    const std::string page = thirtyKilobytePage();
    if (hover) v->setText(page);
    for (long i = 0; i < count; ++i) {
      if (hover) {
        v->mRender(false);
        v->mPaintViewport();
      } else {
        v->setText(page);
      }
    }
  }
  Forms::unloadAll();
  setPlatform(nullptr);
}

#ifdef CORVANE_BENCH_QT
void qt(long count) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  int argc = 1;
  char name[] = "html_jobs";
  char* argv[] = {name, nullptr};
  QGuiApplication application(argc, argv);
  const QString page = QString::fromLatin1(thirtyKilobytePage().c_str());
  for (long i = 0; i < count; ++i) {
    QTextDocument document;
    document.setHtml(page);
    document.setTextWidth(600);
    QImage image(600, static_cast<int>(document.size().height()) + 1, QImage::Format_RGB32);
    for (int pass = 0; pass < 3; ++pass) {
      image.fill(Qt::white);
      QPainter painter(&image);
      document.drawContents(&painter);
    }
  }
}
#endif

#ifdef CORVANE_BENCH_LITEHTML
void litehtmlJob(long count) {
  const std::string page = thirtyKilobytePage();
  LitehtmlCairoContainer container(600);
  litehtml::context context;
  context.load_master_stylesheet(LitehtmlCairoContainer::masterStyleSheet());
  for (long i = 0; i < count; ++i) {
    litehtml::document::ptr document = litehtml::document::createFromUTF8(page.c_str(), &container, &context);
    for (int pass = 0; pass < 3; ++pass) document->render(600);
    const int height = document->height() > 0 ? document->height() : 1;
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 600, height);
    cairo_t* cr = cairo_create(surface);
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_paint(cr);
    litehtml::position clip(0, 0, 600, height);
    document->draw(reinterpret_cast<litehtml::uint_ptr>(cr), 0, 0, &clip);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
  }
}
#endif

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: html_jobs view-refresh|view-hover|qt|litehtml COUNT\n");
    return 2;
  }
  const long count = std::strtol(argv[2], nullptr, 10);
  if (std::strcmp(argv[1], "view-refresh") == 0) view(false, count);
  else if (std::strcmp(argv[1], "view-hover") == 0) view(true, count);
#ifdef CORVANE_BENCH_QT
  else if (std::strcmp(argv[1], "qt") == 0) qt(count);
#endif
#ifdef CORVANE_BENCH_LITEHTML
  else if (std::strcmp(argv[1], "litehtml") == 0) litehtmlJob(count);
#endif
  else {
    std::fprintf(stderr, "unknown job %s (or its peer was not installed)\n", argv[1]);
    return 2;
  }
  return 0;
}
