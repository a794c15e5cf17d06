#include <benchmark/benchmark.h>

#include <QListWidget>
#include <QVBoxLayout>
#include <fstream>

#include "bench/BenchShop.h"
#include "bench/NeedWindows.h"
#include "frame/Numbers.h"
#include "history/DetailLines.h"
#include "history/frmWOHist.h"
#include "records/CheckList.h"
#include "records/OpenedFile.h"
#include "ui/qt/Text.h"
#include "workorders/TagOfWorkorder.h"

// A search for a VIN whose one archived work order lies ahead of 50,000 others; plain reads the same blocks from the
// end. And a hit of 100 lines put on the screen; plain reads its text and fills two bare lists with as many lines.
namespace lantos::bench {

namespace {

constexpr std::int32_t kArchived = 50000;
constexpr const char* kVin = "1HGCM82633A004352";
constexpr int kLines = 100;  // of parts, the heading among them

Workorder MakeOrder() {
  Workorder order;
  ClearWorkorder(order);
  order.WorkorderNumber = 1;
  order.Status = "OPEN";
  order.Customer.Put(customer::Number, 1);
  order.Customer.Put(customer::Lastname, "Tanaka");
  order.Vehicle.Put(vehicle::Make, "Honda");
  order.Vehicle.Put(vehicle::VIN, kVin);
  for (int i = 1; i < kLines; ++i) {
    order.Parts.Add({"BP-" + std::to_string(1000 + i), "BRAKE PAD SET, FRONT, CERAMIC", 2, 2000, 4200, 4999});
  }
  return order;
}

void Write(const std::filesystem::path& path, std::span<const std::byte> bytes) {
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

std::filesystem::path MakeHistory() {
  const std::filesystem::path directory = BusyWeekShop();
  World world(directory);
  Workorder order = MakeOrder();
  ActiveWoTag active;
  PutIntoTag(order, active);
  std::vector<ArchivedWoTag> tags(kArchived);
  for (std::int32_t i = 0; i < kArchived; ++i) {
    if (i > 0) active.Put(wotag::VIN, "1HGCM82633A1" + FormatZeros(i, 5));
    active.Put(wotag::WorkorderNumber, 1 + i);
    PutIntoTag(active, 0, tags[static_cast<std::size_t>(i)]);
  }
  const std::string text = WorkorderText(order, {world.environment.shopOptions, world.records.checkList, kBenchDay});
  Write(directory / kActiveTagFile, {});
  Write(directory / kArchivedTagFile, std::as_bytes(std::span(tags)));
  Write(directory / kArchiveFile, std::as_bytes(std::span(text)));
  return directory;
}

const std::filesystem::path& TheHistory() {
  static const std::filesystem::path directory = MakeHistory();
  return directory;
}

void SearchToTheFarEnd(benchmark::State& state) {
  World world(TheHistory());
  Workorders workorders(world.environment, world.desktop, world.records);
  WorkorderSearch search(world.environment, workorders);
  for (auto _ : state) {
    search.Begin({SearchCriterion::Kind::Vin, kVin});
    if (search.SearchOn([] { return true; }) != WorkorderSearch::Outcome::Found) state.SkipWithError("no hit");
  }
}

void ReadBackwards(benchmark::State& state) {
  World world(TheHistory());
  std::vector<ArchivedWoTag> block(TagsBackwards<ArchivedWoTag::kLength>::kBlock);
  for (auto _ : state) {
    const OpenedFile none(world.environment.openFiles, kActiveTagFile, Access::Read, Deny::None);
    OpenedFile file(world.environment.openFiles, kArchivedTagFile, Access::Read, Deny::None);
    for (std::uint64_t left = file->Length() / ArchivedWoTag::kLength; left > 0;) {
      const std::uint64_t count = std::min<std::uint64_t>(left, block.size());
      left -= count;
      file->ReadAt(left * ArchivedWoTag::kLength, std::as_writable_bytes(std::span(block).first(count)));
      benchmark::DoNotOptimize(block.data());
    }
  }
}

// Shown as a person sees it, in a window.
void ShowHit(benchmark::State& state) {
  World world(TheHistory());
  ui::QtDesktop& windows = Windows();
  Shop shop{windows, world.environment, world.records, world.keys};
  frmWOHist form(shop, [](const Workorders&) {});
  form.Show();
  form.srchVIN.SetText(kVin);
  form.cmdSearch.OnClick();
  for (auto _ : state) {
    form.cmdFirst.OnClick();
    windows.Settle();
  }
  if (form.WoDetailC.ListCount() != kLines) state.SkipWithError("not the hundred lines");
  form.Unload();
}

void ReadTextAndFillLists(benchmark::State& state) {
  World world(TheHistory());
  NeedWindows();
  CheckListTable checkList(world.environment);
  const DetailLines lines = ComposeDetail(MakeOrder(), checkList, world.environment.shopOptions.PaymentMethodNames);
  Workorders workorders(world.environment, world.desktop, world.records);
  QWidget window;
  QVBoxLayout layout(&window);
  QListWidget one, other;
  layout.addWidget(&one);
  layout.addWidget(&other);
  other.hide();
  window.show();
  for (auto _ : state) {
    workorders.GetArchWo(1, 0);
    one.clear();
    other.clear();
    for (const std::string& line : lines.plain) one.addItem(ui::ToQt(line));
    for (const std::string& line : lines.withCost) other.addItem(ui::ToQt(line));
    QApplication::processEvents();
  }
}

BENCHMARK(SearchToTheFarEnd)->Name("HistorySearch")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ReadBackwards)->Name("HistorySearch/plain")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ShowHit)->Name("HistoryHit")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ReadTextAndFillLists)->Name("HistoryHit/plain")->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
