#include "shop/HalfStored.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <utility>

#include "frame/FileCause.h"
#include "frame/JournalLines.h"
#include "frame/UpdateTurns.h"
#include "records/Customers.h"
#include "records/Vehicles.h"
#include "records/WriteAhead.h"
#include "records/inventory/InventoryLayout.h"

namespace lantos {

namespace {

constexpr const char* kTitle = "Records";
// Nothing else is ever written from a journal, whatever stands in it.
constexpr std::array kFiles = {kCustomerTagFile, kCustomerFile, kVehicleFile, kInventoryTagFile, kInventoryFile};

// The files of a journal, nobody else in them.
class HeldFiles {
 public:
  HeldFiles(Environment& environment, const WrittenAhead& ahead) : environment_(environment) {
    for (const RecordBytes& record : ahead.records) {
      if (Find(record.file) != nullptr) continue;
      files_.push_back(
          {record.file, SharedFile(environment.files.PathOf(record.file), Access::ReadWrite, Deny::All, Absent::Fail)});
    }
  }

  std::string At(const RecordBytes& record) {
    std::string bytes(record.after.size(), '\0');
    bytes.resize(Find(record.file)->ReadAt(record.offset, std::as_writable_bytes(std::span(bytes))));
    return bytes;
  }
  void Write(const RecordBytes& record) {
    Find(record.file)->WriteAt(record.offset, std::as_bytes(std::span(record.after)));
  }
  void Flush() {
    for (auto& [name, file] : files_) file.Close();
    for (const auto& [name, file] : files_) environment_.files.FlushFile(name);
  }

 private:
  SharedFile* Find(std::string_view name) {
    const auto found = std::find_if(files_.begin(), files_.end(), [&](const auto& each) { return each.first == name; });
    return found == files_.end() ? nullptr : &found->second;
  }

  Environment& environment_;
  std::vector<std::pair<std::string, SharedFile>> files_;
};

bool NamesRecordsAlone(const WrittenAhead& ahead) {
  return std::ranges::all_of(ahead.records, [](const RecordBytes& record) {
    return std::find(kFiles.begin(), kFiles.end(), record.file) != kFiles.end();
  });
}

std::string NameOf(const WrittenAhead& ahead) {
  return ahead.what + " was being stored " + (ahead.where.empty() ? "" : "on " + ahead.where + " ") + "at " +
         ahead.when + " when the program ended.";
}

// What is to be told, once nobody is kept from the files any more.
struct Word {
  std::string text;  // empty: nothing
  ui::Icon icon = ui::Icon::Information;
};

// All that wasn't written yet, where a part was. What others have written since stays theirs.
Word Finish(Environment& environment, const WrittenAhead& ahead) {
  HeldFiles files(environment, ahead);
  const auto isWritten = [&](const RecordBytes& record) { return files.At(record) == record.after; };
  const auto isAsBefore = [&](const RecordBytes& record) { return files.At(record) == record.before; };
  const std::vector<RecordBytes>& records = ahead.records;
  const bool hasBegun = std::any_of(records.begin(), records.end(), isWritten);
  if (!hasBegun || std::all_of(records.begin(), records.end(), isWritten)) return {};
  for (const RecordBytes& record : records) {
    if (isWritten(record) || isAsBefore(record)) continue;
    return {NameOf(ahead) + "\rA part of it is stored, and " + record.file +
                " was changed by others since.\rLook at it, and store it once more.",
            ui::Icon::Exclamation};
  }
  for (const RecordBytes& record : records) {
    if (!isWritten(record)) files.Write(record);
  }
  files.Flush();
  return {NameOf(ahead) + "\rIt was finished just now: all of it is stored."};
}

bool IsOfPart(const WrittenAhead& ahead) {
  return std::ranges::any_of(ahead.records, [](const RecordBytes& each) { return each.file == kInventoryTagFile; });
}

// The damaged one may have lost its what.
Word OfDamage(const std::string& name, const WrittenAhead& ahead) {
  const std::string what = ahead.what.empty() ? "a customer, a vehicle or a part" : ahead.what;
  return {name + ", which tells that " + what + " was being stored when the program ended, is damaged.\rLook at " +
              (ahead.what.empty() ? "those that were stored last." : "it, and store it once more."),
          ui::Icon::Exclamation};
}

// Nothing is done where a running copy is at the parts just now: the journal stays for the next start.
void SettleOpened(Environment& environment, ui::Desktop& desktop, const std::string& name, SharedFile& journal) {
  const WrittenAhead ahead = ReadWriteAhead(JournalContent(journal));
  Word word;
  if (ahead.state == WrittenAhead::State::Damaged || !NamesRecordsAlone(ahead)) {
    word = OfDamage(name, ahead);
  } else if (ahead.state == WrittenAhead::State::Whole) {
    std::optional<UpdateTurns> turns;
    std::optional<UpdateTurns::Turn> turn;
    if (IsOfPart(ahead)) {
      turn.emplace(turns.emplace(environment.files.PathOf(kInventoryTagFile), environment.clock));
      if (!turn->IsHad()) return;
    }
    word = Finish(environment, ahead);
  }
  DeleteJournal(environment, name, journal);
  if (!word.text.empty()) desktop.Tell(word.text, kTitle, word.icon);
}

// Its program runs, or another start is at it or has just done so: nothing.
std::optional<SharedFile> OpenLeft(Environment& environment, const std::string& name) {
  try {
    return SharedFile(environment.files.PathOf(name), Access::ReadWrite, Deny::All, Absent::Fail);
  } catch (const FileError& error) {
    const bool isElsewhere =
        error.Number() == FileErrorNumber::FileNotFound || error.Number() == FileErrorNumber::PermissionDenied;
    if (!isElsewhere) throw;
    return std::nullopt;
  }
}

}  // namespace

void SettleRecords(Environment& environment, ui::Desktop& desktop, const std::vector<std::string>& journals) {
  for (const std::string& name : journals) {
    try {
      if (auto journal = OpenLeft(environment, name)) SettleOpened(environment, desktop, name, *journal);
    } catch (const FileError& error) {
      environment.log.Write(error.what());
      // The files are in use: the next start comes by.
      if (error.Number() == FileErrorNumber::PermissionDenied) continue;
      desktop.Tell(InWords(FileFailure(error), "What " + name + " tells of can not be finished"), kTitle,
                   ui::Icon::Exclamation);
    }
  }
}

}  // namespace lantos
