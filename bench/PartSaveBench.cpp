#include <benchmark/benchmark.h>

#include <array>
#include <string>

#include "bench/BenchShop.h"
#include "bench/PlainFiles.h"
#include "records/inventory/PartUpdate.h"

// A part is saved whose four alternates were all changed, in a list of 100,000: four parts come to know it, or forget
// it. Plain is the same opens with the claim that each makes and its look whether the file still lies at its path,
// reads, writes and lines of the run log, made bare, and the turn at the tag file.
namespace lantos::bench {

namespace {

constexpr Inventory::PartIndex kPart = 50'000;
constexpr Inventory::PartIndex kApart = 7;  // the alternates, from the part and from one another
constexpr int kParts = 5;                   // that are read and written

// All tags at once, and where each lies: as the background load and some work leave them.
void LoadInventory(World& world) {
  Inventory& inventory = world.records.inventory;
  inventory.SizeArrays();
  SharedFile file(world.environment.files.PathOf(kInventoryTagFile), Access::Read, Deny::None);
  InventoryTag tag;
  const std::uint64_t length = file.Length();
  for (std::uint64_t offset = 0; offset < length; offset += InventoryTag::kLength) {
    file.ReadAt(offset, tag.Bytes());
    inventory.SetLocation(inventory.AppendTag(tag), static_cast<FileLink>(offset));
  }
  inventory.FindPart("indexed at the first look");
}

enum class Alternates { None, Four };
void SetAlternates(Inventory& inventory, Inventory::PartIndex index, Alternates alternates) {
  UpdatePart(inventory, index, [&](InventoryRecord& part) {
    for (Inventory::PartIndex i = 0; i < 4; ++i) {
      const InventoryTag& other = inventory.Tag(kPart + kApart * (i + 1));
      part.Put(inventory::AltNumber[i], alternates == Alternates::Four ? other.View(inventorytag::StockNumber) : "");
    }
  });
}

void SavePart(benchmark::State& state) {
  World world(PartsShop());
  world.environment.log.Open();
  LoadInventory(world);
  Inventory& inventory = world.records.inventory;
  for (int i = 0; i < kParts; ++i) SetAlternates(inventory, kPart + kApart * i, Alternates::None);  // of the sample
  Alternates alternates = Alternates::None;
  for (auto _ : state) {
    alternates = alternates == Alternates::None ? Alternates::Four : Alternates::None;
    SetAlternates(inventory, kPart, alternates);
  }
  world.environment.log.Close();
}

void SaveBare(benchmark::State& state) {
  PlainFiles files(PartsShop(), PlainFiles::Look::AtPath);
  for (auto _ : state) {
    const PlainFiles::Turn turn(files, kInventoryTagFile);
    for (int i = 0; i < kParts; ++i) {
      const off_t part = kPart + kApart * i;
      const off_t tag = part * static_cast<off_t>(InventoryTag::kLength);
      const off_t master = part * static_cast<off_t>(InventoryRecord::kLength);
      files.Read(kInventoryTagFile, tag, InventoryTag::kLength);  // what was read is what is written
      files.Write(kInventoryTagFile, tag, InventoryTag::kLength);
      files.Read(kInventoryFile, master, InventoryRecord::kLength);
      files.Write(kInventoryFile, master, InventoryRecord::kLength);
      files.Log(1);
    }
  }
}

BENCHMARK(SavePart)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(SaveBare)->Name("SavePart/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
