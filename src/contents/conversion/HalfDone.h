#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "contents/conversion/Conversion.h"
#include "shop/Shop.h"
#include "workorders/ConversionJournal.h"
#include "workorders/Workorders.h"

namespace lantos {

// Conversions that ended in the middle, as their journals tell: says of each what is done, and finishes or undoes it as
// the person wants. One whose copy still runs is left alone.
class HalfDone {
 public:
  using Finish = std::function<Finishing(const BegunConversion& begun, ConversionJournal& journal)>;

  // finish shows the estimate and brings its conversion to the end; NotPossible when it isn't there.
  HalfDone(Shop& shop, Workorders& workorders, Finish finish)
      : shop_(shop), workorders_(workorders), finish_(std::move(finish)) {}

  // By the names of the journals. What fails is reported, and the journal stays.
  void Settle(const std::vector<std::string>& journals);
  // Those of one estimate, ahead of another conversion, which is begun where nothing is left of them alone. One that
  // another copy is at is told of.
  enum class Settled { NothingLeft, Finished, StaysHalfDone };
  Settled SettleOf(std::int32_t estimate);

 private:
  void SettleOne(const std::string& name);
  std::optional<ConversionJournal> OpenLeft(const std::string& name);
  void TellUnreadable(const std::string& name, const FileFailure& failure);
  void TellIfRunning(const std::string& name);
  void SettleBegun(const BegunConversion& begun, ConversionJournal& journal);
  void TellOfDamage(ConversionJournal& journal);
  void TellOfNumber(const BegunConversion& begun);
  std::string WhatIsDone(const BegunConversion& begun, const Workorders::FilesWritten& written);
  void OfferToLeave(const BegunConversion& begun, ConversionJournal& journal);
  void Undo(const BegunConversion& begun, ConversionJournal& journal);
  bool GiveNumberBack(std::int32_t number);

  Shop& shop_;
  Workorders& workorders_;
  Finish finish_;
  std::int32_t onlyOf_ = 0;  // 0: of any estimate
  Settled settled_ = Settled::NothingLeft;
};

}  // namespace lantos
