#include "contents/conversion/HalfDone.h"

#include <algorithm>

#include "frame/Numbers.h"
#include "records/modSystem.h"
#include "screens/CheckPassword.h"
#include "workorders/JournalsOnDisk.h"
#include "workorders/StockRepair.h"

namespace lantos {

namespace {

constexpr const char* kTitle = "Convert to WO";

std::string NameOf(const BegunConversion& begun) {
  return "The conversion of estimate # " + FormatZeros(begun.estimate, 6) + " to work order # " +
         FormatZeros(begun.workorder, 6);
}

}  // namespace

void HalfDone::Settle(const std::vector<std::string>& journals) {
  for (const std::string& name : journals) {
    try {
      SettleOne(name);
    } catch (const std::exception& error) {
      shop_.desktop.EndEvent(error);
    }
  }
}

HalfDone::Settled HalfDone::SettleOf(std::int32_t estimate) {
  onlyOf_ = estimate;
  std::vector<std::string> names;
  for (const JournalOnDisk& journal : LookAtJournals(shop_.environment)) {
    if (journal.unreadable) TellUnreadable(journal.name, *journal.unreadable);
    if (journal.begun && journal.begun->estimate == estimate) names.push_back(journal.name);
  }
  Settle(names);
  const bool isLeft = FindConversionOf(LookAtJournals(shop_.environment), estimate) != nullptr;
  if (isLeft && settled_ == Settled::NothingLeft) settled_ = Settled::StaysHalfDone;
  return settled_;
}

std::optional<ConversionJournal> HalfDone::OpenLeft(const std::string& name) {
  std::optional<ConversionJournal> journal;
  try {
    journal.emplace(shop_.environment, shop_.desktop, name);
  } catch (const FileError& error) {
    // Its copy is at work, or another one is settling it or has just done so.
    if (error.Number() == FileErrorNumber::PermissionDenied) {
      if (onlyOf_ != 0) TellIfRunning(name);
      return std::nullopt;
    }
    if (error.Number() == FileErrorNumber::FileNotFound) return std::nullopt;
    shop_.environment.log.Write(error.what());
    TellUnreadable(name, FileFailure(error));
  }
  return journal;
}

void HalfDone::TellUnreadable(const std::string& name, const FileFailure& failure) {
  const std::string what = name + ", the journal of a conversion that was not finished, can not be read";
  shop_.desktop.Tell(InWords(failure, what), kTitle, ui::Icon::Exclamation);
}

void HalfDone::TellIfRunning(const std::string& name) {
  for (const JournalOnDisk& journal : LookAtJournals(shop_.environment)) {
    if (journal.name == name && journal.begun) {
      shop_.desktop.Tell(BeingConverted(*journal.begun), kTitle, ui::Icon::Exclamation);
    }
  }
}

void HalfDone::SettleOne(const std::string& name) {
  std::optional<ConversionJournal> journal = OpenLeft(name);
  if (!journal) return;
  const std::optional<BegunConversion> begun = ReadJournal(journal->Content());
  if (onlyOf_ != 0 && (!begun || begun->estimate != onlyOf_)) return;
  if (!begun) return TellOfDamage(*journal);
  if (begun->estimate != 0 && begun->hasNumber && !begun->isUndone) return SettleBegun(*begun, *journal);
  if (begun->estimate != 0 && !begun->hasNumber) TellOfNumber(*begun);
  journal->Remove();
}

void HalfDone::TellOfDamage(ConversionJournal& journal) {
  const ui::Answer answer = shop_.desktop.Ask(journal.Name() +
                                                  ", the journal of a conversion that was not finished, is "
                                                  "damaged.\rLook at the newest work orders, and at the "
                                                  "stock of their parts.\r\rDelete the journal?",
                                              kTitle, ui::Buttons::YesNo, ui::Icon::Exclamation);
  if (answer == ui::Answer::Yes) journal.Remove();
}

// It ended at the very write of the counter: whether that took place nobody knows, and nothing else did. A number that
// may be somebody's is never given twice.
void HalfDone::TellOfNumber(const BegunConversion& begun) {
  modSystem& system = shop_.records.system;
  system.ReadSystem();
  if (system.SysRec.Get(sysrec::last_workorder_number) <= begun.workorder ||
      workorders_.FilesOf(begun.workorder).Any()) {
    return;
  }
  shop_.desktop.Tell(NameOf(begun) + " ended before anything of it was done. Number " +
                         FormatZeros(begun.workorder, 6) + " may stay unused.",
                     kTitle, ui::Icon::Information);
}

void HalfDone::SettleBegun(const BegunConversion& begun, ConversionJournal& journal) {
  const Workorders::FilesWritten written = workorders_.FilesOf(begun.workorder);
  // Who reads tags may have made the work order a paper already: from there on the only way is ahead.
  const bool canUndo = !written.Any() && !begun.hasFiles;
  const std::string text = NameOf(begun) + " was not finished." + WhatIsDone(begun, written) +
                           (canUndo ? "\r\rClick Yes to finish it, No to undo it, or Cancel to decide later."
                                    : "\r\rClick Yes to finish it, or No to decide later.");
  const ui::Answer answer =
      shop_.desktop.Ask(text, kTitle, canUndo ? ui::Buttons::YesNoCancel : ui::Buttons::YesNo, ui::Icon::Question);
  const bool undoes = canUndo && answer == ui::Answer::No;
  if ((answer != ui::Answer::Yes && !undoes) || !MayEnter(shop_, Section::Workorders)) return;
  if (undoes) return Undo(begun, journal);
  settled_ = Settled::Finished;
  if (finish_(begun, journal) == Finishing::NotPossible) OfferToLeave(begun, journal);
}

// Else it would be asked about at each start, for ever.
void HalfDone::OfferToLeave(const BegunConversion& begun, ConversionJournal& journal) {
  RunLog& log = shop_.environment.log;
  const ui::Answer answer = shop_.desktop.Ask(
      NameOf(begun) +
          " can not be finished: its estimate or its customer is not on file.\r\rLeave it as it is, and don't ask "
          "again?\rWhat was done of it goes to the log of this run, " +
          log.Name() + ".",
      kTitle, ui::Buttons::YesNo, ui::Icon::Question);
  if (answer != ui::Answer::Yes) return;
  log.Write(NameOf(begun) + " was left as it is. " + journal.Name() + " had:");
  std::string content = journal.Content();
  for (std::size_t end = content.find("\r\n"); end != std::string::npos; end = content.find("\r\n")) {
    log.Write(content.substr(0, end));
    content.erase(0, end + 2);
  }
  journal.Remove();
}

std::string HalfDone::WhatIsDone(const BegunConversion& begun, const Workorders::FilesWritten& written) {
  std::string text = "\rIt was begun " + (begun.where.empty() ? "" : "on " + begun.where + " ") + "at " + begun.when +
                     ". What was done:\r- the number was taken";
  const StockRepair stock(shop_.environment, shop_.desktop, shop_.records, begun.workorder);
  for (const JournaledPart& part : begun.parts) {
    const StockRepair::Use use = stock.UseOf(part);
    if (use == StockRepair::Use::Noted) text += "\r- the use of " + part.number + " was noted";
    if (use == StockRepair::Use::GivenUp) text += "\r- the use of " + part.number + " was not noted";
  }
  if (written.activeTag) text += "\r- the tag in " + std::string(kActiveTagFile) + " was written";
  if (written.archivedTag) text += "\r- the tag in " + std::string(kArchivedTagFile) + " was written";
  if (written.text) text += "\r- the work order was written to " + Workorders::FileNameOf(begun.workorder);
  if (begun.hasFiles && !written.text) text += "\r- the work order was written; it may have been closed since";
  return text;
}

void HalfDone::Undo(const BegunConversion& begun, ConversionJournal& journal) {
  StockRepair stock(shop_.environment, shop_.desktop, shop_.records, begun.workorder);
  // From the last to the first, so that each usage is the last record of its file.
  std::for_each(begun.parts.rbegin(), begun.parts.rend(), [&](const JournaledPart& part) { stock.TakeBack(part); });
  // From here on the number may be another one's.
  journal.IsUndone();
  std::string text = NameOf(begun) + " was undone.";
  if (!GiveNumberBack(begun.workorder)) text += "\rNumber " + FormatZeros(begun.workorder, 6) + " stays unused.";
  journal.Remove();
  if (!stock.ToBeCounted().empty()) text += "\r\rCount the stock of these parts, which was changed meanwhile:\r";
  for (const std::string& part : stock.ToBeCounted()) text += "\r" + part;
  shop_.desktop.Tell(text, kTitle, ui::Icon::Information);
}

bool HalfDone::GiveNumberBack(std::int32_t number) {
  bool isBack = false;
  shop_.records.system.Update([&](SystemRecord& record) {
    isBack = record.Get(sysrec::last_workorder_number) == number + 1;
    if (isBack) record.Put(sysrec::last_workorder_number, number);
  });
  return isBack;
}

}  // namespace lantos
