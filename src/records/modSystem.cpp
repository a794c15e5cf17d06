#include "records/modSystem.h"

#include <limits>
#include <stdexcept>

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

std::int32_t modSystem::TakeNumber(LongField counter, const std::function<void(std::int32_t number)>& beforehand) {
  OpenedFile file(environment_.openFiles);
  file.TakeOver(ReadSystem(Then::StayOpen));
  const std::int32_t number = SysRec.Get(counter);
  if (number == std::numeric_limits<std::int32_t>::max()) {
    throw std::overflow_error("No number can be given any more: the running number of " + NameOf(counter) + " in " +
                              std::string(kSystemFile) + " stands at its end, " + std::to_string(number) + ".");
  }
  if (beforehand) beforehand(number);
  SysRec.Put(counter, number + 1);
  WriteSystem(file.Release());
  return number;
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
