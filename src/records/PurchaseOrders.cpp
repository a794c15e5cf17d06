#include "records/PurchaseOrders.h"

#include <optional>

#include "frame/Text.h"
#include "records/Contention.h"
#include "records/FileNumber.h"
#include "records/OpenedFile.h"
#include "records/TextLines.h"

namespace lantos {

namespace {

constexpr std::string_view kSublets = "[Sublets]";
constexpr std::string_view kCredits = "[Credits]";

Cents DollarsToCents(std::string_view text) { return NumberInFile(text, 100); }

void AddSublets(const std::vector<std::string>& lines, std::int32_t orderNumber, std::vector<OrderedSublet>& sublets) {
  bool inSection = false;
  for (const std::string& line : lines) {
    if (!inSection) {
      inSection = Trim(line) == kSublets;
      continue;
    }
    if (Trim(line).empty() || Trim(line) == kCredits) return;
    OrderedSublet sublet = ParseSubletLine(line);
    if (sublet.price <= 0) continue;
    sublet.orderNumber = orderNumber;
    sublets.push_back(std::move(sublet));
  }
}

}  // namespace

OrderedSublet ParseSubletLine(std::string_view line) {
  OrderedSublet sublet;
  sublet.vendor = Trim(Mid(line, 1, 31));
  sublet.invoice = Trim(Mid(line, 32, 11));
  sublet.cost = DollarsToCents(Mid(line, 43, 11));
  sublet.price = DollarsToCents(Mid(line, 54, 12));
  sublet.description = Trim(Mid(line, 66, 64));
  return sublet;
}

std::vector<OrderedSublet> PurchaseOrders::GetOpenPOSublets() {
  std::vector<OrderedSublet> sublets;
  std::vector<std::string> missing;
  if (!environment_.files.IsThere(kOpenOrdersFile)) return sublets;
  OpenedFile file(environment_.openFiles);
  Contention tags(contention::kOpenOrders, desktop_, environment_,
                  "Purchase Orders tags file " + std::string(kOpenOrdersFile));
  if (!tags.Run([&] { file.Open(kOpenOrdersFile, Access::Read, Deny::None); })) return sublets;
  PoTag tag;
  const std::uint64_t length = file->Length();
  for (std::uint64_t offset = 0; offset < length; offset += PoTag::kLength) {
    if (!tags.Run([&] { file->ReadAt(offset, tag.Bytes()); })) return sublets;
    const std::int16_t status = tag.Get(potag::Status);
    const std::string name = tag.Get(potag::FileName);
    if ((status != kOrderClosed && status != kOrderOnAccount) || name.empty()) continue;
    std::optional<std::vector<std::string>> lines;
    Contention detail(contention::kOpenOrders, desktop_, environment_, "Purchase Order detail file (" + name + ")");
    const bool opened = detail.Run([&] {
      if (IsPlainName(name)) lines = ReadTextLines(environment_, name);
    });
    if (lines) AddSublets(*lines, tag.Get(potag::Number), sublets);
    if (opened && !lines) missing.push_back(name);
  }
  TellMissing(missing);
  return sublets;
}

void PurchaseOrders::TellMissing(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) {
    if (told_.insert(name).second) text += "Purchase Order detail file (" + name + ")\r";
  }
  if (!text.empty()) desktop_.Tell(text + "not found.  Skipped.", "Purchase Orders");
}

}  // namespace lantos
