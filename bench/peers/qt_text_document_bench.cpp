// SPDX-License-Identifier: MIT
// Qt's QTextDocument beside the HTML view: the 30 KB page set as HTML, laid out at 600 pixels and
// drawn three times (as the view's Refresh makes three passes) into a QImage of the page's height.
// Qt runs on its offscreen platform, so no display is needed.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTextDocument>
#include <cstdlib>
#include <string>

#include "../html_pages.h"

namespace {

QGuiApplication& qtApplication() {
  static int argc = 1;
  static char name[] = "corvane_bench";
  static char* argv[] = {name, nullptr};
  static QGuiApplication* application = [] {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    return new QGuiApplication(argc, argv);
  }();
  return *application;
}

void BM_PeerQtTextDocument30KbAt600(benchmark::State& state) {
  qtApplication();
  const QString page = QString::fromLatin1(thirtyKilobytePage().c_str());
  double height = 0;
  for (auto _ : state) {
    QTextDocument document;
    document.setHtml(page);
    document.setTextWidth(600);
    height = document.size().height();
    QImage image(600, static_cast<int>(height) + 1, QImage::Format_RGB32);
    for (int pass = 0; pass < 3; ++pass) {
      image.fill(Qt::white);
      QPainter painter(&image);
      document.drawContents(&painter);
    }
  }
  state.counters["docHeight"] = height;
}
BENCHMARK(BM_PeerQtTextDocument30KbAt600)->Unit(benchmark::kMillisecond);

}  // namespace
