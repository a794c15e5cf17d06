#include <benchmark/benchmark.h>

#include <QPainter>
#include <QPicture>

#include "bench/BenchShop.h"
#include "bench/NeedWindows.h"
#include "printing/WorkorderReport.h"
#include "records/modSystem.h"
#include "ui/qt/ReportPainter.h"
#include "ui/qt/Text.h"

// The paper of a work order of 20 pages: composed, laid out and painted for the preview. Plain draws the same texts,
// page by page, with nothing around them.
namespace lantos::bench {

namespace {

constexpr std::size_t kPages = 20;
constexpr int kParts = 1035;  // 20 pages, totals and all

struct PaperOfWorkorder {
  PaperOfWorkorder() {
    NeedWindows();
    order.WorkorderNumber = 4711;
    order.Status = "OPEN";
    for (int i = 0; i < kParts; ++i) {
      order.Parts.Add({"BP-" + std::to_string(100000 + i), "BRAKE PAD SET, FRONT, CERAMIC", 2, 2000, 4200, 4999});
    }
  }
  ui::Report Make() { return WorkorderReport(world.environment, world.records.system.SysRec).Make(order); }

  World world{PartsShop()};
  Workorder order;
};

// As the preview takes them: pictures of pages.
void ComposeAndPreview(benchmark::State& state) {
  PaperOfWorkorder paper;
  for (auto _ : state) {
    const ui::Report report = paper.Make();
    const ui::ReportPainter painter(report, ui::kLetterPaper);
    if (painter.PageCount() != kPages) {
      state.SkipWithError(("not 20 pages: " + std::to_string(painter.PageCount())).c_str());
      break;
    }
    for (std::size_t page = 0; page < painter.PageCount(); ++page) {
      QPicture picture;
      QPainter on(&picture);
      painter.PaintPage(on, page);
      on.end();
      benchmark::DoNotOptimize(picture.size());
    }
  }
}

void DrawBare(benchmark::State& state) {
  PaperOfWorkorder paper;
  const ui::Report report = paper.Make();
  const ui::ReportLayout layout = ui::LayOut(report);
  for (auto _ : state) {
    for (const ui::ReportPage& page : layout.pages) {
      QPicture picture;
      QPainter on(&picture);
      QFont font(QStringLiteral("Liberation Mono"));
      font.setPixelSize(8);
      on.setFont(font);
      for (std::size_t i = 0; i < page.lineCount; ++i) {
        const std::vector<std::string>& texts = report.lines[layout.lines[page.firstLine + i].line];
        for (std::size_t column = 0; column < texts.size(); ++column) {
          if (texts[column].empty()) continue;
          const double left = 36 + report.design.columns[column].left * layout.width;
          on.drawText(QPointF(left, 220 + layout.detailPitch * static_cast<double>(i)), ui::ToQt(texts[column]));
        }
      }
      on.end();
      benchmark::DoNotOptimize(picture.size());
    }
  }
}

BENCHMARK(ComposeAndPreview)->Name("WorkorderPaper")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(DrawBare)->Name("WorkorderPaper/plain")->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
