#include "records/inventory/InventoryKits.h"

#include <algorithm>
#include <stdexcept>

#include "frame/Numbers.h"
#include "records/Contention.h"
#include "records/FileNumber.h"
#include "records/OpenedFile.h"

namespace lantos {

namespace {

constexpr std::string_view kKitMark = "KIT:";
constexpr const char* kOne = "1";

// Where the record behind the last one begins.
std::uint64_t EndOfRecords(std::uint64_t length) {
  return (length + InventoryKitRecord::kLength - 1) / InventoryKitRecord::kLength * InventoryKitRecord::kLength;
}

// What stands between the first "(" and the ")" behind it; empty without one.
std::string_view Bracketed(std::string_view text) {
  const std::size_t open = text.find('(');
  if (open == std::string_view::npos) return {};
  return text.substr(open + 1, text.find(')', open) - open - 1);
}

Cents DollarsToCents(std::string_view text) { return NumberInFile(text, 100); }

}  // namespace

KitLineTexts SplitKitLine(std::string_view line) {
  const std::string_view used = TrimView(line.substr(0, inventorykit::kLineUsed));
  KitLineTexts texts{Trim(used.substr(0, used.find('('))), Trim(Bracketed(used))};
  if (texts.quantity.empty()) texts.quantity = kOne;
  return texts;
}

std::string JoinKitLine(const KitLineTexts& texts) {
  if (texts.quantity == kOne) return texts.partNumber;
  return texts.partNumber + "(" + texts.quantity + ")";
}

std::string WhyNoKitLine(const KitLineTexts& texts) {
  const std::string line = JoinKitLine(texts);
  if (texts.partNumber.find('(') != std::string::npos) {
    return "Part " + texts.partNumber + " can not be in a kit: what follows \"(\" would be read as a quantity.";
  }
  if (line.size() <= inventorykit::kLineUsed) return {};
  return line + " is too long for a kit, which has room for " + std::to_string(inventorykit::kLineUsed) +
         " characters of part number and quantity.";
}

KitComponent ParseKitLine(std::string_view line) {
  const KitLineTexts texts = SplitKitLine(line);
  return {texts.partNumber, NumberInFile(texts.quantity)};
}

std::string KitLine(const KitComponent& component) {
  return JoinKitLine({component.partNumber, std::to_string(component.quantity)});
}

std::vector<KitComponent> ComponentsOf(const InventoryKitRecord& kit) {
  std::vector<KitComponent> components;
  for (std::size_t i = 0; i < inventorykit::kLineCount; ++i) {
    const std::string_view used = kit.View(TextField{inventorykit::Line(i).offset, inventorykit::kLineUsed});
    if (!used.empty()) components.push_back(ParseKitLine(used));
  }
  return components;
}

bool IsKit(std::string_view location) { return location.starts_with(kKitMark); }

KitPrices ParseKitPrices(std::string_view location) {
  const std::string_view prices = Bracketed(location);
  const std::size_t comma = prices.find(',');
  KitPrices parsed;
  parsed.sale = DollarsToCents(prices.substr(0, comma));
  if (comma != std::string_view::npos) parsed.list = DollarsToCents(prices.substr(comma + 1));
  return parsed;
}

FileHandle InventoryKits::OpenKitFile(Sharing sharing) {
  const bool exclusive = sharing == Sharing::Exclusive;
  OpenedFile file(environment_.openFiles);
  Contention contention(exclusive ? contention::kOpenKitsExclusive : contention::kOpenKitsShared, desktop_,
                        environment_);
  contention.Run([&] {
    if (exclusive) {
      file.Open(kKitFile, Access::ReadWrite, Deny::All);
    } else {
      file.Open(kKitFile, Access::Read, Deny::None);
    }
  });
  return file.Release();
}

FileLink InventoryKits::FindKit(std::string_view stockNumber, InventoryKitRecord& kit, FileHandle handle) {
  const std::string number = Trim(stockNumber);  // a copy: it may be a view into the record that is filled
  OpenedFile own(environment_.openFiles);
  if (handle == kNoHandle) {
    own.TakeOver(OpenKitFile(Sharing::Shared));
    handle = own.Handle();
  }
  if (handle != kNoHandle) {
    const SharedFile& file = environment_.openFiles[handle];
    const std::uint64_t length = file.Length();
    for (std::uint64_t offset = 0; offset < length; offset += InventoryKitRecord::kLength) {
      file.ReadAt(offset, kit.Bytes());
      if (kit.View(inventorykit::KitNumber) == number) return LinkAtEnd(offset, kKitFile);
    }
  }
  kit = {};
  kit.Put(inventorykit::KitNumber, number);
  return kNoLink;
}

InventoryKits::Saving InventoryKits::Save(const InventoryKitRecord& kit, InventoryKitRecord* read) {
  OpenedFile file(environment_.openFiles);
  file.TakeOver(OpenKitFile(Sharing::Exclusive));
  if (!file.IsOpen()) return Saving::NotOpened;
  InventoryKitRecord found;
  FileLink offset = FindKit(kit.View(inventorykit::KitNumber), found, file.Handle());
  if (read != nullptr && !std::ranges::equal(found.Bytes(), read->Bytes())) {
    *read = found;
    return Saving::ChangedMeanwhile;
  }
  if (offset == kNoLink) offset = LinkAtEnd(EndOfRecords(file->Length()), kKitFile);
  WriteRecord(*file, offset, kit);
  file.Close();
  environment_.files.FlushFile(kKitFile);
  return Saving::Stored;
}

std::vector<std::string> InventoryKits::KitNumbers() {
  std::vector<std::string> numbers;
  OpenedFile file(environment_.openFiles);
  file.TakeOver(OpenKitFile(Sharing::Shared));
  if (!file.IsOpen()) return numbers;
  InventoryKitRecord kit;
  const std::uint64_t length = file->Length();
  for (std::uint64_t offset = 0; offset < length; offset += InventoryKitRecord::kLength) {
    file->ReadAt(offset, kit.Bytes());
    std::string number = kit.Get(inventorykit::KitNumber);
    if (!number.empty()) numbers.push_back(std::move(number));
  }
  return numbers;
}

}  // namespace lantos
