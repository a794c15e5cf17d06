#include "records/modSystem.h"

#include "records/Contention.h"
#include "records/OpenedFile.h"

namespace lantos {

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

std::int32_t modSystem::TakeNumber(LongField counter) {
  const FileHandle handle = ReadSystem(Then::StayOpen);
  const std::int32_t number = SysRec.Get(counter);
  // A counter at the end of its range (a damaged file) wraps.
  SysRec.Put(counter, static_cast<std::int32_t>(static_cast<std::uint32_t>(number) + 1));
  WriteSystem(handle);
  return number;
}

template <class... Statements>
void modSystem::RetryOrEnd(Statements... statements) {
  Contention contention(contention::kSystem, desktop_, environment_);
  const bool done = (contention.Run(statements) && ...);
  if (!done) desktop_.EndProcess(environment_.exitCodeOfGivingUp);
}

}  // namespace lantos
