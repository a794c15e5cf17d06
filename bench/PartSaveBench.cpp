#include <benchmark/benchmark.h>

#include <array>
#include <string>

#include "bench/BenchShop.h"
#include "bench/PlainFiles.h"
#include "records/inventory/PartUpdate.h"

// A part is saved whose four alternates were all changed, in a list of 100,000: four parts come to know it, or forget
// it. Plain is the same opens with the claim that each makes, reads, writes and lines of the run log, made bare, and
// the turn at the tag file.
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
  for (std::uint64_t offset = 0; offset < file.Length(); offset += InventoryTag::kLength) {
    file.ReadAt(offset, tag.Bytes());
    inventory.SetLocation(inventory.AppendTag(tag), static_cast<FileLink>(offset));
  }
}

void SavePart(benchmark::State& state) {
  World world(PartsShop());
  world.environment.log.Open();
  LoadInventory(world);
  Inventory& inventory = world.records.inventory;
  bool named = false;
  for (auto _ : state) {
    named = !named;
    UpdatePart(inventory, kPart, [&](InventoryRecord& part) {
      for (Inventory::PartIndex i = 0; i < 4; ++i) {
        const InventoryTag& other = inventory.Tag(kPart + kApart * (i + 1));
        part.Put(inventory::AltNumber[i], named ? other.View(inventorytag::StockNumber) : "");
      }
    });
  }
  world.environment.log.Close();
}

void SaveBare(benchmark::State& state) {
  PlainFiles files(PartsShop());
  for (auto _ : state) {
    const PlainFiles::Turn turn(files, kInventoryTagFile);
    for (int i = 0; i < kParts; ++i) {
      const off_t part = kPart + kApart * i;
      files.Read(kInventoryTagFile, part * static_cast<off_t>(InventoryTag::kLength), InventoryTag::kLength);
      files.Read(kInventoryFile, part * static_cast<off_t>(InventoryRecord::kLength), InventoryRecord::kLength);
      files.Write(kInventoryTagFile, part * static_cast<off_t>(InventoryTag::kLength), InventoryTag::kLength);
      files.Write(kInventoryFile, part * static_cast<off_t>(InventoryRecord::kLength), InventoryRecord::kLength);
      files.Log(1);
    }
  }
}

BENCHMARK(SavePart)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(SaveBare)->Name("SavePart/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
