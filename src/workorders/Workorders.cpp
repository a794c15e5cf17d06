#include "workorders/Workorders.h"

#include "frame/Numbers.h"
#include "records/CheckList.h"
#include "records/OpenedFile.h"
#include "records/Vehicles.h"
#include "shop/KeptRecords.h"

namespace lantos {

namespace {

constexpr std::string_view kLocked = "File locked by another user.";
constexpr std::size_t kNumberDigits = 6;

template <std::size_t Length>
void PutText(Record<Length>& tag, TextField field, std::string_view text) {
  tag.Put(field, text.substr(0, std::min<std::size_t>(text.find('\0'), field.width - 1)));
}

template <std::size_t Length>
bool ReadTag(ui::Desktop& desktop, OpenFiles& openFiles, FileHandle file, std::int64_t position, Record<Length>& tag,
             const std::string& routine) {
  if (position < 0) return true;
  if (position > 0 && position < static_cast<std::int64_t>(Length)) {
    desktop.Tell("Invalid offset supplied to " + routine + " = " + std::to_string(position), routine);
  }
  return openFiles[file].ReadAt(static_cast<std::uint64_t>(position), tag.Bytes()) < Length;
}

// Another copy that has just written its tag flushes the file, and has it alone for that moment.
constexpr int kTagTries = 20;
constexpr std::int64_t kTagPause = 100;  // milliseconds

template <class Open>
FileHandle OpenTags(Environment& environment, Open open) {
  for (int tries = 1;; ++tries) {
    try {
      return open(environment.openFiles);
    } catch (const FileError& error) {
      if (tries == kTagTries || error.Number() != FileErrorNumber::PermissionDenied) throw;
    }
    environment.clock.Wait(kTagPause);
  }
}

FileHandle OpenActiveTags(Environment& environment, Access access) {
  return OpenTags(environment, [access](OpenFiles& files) { return files.Open(kActiveTagFile, access, Deny::None); });
}

FileHandle OpenArchivedTags(Environment& environment, std::string_view caller, Access access) {
  return OpenTags(environment,
                  [caller, access](OpenFiles& files) { return files.OpenArchivedTagFile(caller, access); });
}

}  // namespace

void Workorders::Clear() {
  ClearWorkorder(Current);
  records_.checkList.ClearCheckListValues();
}

TextSurroundings Workorders::Around() { return {environment_.shopOptions, records_.checkList, environment_.Today()}; }

WorkorderReader Workorders::Reader(LineSource& lines, const TextSurroundings& around) {
  WorkorderReader reader(Current, around, desktop_, lines);
  reader.liveCustomer = [this](std::int32_t number, CustomerRecord& record) {
    return ReadLiveCustomer(number, record);
  };
  return reader;
}

// The customer that the screens work on stays theirs.
bool Workorders::ReadLiveCustomer(std::int32_t number, CustomerRecord& record) {
  Customers& customers = records_.customers;
  const KeptCustomer kept(customers);
  if (customers.Count() == 0) customers.LoadCustomerTags();
  if (customers.FindCustomerTag(number) == customers.Count() || !customers.ReadCustomer()) return false;
  record = customers.CurrentCustomer;
  return true;
}

bool Workorders::GetCurrWoRec(bool keepOpen, FileHandle* fileNumberOut) {
  Clear();
  const std::string name = CurrentActiveTag.Get(wotag::FileName);
  const auto tryAgain = [&](const std::string& text) {
    return desktop_.Ask(text + "\rClick Retry to try again, or Cancel to skip.", "GetCurrWoRec(" + name + ")",
                        ui::Buttons::RetryCancel) == ui::Answer::Retry;
  };
  while (name.empty() || !environment_.files.FileExists(name)) {
    if (!tryAgain("File not found: ")) return false;  // the name stands in the title alone
  }
  OpenedFile file(environment_.openFiles);
  while (!file.IsOpen()) {
    try {
      file.TakeOver(environment_.openFiles.Open(name, Access::Read, Deny::All, Absent::Fail));
    } catch (const FileError& error) {
      environment_.log.Write(std::string("GetCurrWoRec: ") + error.what());
      if (!tryAgain(std::string(kLocked))) return false;
    }
  }
  TextLineReader lines(*file);
  const TextSurroundings around = Around();
  WorkorderReader reader = Reader(lines, around);
  std::string line;
  for (bool more = lines.Next(line); more;) {
    reader.ParseWoSection(line);
    if (!line.starts_with(kWorkorderHeading)) more = lines.Next(line);  // which may stand behind a check list
  }
  if (keepOpen && fileNumberOut != nullptr) *fileNumberOut = file.Release();
  return true;
}

// Behind the heading of the text, up to the line that has the number. False when the text ends without it.
bool Workorders::FindInArchive(LineSource& lines, const std::string& number, std::string& line) {
  const auto hasNumber = [&number](std::string_view text) {
    return text.starts_with(kNumberKey) && text.substr(kNumberKey.size(), kNumberDigits) == number;
  };
  for (bool first = true;; first = false) {
    if (line.starts_with(kWorkorderHeading)) {
      if (!first) return false;
      line.erase(0, kWorkorderHeading.size());  // the first key may stand right behind it
    }
    if (hasNumber(line)) return true;
    if (!lines.Next(line)) return false;
  }
}

bool Workorders::GetArchWo(std::int32_t workorderNumber, FileLink masterOffset) {
  if (masterOffset < 0 || workorderNumber == 0) return false;
  // A wider number is told apart by its first digits alone.
  const std::string number = Left(FormatZeros(workorderNumber, kNumberDigits), kNumberDigits);
  Clear();
  OpenedFile file(environment_.openFiles);
  while (!file.IsOpen()) {
    try {
      file.TakeOver(environment_.openFiles.Open(kArchiveFile, Access::Read, Deny::None, Absent::Fail));
    } catch (const FileError& error) {
      environment_.log.Write(std::string("GetArchWo: ") + error.what());
      if (desktop_.Ask(std::string(kLocked) + "\rClick Retry to try again, or Cancel to exit.",
                       "GetArchWo(" + std::string(kArchiveFile) + ")", ui::Buttons::RetryCancel) != ui::Answer::Retry) {
        return false;
      }
    }
  }
  TextLineReader lines(*file, static_cast<std::uint64_t>(masterOffset));
  const auto corrupted = [this](const char* what) {
    desktop_.Tell("Possible corrupted " + std::string(what) + " file - run KRVLCLEN", "GetArchWo()",
                  ui::Icon::Critical);
    return false;
  };
  std::string line;
  if (!lines.Next(line) || !line.starts_with(kWorkorderHeading)) return corrupted("tag");
  if (!FindInArchive(lines, number, line)) return corrupted("archive");
  const TextSurroundings around = Around();
  WorkorderReader reader = Reader(lines, around);
  reader.ReadHeader(line);
  Current.WorkorderNumber = workorderNumber;
  for (bool more = lines.Next(line); more && !line.starts_with(kWorkorderHeading);) {
    reader.ParseWoSection(line);
    if (line.starts_with(kWorkorderHeading)) break;
    more = lines.Next(line);
  }
  return true;
}

FileHandle Workorders::OpenActiveWOForReading() { return OpenActiveTags(environment_, Access::Read); }

FileHandle Workorders::OpenArchWOForReading(std::string_view caller) {
  return OpenArchivedTags(environment_, caller.empty() ? "Workorders.OpenArchWOForReading" : caller, Access::Read);
}

bool Workorders::ReadActiveWO(FileHandle file, std::int64_t position, ActiveWoTag& tag) {
  return ReadTag(desktop_, environment_.openFiles, file, position, tag, "ReadActiveWO");
}

bool Workorders::ReadArchWO(FileHandle file, std::int64_t position, ArchivedWoTag& tag) {
  return ReadTag(desktop_, environment_.openFiles, file, position, tag, "ReadArchWO");
}

std::string Workorders::FileNameOf(std::int32_t workorderNumber) {
  return "W" + FormatZeros(workorderNumber, 7) + ".tqa";
}

void Workorders::WriteActiveWoTag() {
  ActiveWoTag& tag = CurrentActiveTag;
  const CustomerRecord& owner = Current.Customer;
  tag.Put(wotag::WorkorderNumber, Current.WorkorderNumber);
  PutText(tag, wotag::CustomerName, owner.Get(customer::Lastname) + "," + owner.Get(customer::Firstname));
  tag.Put(wotag::CustomerNumber, owner.Get(customer::Number));
  PutText(tag, wotag::VIN, Current.Vehicle.View(vehicle::VIN));
  PutText(tag, wotag::LicenseNumber, Current.Vehicle.View(vehicle::LicenseNumber));
  tag.Put(wotag::Status, WoStatusCode(Current.Status, tag.Get(wotag::Status)));
  tag.Put(wotag::Type, WoTypeCode(Current.Type));
  tag.Put(wotag::TaxExempt, owner.View(customer::tax_id_number).empty() ? 0 : 1);
  std::copy(Current.Totals.Bytes().begin(), Current.Totals.Bytes().end(), tag.Bytes().begin() + wotag::Totals.offset);
  PutText(tag, wotag::FileName, FileNameOf(Current.WorkorderNumber));
  OpenedFile file(environment_.openFiles);
  file.TakeOver(OpenActiveTags(environment_, Access::Write));
  file->Append(tag.Bytes(), ActiveWoTag::kLength);
  file.Close();
  environment_.files.FlushFile(std::string(kActiveTagFile));
}

bool Workorders::WriteArchivedWoTag() {
  ArchivedWoTag& tag = CurrentArchivedTag;
  std::copy_n(CurrentActiveTag.Bytes().begin(), wotag::MasterOffset.offset, tag.Bytes().begin());
  tag.Put(wotag::MasterOffset, kNoLink);
  const std::string name(kArchivedTagFile);
  if (environment_.files.Length(name) % ArchivedWoTag::kLength != 0) {
    desktop_.Tell("Archived WO Tag File has invalid size", "WriteArchivedWoTag(" + name + ")");
  }
  for (;;) {
    OpenedFile file(environment_.openFiles);
    try {
      file.TakeOver(OpenArchivedTags(environment_, "Workorders.WriteArchivedWoTag", Access::ReadWrite));
      environment_.log.Write("WriteArchivedWoTag: Opened " + name + " (update,fp=" + std::to_string(file.Handle()) +
                             ")");
      file->Append(tag.Bytes());
      file.Close();
      environment_.files.FlushFile(name);
      return true;
    } catch (const FileError& error) {
      file.Close();  // nobody is kept waiting while the operator thinks
      environment_.log.Write(std::string("WriteArchivedWoTag: ") + error.what());
      if (desktop_.Ask("Tag file locked by another user.\rClick Retry to try again, or Cancel to exit.",
                       "WriteArchivedWoTag(" + name + ")", ui::Buttons::RetryCancel) != ui::Answer::Retry) {
        return false;
      }
    }
  }
}

void Workorders::WriteWorkorderFile() {
  std::string text;
  for (const std::string& line : WorkorderLines(Current, Around())) text += line + "\r\n";
  text += '\0';
  OpenedFile file(environment_.openFiles, FileNameOf(Current.WorkorderNumber), Access::Write, Deny::All);
  file->WriteAt(0, std::as_bytes(std::span(text)));
  file->Truncate(text.size());
}

}  // namespace lantos
