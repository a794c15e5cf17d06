#pragma once

#include "ConversionBench.h"
#include "contents/conversion/HalfDone.h"
#include "frame/ScratchDirectory.h"
#include "records/inventory/UsageHistory.h"
#include "support/FaultyCalls.h"

namespace lantos::test {

// A conversion that ends in the middle, as by a power cut, and what a person makes of its journal. Two parts and a line
// of labor; nothing that asks.
struct HalfDoneBench : ConversionBench {
  HalfDoneBench() {
    AddPart("PAD-9", 6, 2);
    AddPart("OIL-1", 40, 5);
    directory.Put("TQUSEHST.DAT", "");
    database.lantosData.AddLabor(1001, 1, "Look", 100, 6500, 6500, 0);
  }

  // In front of the n-th call that would have changed a file, counted from 0. False when it came to its end before.
  bool KillConversionAt(std::size_t change) {
    return InChild([&] {
             desktop.otherwise = Agrees;
             FaultyCalls calls(directory.Path());
             std::size_t changes = 0;
             calls.When([&](const FileCall& call, std::size_t) {
               if (Changes(call) && changes++ == change) ::kill(::getpid(), SIGKILL);
               return 0;
             });
             Convert();
             return 0;
           }) == -SIGKILL;
  }
  // In front of the first call on the file that changes it.
  void KillConversionAtWriteOf(const std::string& name) {
    EXPECT_EQ(InChild([&] {
                desktop.otherwise = Agrees;
                FaultyCalls calls(directory.Path());
                calls.When([&](const FileCall& call, std::size_t) {
                  if (Changes(call) && call.name == name) ::kill(::getpid(), SIGKILL);
                  return 0;
                });
                Convert();
                return 0;
              }),
              -SIGKILL)
        << name;
  }

  // In front of the box that names its number.
  void EndConversionBehindItsText() {
    EXPECT_EQ(InChild([&] {
                desktop.otherwise = [](const ui::Box& box) {
                  if (box.text.starts_with("Estimate # ")) ::kill(::getpid(), SIGKILL);
                  return Agrees(box);
                };
                Convert();
                return 0;
              }),
              -SIGKILL);
  }

  // Yes to all, and OK where there is nothing else; the new status is left alone.
  static ui::Answer Agrees(const ui::Box& box) {
    if (box.text.starts_with("Change status")) return ui::Answer::No;
    const std::vector<ui::Answer> answers = ui::ButtonsOf(box);
    const bool asks = std::find(answers.begin(), answers.end(), ui::Answer::Yes) != answers.end();
    return asks ? ui::Answer::Yes : ui::Answer::Ok;
  }

  std::vector<std::string> Journals() const { return environment.files.List(kJournalPattern); }
  HalfDone Unfinished() {
    return {shop, workorders, [this](const BegunConversion& begun, ConversionJournal& journal) {
              if (Ask("select count(*) from Estimates") == "0") return Finishing::NotPossible;
              database.estimates.LoadEstimate(begun.estimate);
              board.ShowComments(database.estimates.CurrentEstimate.Comments);
              return Conversion(bench, workorders).Finish(begun, journal);
            }};
  }
  void Settle() { Unfinished().Settle(Journals()); }
  HalfDone::Settled SettleOf(std::int32_t estimate) { return Unfinished().SettleOf(estimate); }
  void Finish() {
    desktop.otherwise = Agrees;
    Settle();
  }
  void Undo() {
    desktop.otherwise = [](const ui::Box& box) {
      return box.buttons == ui::Buttons::YesNoCancel ? ui::Answer::No : Agrees(box);
    };
    Settle();
  }

  static constexpr std::size_t kTagLength = 128, kStockInTag = 76, kMasterLength = 344, kStockInMaster = 331;
  std::int32_t StockInTag(std::size_t part) const { return ShortAt("TQINVTAG.DAT", kTagLength * part + kStockInTag); }
  std::int32_t StockInMaster(std::size_t part) const {
    return ShortAt("TQINVENT.DAT", kMasterLength * part + kStockInMaster);
  }
  std::int32_t ShortAt(const std::string& name, std::size_t offset) const {
    return ShortIn(directory.Content(name), offset);
  }
  static std::int32_t ShortIn(const std::string& bytes, std::size_t offset) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes.at(at)); };
    return static_cast<std::int16_t>(byte(offset) | byte(offset + 1) << 8);
  }
  std::size_t Usages() const { return directory.Content("TQUSEHST.DAT").size() / UsageRecord::kLength; }
  std::size_t Tags(const std::string& name, std::size_t length) const {
    return directory.Content(name).size() / length;
  }

  // A number, both tags, the text to its end, and each part out of the stock once.
  void ExpectWhole() {
    EXPECT_EQ(NextNumber(), 5002);
    EXPECT_EQ(Tags("TQOPENWO.DAT", ActiveWoTag::kLength), 1u);
    EXPECT_EQ(Tags("TQINCTAG.DAT", ArchivedWoTag::kLength), 1u);
    const std::string text = directory.Content("W0005001.tqa");
    EXPECT_THAT(text, testing::StartsWith("[Workorder]\r\nWorkorderNumber=005001\r\n"));
    EXPECT_THAT(text, testing::EndsWith(std::string(1, '\0')));
    ExpectStock(4, 35);
    EXPECT_EQ(Usages(), 2u);
    EXPECT_EQ(StoredComments(), "Workorder # 005001 Call first");
  }
  void ExpectUntouched() {
    ExpectStock(6, 40);
    EXPECT_EQ(Usages(), 0u);
    EXPECT_EQ(Tags("TQOPENWO.DAT", ActiveWoTag::kLength), 0u);
    EXPECT_EQ(Tags("TQINCTAG.DAT", ArchivedWoTag::kLength), 0u);
    EXPECT_FALSE(IsThere("W0005001.tqa"));
  }
  void ExpectStock(std::int32_t pads, std::int32_t oil) const {
    EXPECT_EQ(StockInTag(0), pads);
    EXPECT_EQ(StockInMaster(0), pads);
    EXPECT_EQ(StockInTag(1), oil);
    EXPECT_EQ(StockInMaster(1), oil);
  }
  bool WasTold(const std::string& text) const {
    return std::any_of(desktop.boxes.begin(), desktop.boxes.end(),
                       [&](const ui::Box& box) { return box.text.find(text) != std::string::npos; });
  }
};

}  // namespace lantos::test
