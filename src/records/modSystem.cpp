#include "records/modSystem.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "frame/Numbers.h"
#include "records/Contention.h"
#include "records/OpenedFile.h"

namespace lantos {

namespace {

std::string NameOf(LongField counter) {
  if (counter.offset == sysrec::last_workorder_number.offset) return "the work orders";
  if (counter.offset == sysrec::last_estimate_number.offset) return "the estimates";
  if (counter.offset == sysrec::last_customer_number.offset) return "the customers";
  return "the employees";
}

std::int32_t NextFree(LongField counter, std::int32_t number, const modSystem::IsTaken& isTaken,
                      const modSystem::Highest& highest) {
  constexpr std::int32_t kLast = std::numeric_limits<std::int32_t>::max();
  std::int32_t next = std::max({number, 0, highest ? highest() : 0});
  while (next < kLast && isTaken(++next)) {
  }
  if (next == kLast) throw std::overflow_error("No number is free any more for " + NameOf(counter) + ".");
  return next;
}

}  // namespace

FileHandle modSystem::ReadSystem(Then then) {
  const bool keepOpen = then == Then::StayOpen;
  OpenedFile file(environment_.openFiles);
  const Access access = keepOpen ? Access::ReadWrite : Access::Read;
  RetryOrEnd([&] { file.Open(kSystemFile, access, Deny::All); }, [&] { ReadRecord(*file, 0, SysRec); });
  return keepOpen ? file.Release() : FileHandle{0};
}

void modSystem::WriteSystem(FileHandle handle) {
  OpenedFile file(environment_.openFiles);
  if (handle != kNoHandle) file.TakeOver(handle);
  RetryOrEnd(
      [&] {
        if (!file.IsOpen()) file.Open(kSystemFile, Access::Write, Deny::All);
      },
      [&] { WriteRecord(*file, 0, SysRec); });
}

std::int32_t modSystem::TakeNumber(LongField counter, const Told& beforehand) {
  return TakeNumberFrom(counter, std::numeric_limits<std::int32_t>::min(), beforehand);
}

std::int32_t modSystem::TakeNumberFrom(LongField counter, std::int32_t least, const Told& beforehand) {
  OpenedFile file(environment_.openFiles);
  file.TakeOver(ReadSystem(Then::StayOpen));
  const std::int32_t number = std::max(SysRec.Get(counter), least);
  if (number == std::numeric_limits<std::int32_t>::max()) {
    throw std::overflow_error("No number can be given any more: the running number of " + NameOf(counter) + " in " +
                              std::string(kSystemFile) + " stands at its end, " + std::to_string(number) + ".");
  }
  if (beforehand) beforehand(number);
  SysRec.Put(counter, number + 1);
  WriteSystem(file.Release());
  return number;
}

std::optional<std::int32_t> modSystem::TakeFreeNumber(LongField counter, const IsTaken& isTaken, const Taking& taking) {
  const auto isFree = [&](std::int32_t number) { return number > 0 && !isTaken(number); };
  Told beforehand;
  if (taking.beforehand) {
    beforehand = [&](std::int32_t number) {
      if (isFree(number)) taking.beforehand(number);
    };
  }
  std::int32_t number = taking.found ? *taking.found : TakeNumber(counter, beforehand);
  while (!isFree(number)) {
    const std::int32_t next = NextFree(counter, number, isTaken, taking.highest);
    if (!OffersNext(counter, number, next)) return std::nullopt;
    number = TakeNumberFrom(counter, next, beforehand);
  }
  return number;
}

bool modSystem::OffersNext(LongField counter, std::int32_t number, std::int32_t next) {
  const std::string counted = NameOf(counter);
  const std::string why = number < 1
                              ? "The running number of " + counted + " in " + std::string(kSystemFile) + " is lost."
                              : FormatZeros(number, 6) + ", the running number of " + counted + " in " +
                                    std::string(kSystemFile) + ", is in use already.";
  const std::string text = why + "\rThe file was emptied, or is older than the others.\r\rThe next free number is " +
                           FormatZeros(next, 6) + ".\rClick OK to go on from there, or CANCEL to stop.";
  return desktop_.Ask(text, "Next Number", ui::Buttons::OkCancel, ui::Icon::Exclamation) == ui::Answer::Ok;
}

void modSystem::Update(const std::function<void(SystemRecord& record)>& change) {
  OpenedFile file(environment_.openFiles);
  file.TakeOver(ReadSystem(Then::StayOpen));
  SystemRecord changed = SysRec;
  change(changed);
  SysRec = changed;
  WriteSystem(file.Release());
}

template <class... Statements>
void modSystem::RetryOrEnd(Statements... statements) {
  Contention contention(contention::kSystem, desktop_, environment_);
  const bool done = (contention.Run(statements) && ...);
  if (!done) desktop_.EndProcess(environment_.exitCodeOfGivingUp);
}

}  // namespace lantos
