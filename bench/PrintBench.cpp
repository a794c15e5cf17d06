#include <benchmark/benchmark.h>

#include <QPainter>
#include <QPicture>
#include <QPrinter>

#include "bench/BoardBench.h"
#include "bench/NeedWindows.h"
#include "printing/WorksheetReport.h"
#include "ui/WindowPlace.h"
#include "ui/qt/ReportPainter.h"
#include "ui/qt/ReportWindow.h"
#include "ui/qt/Text.h"

// A worksheet of 20 pages: composed, laid out and painted for the preview. Plain draws the same lines, page by page,
// with nothing around them.
namespace lantos::bench {

namespace {

constexpr std::int32_t kEstimate = 1002;
constexpr int kRemarks = 1000;  // lines of comments: with the rest of the worksheet 20 pages

struct Worksheet {
  Worksheet() {
    NeedWindows();
    world.environment.printOptions.BlankLinesPerLabor = 0;
    world.environment.printOptions.PrintVehSummaryOnWorksheet = false;
    board.database.estimates.LoadEstimate(kEstimate);
    std::string& comments = board.database.estimates.CurrentEstimate.Comments;
    comments.clear();
    for (int i = 0; i < kRemarks; ++i) comments += "Remark " + std::to_string(i) + ": " + std::string(80, 'x') + "\r\n";
  }
  ui::Report Make() {
    return WorksheetReport(world.environment, world.desktop, world.records, board.database).Make({});
  }
  Board board{FullDayShop()};
  World& world = board.world;
};

// As the preview takes them: pictures of pages.
void ComposeAndPreview(benchmark::State& state) {
  Worksheet worksheet;
  for (auto _ : state) {
    const ui::Report report = worksheet.Make();
    const ui::ReportPainter painter(report, ui::kLetterPaper);
    if (painter.PageCount() != 20) {
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
  Worksheet worksheet;
  const ui::Report report = worksheet.Make();
  const ui::ReportLayout layout = ui::LayOut(report);
  for (auto _ : state) {
    for (const ui::ReportPage& page : layout.pages) {
      QPicture picture;
      QPainter on(&picture);
      QFont font(QStringLiteral("Liberation Mono"));
      font.setPixelSize(9);
      on.setFont(font);
      for (std::size_t i = 0; i < page.lineCount; ++i) {
        on.drawText(QPointF(36, 160 + 10.0 * static_cast<double>(i)), ui::ToQt(layout.lines[page.firstLine + i].text));
      }
      on.end();
      benchmark::DoNotOptimize(picture.size());
    }
  }
}

BENCHMARK(ComposeAndPreview)->Name("Worksheet")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(DrawBare)->Name("Worksheet/plain")->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
