#include "workorders/Workorders.h"

#include "frame/Numbers.h"
#include "frame/UnfitFile.h"
#include "records/CheckList.h"
#include "records/Contention.h"
#include "records/GivenUp.h"
#include "records/OpenedFile.h"
#include "records/RecordArray.h"
#include "records/Vehicles.h"
#include "workorders/TagOfWorkorder.h"
#include "workorders/TagScan.h"

namespace lantos {

namespace {

constexpr std::size_t kNumberDigits = 6;

// Whether one of the tags of a file bears the number. GivenUp when it can't be read.
template <class Tag>
bool HasTag(Environment& environment, ui::Desktop& desktop, std::string_view name, std::int32_t number) {
  bool hasTag = false;
  LookAtNeededTags(environment, desktop, name, [&](const SharedFile& file) {
    LookAtTagsBothWays<Tag>(file, [&](const Tag& tag, TagRow row) {
      hasTag = hasTag || (tag.Get(wotag::WorkorderNumber) == number && (row == TagRow::Straight || LooksLikeATag(tag)));
    });
  });
  return hasTag;
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

// Nobody is asked about a file that a work order is being written to: its routine does that, or the failure ends it.
const ContentionRule& RuleFor(Access access) {
  return access == Access::Read ? contention::kReadWorkorderTags : contention::kMomentsPatience;
}

template <class Open>
FileHandle OpenTags(ui::Desktop& desktop, Environment& environment, Access access, const std::string& routine,
                    Open open) {
  FileHandle file = kNoHandle;
  Contention contention(RuleFor(access), desktop, environment, routine);
  contention.Run([&] { file = open(environment.openFiles); });
  return file;
}

FileHandle OpenActiveTags(ui::Desktop& desktop, Environment& environment, Access access) {
  return OpenTags(desktop, environment, access, "OpenActiveWOForReading(" + std::string(kActiveTagFile) + ")",
                  [access](OpenFiles& files) { return files.Open(kActiveTagFile, access, Deny::None); });
}

FileHandle OpenArchivedTags(ui::Desktop& desktop, Environment& environment, std::string_view caller, Access access) {
  return OpenTags(desktop, environment, access, "OpenArchWOForReading(" + std::string(kArchivedTagFile) + ")",
                  [caller, access](OpenFiles& files) { return files.OpenArchivedTagFile(caller, access); });
}

}  // namespace

void Workorders::Clear() {
  ClearWorkorder(Current);
  checkList_.ClearCheckListValues();
}

TextSurroundings Workorders::Around() { return {environment_.shopOptions, checkList_, environment_.Today()}; }

WorkorderReader Workorders::Reader(LineSource& lines, const TextSurroundings& around) {
  WorkorderReader reader(Current, around, desktop_, lines);
  reader.liveCustomer = [this](std::int32_t number, CustomerRecord& record) {
    return ReadLiveCustomer(number, record);
  };
  reader.unknownEntry = onUnknownEntry;
  return reader;
}

bool Workorders::ReadLiveCustomer(std::int32_t number, CustomerRecord& record) {
  Customers& customers = records_.customers;
  if (customers.Count() == 0) customers.LoadCustomerTags();
  const std::size_t index = customers.IndexOf(number);
  if (index == customers.Count()) return false;
  const std::optional<CustomerRecord> master = customers.Master(customers.Tag(index));
  if (master) record = *master;
  return master.has_value();
}

bool Workorders::GetCurrWoRec(FileHandle* keptOpen) {
  Clear();
  const std::string name = CurrentActiveTag.Get(wotag::FileName);
  OpenedFile file(environment_.openFiles);
  if (!OpenWorkorderFile(name, file)) return false;
  RefuseTooLong(environment_.files.PathOf(name), file->Length(), kLongestTextFile);
  TextLineReader lines(*file, 0, name);
  const TextSurroundings around = Around();
  WorkorderReader reader = Reader(lines, around);
  std::string line;
  for (bool more = lines.Next(line); more;) {
    reader.ParseWoSection(line);
    if (!line.starts_with(kWorkorderHeading)) more = lines.Next(line);  // which may stand behind a check list
  }
  if (keptOpen != nullptr) *keptOpen = file.Release();
  return true;
}

bool Workorders::OpenWorkorderFile(const std::string& name, OpenedFile& file) {
  Contention find(contention::kFindWorkorderFile, desktop_, environment_, name);
  Contention open(contention::kOpenWorkorderFile, desktop_, environment_, name);
  const bool isThere = find.Run([&] {
    if (!IsPlainName(name) || !environment_.files.FileExists(name))
      throw FileError(FileErrorNumber::FileNotFound, name);
  });
  return isThere &&
         open.Run([&] { file.TakeOver(environment_.openFiles.Open(name, Access::Read, Deny::All, Absent::Fail)); });
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
  Contention contention(contention::kOpenArchive, desktop_, environment_, kArchiveFile);
  if (!contention.Run(
          [&] { file.TakeOver(environment_.openFiles.Open(kArchiveFile, Access::Read, Deny::None, Absent::Fail)); })) {
    return false;
  }
  TextLineReader lines(*file, static_cast<std::uint64_t>(masterOffset), kArchiveFile);
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

FileHandle Workorders::OpenActiveWOForReading() { return OpenActiveTags(desktop_, environment_, Access::Read); }

FileHandle Workorders::OpenArchWOForReading(std::string_view caller) {
  return OpenArchivedTags(desktop_, environment_, caller.empty() ? "Workorders.OpenArchWOForReading" : caller,
                          Access::Read);
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

// False when another copy doesn't let go of its turn and the person waits no longer.
bool Workorders::AppendInTurn(SharedFile& file, std::string_view name, std::span<const std::byte> tag,
                              std::uint64_t unit) {
  Contention turn(contention::kAppendTurn, desktop_, environment_, name);
  return turn.Run([&] { file.Append(tag, unit); });
}

void Workorders::PrepareTag() { PutIntoTag(Current, CurrentActiveTag); }

void Workorders::WriteActiveWoTag() {
  PrepareTag();
  const std::string name(kActiveTagFile);
  Contention contention(contention::kConversionFile, desktop_, environment_, name);
  bool isInTurn = true;
  const bool isWritten = contention.Run([&] {
    OpenedFile file(environment_.openFiles, name, Access::Write, Deny::None);
    isInTurn = AppendInTurn(*file, name, CurrentActiveTag.Bytes(), ActiveWoTag::kLength);
    file.Close();
  });
  if (!isWritten || !isInTurn) throw GivenUp("The tag of the work order was not written to " + name + ".");
  environment_.files.FlushFile(std::string(kActiveTagFile));
}

bool Workorders::WriteArchivedWoTag() {
  PutIntoTag(CurrentActiveTag, kNoLink, CurrentArchivedTag);
  const std::string name(kArchivedTagFile);
  if (environment_.files.Length(name) % ArchivedWoTag::kLength != 0) {
    desktop_.Tell("Archived WO Tag File has invalid size", "WriteArchivedWoTag(" + name + ")");
  }
  Contention contention(contention::kWriteArchivedTag, desktop_, environment_, name);
  bool isInTurn = true;
  // Opened anew by each try: nobody is kept waiting while the person thinks.
  const bool isWritten = contention.Run([&] {
    OpenedFile file(environment_.openFiles);
    file.TakeOver(OpenArchivedTags(desktop_, environment_, "Workorders.WriteArchivedWoTag", Access::ReadWrite));
    environment_.log.Write("WriteArchivedWoTag: Opened " + name + " (update,fp=" + std::to_string(file.Handle()) + ")");
    isInTurn = AppendInTurn(*file, name, CurrentArchivedTag.Bytes(), 1);
    file.Close();
    if (isInTurn) environment_.files.FlushFile(name);
  });
  return isWritten && isInTurn;
}

Workorders::FilesWritten Workorders::FilesOf(std::int32_t workorderNumber) {
  FilesWritten written;
  written.activeTag = HasTag<ActiveWoTag>(environment_, desktop_, kActiveTagFile, workorderNumber);
  written.archivedTag = HasTag<ArchivedWoTag>(environment_, desktop_, kArchivedTagFile, workorderNumber);
  const std::string name = FileNameOf(workorderNumber);
  if (!environment_.files.IsThere(name)) return written;
  Contention contention(contention::kConversionFile, desktop_, environment_, name);
  const bool isRead = contention.Run([&] {
    OpenedFile text(environment_.openFiles, name, Access::Read, Deny::None);
    const std::uint64_t length = text->Length();
    std::byte last{1};
    if (length > 0) text->ReadAt(length - 1, std::span(&last, 1));
    written.text = last == std::byte{0};
  });
  if (!isRead) throw GivenUp("The work order in " + name + " could not be looked at.");
  return written;
}

void Workorders::WriteWorkorderFile() {
  const std::string text = WorkorderText(Current, Around()) + '\0';
  const std::string name = FileNameOf(Current.WorkorderNumber);
  Contention contention(contention::kConversionFile, desktop_, environment_, name);
  const bool isWritten = contention.Run([&] {
    OpenedFile file(environment_.openFiles, name, Access::Write, Deny::All);
    file->WriteAt(0, std::as_bytes(std::span(text)));
    file->Truncate(text.size());
    file->Close();  // what a mount tells at the close alone is asked about too
    file.Close();
  });
  if (!isWritten) throw GivenUp("The work order was not written to " + name + ".");
}

}  // namespace lantos
