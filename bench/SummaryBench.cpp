#include <benchmark/benchmark.h>

#include <fstream>

#include "bench/BenchShop.h"
#include "frame/Dates.h"
#include "printing/VehicleSummary.h"
#include "records/CheckList.h"
#include "records/Customers.h"
#include "records/OpenedFile.h"
#include "records/Vehicles.h"
#include "workorders/Workorders.h"

// The past of a vehicle out of 50,000 archived and 2,000 active tags, 20 of which are its own. Plain reads both tag
// files in the same blocks, and the twenty texts.
namespace lantos::bench {

namespace {

constexpr std::int32_t kArchived = 50000;
constexpr std::int32_t kActive = 2000;
constexpr std::int32_t kArchivedHits = 15;
constexpr std::int32_t kActiveHits = 5;
constexpr std::size_t kBlock = 256;  // tags
constexpr const char* kVin = "1HGCM82633A004352";

struct Text {
  std::string name;
  FileLink offset;
  std::size_t length;
};

struct History {
  std::filesystem::path directory;
  std::vector<Text> texts;  // of the hits
};

std::string TextOf(World& world, Workorder& order) {
  const TextSurroundings around{world.environment.shopOptions, world.records.checkList, kBenchDay};
  std::string text;
  for (const std::string& line : WorkorderLines(order, around)) text += line + "\r\n";
  return text;
}

Workorder MakeOrder(std::int32_t number, bool isHit) {
  Workorder order;
  ClearWorkorder(order);
  order.WorkorderNumber = number;
  order.Status = "PAID";
  order.Type = "Repair";
  order.Pricing = "Retail";
  order.Customer.Put(customer::Number, 1 + number % 10);
  order.Customer.Put(customer::Lastname, "Tanaka");
  order.Vehicle.Put(vehicle::Make, "Honda");
  order.Vehicle.Put(vehicle::VIN, isHit ? kVin : "VIN" + std::to_string(number));
  const FileDate date = ToFileDate(kBenchDay - 30 - number % 300);
  for (const LongField field : {wototals::DateOpen, wototals::DateClosed, wototals::DatePaid}) {
    order.Totals.Put(field, date);
  }
  for (int i = 0; i < 5; ++i) {
    WoLaborLine line;
    line.Mechanic = 3;
    line.Hours = 100 + i;
    line.Rate = line.Total = 8500;
    line.Desc = {"REPLACE FRONT BRAKE PADS", "RESURFACE ROTORS", "ROAD TEST"};
    order.Labor.Add(line);
    WoPartLine part;
    part.PartNumber = "BP-" + std::to_string(number + i);
    part.Description = "BRAKE PAD SET";
    part.Quantity = 1;
    part.Price = part.List = 4200;
    order.Parts.Add(part);
  }
  return order;
}

ActiveWoTag TagOf(const Workorder& order, const std::string& file) {
  ActiveWoTag tag;
  tag.Put(wotag::WorkorderNumber, order.WorkorderNumber);
  tag.Put(wotag::VIN, order.Vehicle.View(vehicle::VIN));
  tag.Put(wotag::Status, static_cast<std::uint8_t>(WoStatus::Paid));
  std::copy(order.Totals.Bytes().begin(), order.Totals.Bytes().end(), tag.Bytes().begin() + wotag::Totals.offset);
  tag.Put(wotag::FileName, file);
  return tag;
}

History MakeHistory() {
  History history{PartsShop(), {}};
  World world(history.directory);
  std::vector<ActiveWoTag> active;
  std::vector<ArchivedWoTag> archived;
  std::string archive;
  for (std::int32_t i = 0; i < kArchived + kActive; ++i) {
    const bool isActive = i >= kArchived;
    const std::int32_t step = isActive ? kActive / kActiveHits : kArchived / kArchivedHits;
    const std::int32_t place = isActive ? i - kArchived : i;
    const bool isHit = place % step == 1 && place / step < (isActive ? kActiveHits : kArchivedHits);
    Workorder order = MakeOrder(1000 + i, isHit);
    const std::string name = Workorders::FileNameOf(order.WorkorderNumber);
    const ActiveWoTag tag = TagOf(order, name);
    ArchivedWoTag copy;
    std::copy_n(tag.Bytes().begin(), wotag::MasterOffset.offset, copy.Bytes().begin());
    copy.Put(wotag::MasterOffset, isActive ? kNoLink : 0);
    if (isActive) active.push_back(tag);
    if (isHit) {
      const std::string text = TextOf(world, order);
      if (isActive) {
        std::ofstream(history.directory / name, std::ios::binary) << text << '\0';
        history.texts.push_back({name, 0, text.size() + 1});
      } else {
        copy.Put(wotag::MasterOffset, static_cast<FileLink>(archive.size()));
        history.texts.push_back({std::string(kArchiveFile), static_cast<FileLink>(archive.size()), text.size()});
        archive += text;
      }
    }
    archived.push_back(copy);
  }
  const auto write = [&](std::string_view name, std::span<const std::byte> bytes) {
    std::ofstream(history.directory / name, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  };
  write(kActiveTagFile, std::as_bytes(std::span(active)));
  write(kArchivedTagFile, std::as_bytes(std::span(archived)));
  write(kArchiveFile, std::as_bytes(std::span(archive)));
  return history;
}

const History& TheHistory() {
  static const History history = MakeHistory();
  return history;
}

void Summary(benchmark::State& state) {
  World world(TheHistory().directory);
  for (auto _ : state) {
    ReportLines lines(ReportLines::Amounts::None);
    const Customers::Reading reading(world.records.customers);
    VehicleSummary(world.environment, world.desktop, world.records).Compose(kVin, lines);
    if (lines.Rows().size() != 2 + 20 * 7) state.SkipWithError("not the twenty work orders");
  }
}

template <std::size_t Length>
void ReadTags(World& world, std::string_view name) {
  OpenedFile file(world.environment.openFiles, name, Access::Read, Deny::None);
  std::vector<Record<Length>> block(kBlock);
  for (std::uint64_t offset = 0; offset < file->Length(); offset += kBlock * Length) {
    file->ReadAt(offset, std::as_writable_bytes(std::span(block)));
    benchmark::DoNotOptimize(block.data());
  }
}

void ReadTagsAndTexts(benchmark::State& state) {
  World world(TheHistory().directory);
  for (auto _ : state) {
    ReadTags<ActiveWoTag::kLength>(world, kActiveTagFile);
    ReadTags<ArchivedWoTag::kLength>(world, kArchivedTagFile);
    for (const Text& each : TheHistory().texts) {
      OpenedFile file(world.environment.openFiles, each.name, Access::Read, Deny::None);
      std::string text(each.length, '\0');
      file->ReadAt(static_cast<std::uint64_t>(each.offset), std::as_writable_bytes(std::span(text)));
      benchmark::DoNotOptimize(text.data());
    }
  }
}

BENCHMARK(Summary)->Name("VehicleSummary")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ReadTagsAndTexts)->Name("VehicleSummary/plain")->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
