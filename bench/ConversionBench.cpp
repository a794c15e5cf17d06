#include <benchmark/benchmark.h>

#include <chrono>

#include "bench/BoardBench.h"
#include "bench/PlainEngine.h"
#include "bench/PlainFiles.h"
#include "records/inventory/Inventory.h"
#include "records/inventory/UsageHistory.h"
#include "records/modSystem.h"
#include "workorders/Workorders.h"

// An estimate of 50 lines, 20 of them stock parts, becomes a work order: from the last question about it to the message
// that names it. Plain is the same opens with the claim that each makes and its look whether the file still lies at its
// path, reads, writes and flushes, made bare, the lines of the run log and of the conversion's journal among them, and
// the same statements.
namespace lantos::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::int32_t kEstimate = 1003;
constexpr int kStockParts = 20;
constexpr int kLaborLines = 30;
constexpr int kEverySeventh = 7;           // of the parts
constexpr int kLogLinesAPart = 4;          // on what was done, beside those of the closed files
constexpr int kJournalLinesAhead = 4;      // of the parts
constexpr std::size_t kTextLength = 6000;  // about as long as the text that the program writes

double Seconds(Clock::duration time) { return std::chrono::duration<double>(time).count(); }

void FillEstimate(Board& board) {
  Inventory& inventory = board.world.records.inventory;
  Engine& engine = board.database.lantosData.Connection();
  const std::string key = " where EstimateNumber = " + std::to_string(kEstimate);
  for (const char* table : {"Parts", "Labors", "Sublets", "Waste", "Notes"}) {
    engine.Run("delete from " + std::string(table) + key, {});
  }
  for (Inventory::PartIndex i = 0; i < kStockParts; ++i) {
    board.database.lantosData.AddPartRow(kEstimate, {inventory.Tag(i * kEverySeventh).Get(inventorytag::StockNumber),
                                                     "PART", 1, 4200, 4200, 2100, 4500});
  }
  for (int i = 0; i < kLaborLines; ++i) {
    board.database.lantosData.AddLabor(kEstimate, i + 1, "REPLACE FRONT BRAKE PADS\tROAD TEST\t\t\t\t\t\t", 100, 8500,
                                       8500, 3);
  }
}

// All tags at once, as the background load leaves them.
void LoadInventory(World& world) {
  Inventory& inventory = world.records.inventory;
  inventory.SizeArrays();
  SharedFile file(world.environment.files.PathOf(kInventoryTagFile), Access::Read, Deny::None);
  InventoryTag tag;
  for (std::uint64_t offset = 0; offset < file.Length(); offset += InventoryTag::kLength) {
    file.ReadAt(offset, tag.Bytes());
    inventory.AppendTag(tag);
  }
}

void Convert(benchmark::State& state, Trailing trailing) {
  Board board(FullDayShop(), trailing);
  LoadInventory(board.world);
  FillEstimate(board);
  frmMain& window = *board.window;
  ui::ListBox& day = window.week.List1[static_cast<std::size_t>(2)];
  Clock::time_point start, end;
  board.world.desktop.atForm = [](ui::Form& form) { form.Hide(); };
  board.world.desktop.atBox = [&](const ui::Box& box) {
    if (box.text.starts_with("Vehicle update")) start = Clock::now();
    if (box.text.starts_with("Estimate # ")) end = Clock::now();
    return box.buttons != ui::Buttons::YesNo       ? ui::Answer::Ok
           : box.text.starts_with("Change status") ? ui::Answer::No
                                                   : ui::Answer::Yes;
  };
  for (auto _ : state) {
    day.DoSelect(day.FindData(kEstimate));
    window.commands.cmdConvert.OnClick();
    state.SetIterationTime(Seconds(end - start));
  }
}

// What is written bare is no work order, so the shop that it goes to is nobody else's; the estimate is the same.
const std::filesystem::path& BareShop() {
  static const std::filesystem::path shop = [] {
    const std::filesystem::path copy = FullDayShop().parent_path() / "bare";
    std::filesystem::copy(FullDayShop(), copy, std::filesystem::copy_options::recursive);
    Board board(copy, Trailing::Off);
    LoadInventory(board.world);
    FillEstimate(board);
    return copy;
  }();
  return shop;
}

void RunBare(benchmark::State& state) {
  const std::filesystem::path directory = BareShop();
  PlainFiles files(directory, PlainFiles::Look::AtPath);
  PlainFiles longer(FullDayShop(), PlainFiles::Look::AtPath);  // with the tags of all that was converted so far
  PlainEngine engine(directory / "Lantos.mdb");
  const std::string key = " where EstimateNumber = " + std::to_string(kEstimate);
  std::vector<sqlite3_stmt*> reads;
  for (const char* table : {"Parts", "Labors", "Sublets", "Waste", "Notes"}) {
    reads.push_back(engine.Prepare(("select * from " + std::string(table) + key).c_str()));
  }
  sqlite3_stmt* comments = engine.Prepare(("update Estimates set Comments = 'Workorder # 012001'" + key).c_str());
  std::int32_t number = 900'000;
  for (auto _ : state) {
    const Clock::time_point start = Clock::now();
    files.Read(kSystemFile, 0, SystemRecord::kLength);
    for (const std::string_view tags : {kActiveTagFile, kArchivedTagFile}) longer.ReadAll(tags);
    PlainFiles::Journal journal(files, "PLAIN.JNL");
    for (int i = 0; i < kJournalLinesAhead; ++i) journal.Line();
    files.Write(kSystemFile, 0, SystemRecord::kLength);
    journal.Force();
    for (sqlite3_stmt* read : reads) engine.Run(read);
    for (int i = 0; i < kStockParts; ++i) {
      const PlainFiles::Turn turn(files, kInventoryTagFile);
      const off_t tag = i * kEverySeventh * static_cast<off_t>(InventoryTag::kLength);
      const off_t master = i * kEverySeventh * static_cast<off_t>(InventoryRecord::kLength);
      files.Read(kInventoryTagFile, tag, InventoryTag::kLength);
      files.Write(kInventoryTagFile, tag, InventoryTag::kLength);
      files.Read(kInventoryFile, master, InventoryRecord::kLength);
      files.Write(kInventoryFile, master, InventoryRecord::kLength);
      journal.Line();
      files.Write(kUsageFile, PlainFiles::kAtTheEnd, UsageRecord::kLength);
      files.Flush(kUsageFile);
      journal.Line();
      files.Log(kLogLinesAPart);
    }
    journal.Force();
    files.Write(kActiveTagFile, PlainFiles::kAtTheEnd, ActiveWoTag::kLength);
    files.Flush(kActiveTagFile);
    files.Write(kArchivedTagFile, PlainFiles::kAtTheEnd, ArchivedWoTag::kLength);
    files.Flush(kArchivedTagFile);
    files.Write(Workorders::FileNameOf(number++), 0, kTextLength);
    journal.Force();
    engine.Run(comments);
    state.SetIterationTime(Seconds(Clock::now() - start));
  }
}

void WithTrail(benchmark::State& state) { Convert(state, Trailing::On); }
void WithoutTrail(benchmark::State& state) { Convert(state, Trailing::Off); }

BENCHMARK(WithoutTrail)->Name("Conversion")->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(RunBare)->Name("Conversion/plain")->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(WithTrail)->Name("TrailedConversion")->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(WithoutTrail)->Name("TrailedConversion/plain")->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace

}  // namespace lantos::bench
