#include "workorders/JournalsOnDisk.h"

#include <algorithm>

#include "frame/Numbers.h"
#include "records/Contention.h"

namespace lantos {

std::vector<JournalOnDisk> LookAtJournals(Environment& environment) {
  std::vector<JournalOnDisk> journals;
  for (std::string& name : environment.files.List(kJournalPattern)) {
    JournalOnDisk journal;
    journal.name = std::move(name);
    // Who makes or deletes one has it alone for that moment.
    Contention contention(contention::kMomentsPatience, environment);
    try {
      contention.Run([&] {
        const SharedFile file(environment.files.PathOf(journal.name), Access::Read, Deny::None, Absent::Fail);
        journal.begun = ReadJournal(JournalContent(file));
      });
    } catch (const FileError& error) {
      if (error.Number() == FileErrorNumber::FileNotFound) continue;  // its conversion has just come to its end
      environment.log.Write(error.what());
      journal.unreadable = FileFailure(error);
    }
    journals.push_back(std::move(journal));
  }
  return journals;
}

const JournalOnDisk* FindConversionOf(const std::vector<JournalOnDisk>& journals, std::int32_t estimate) {
  const auto found = std::find_if(journals.begin(), journals.end(), [estimate](const JournalOnDisk& journal) {
    return journal.begun && journal.begun->estimate == estimate && !journal.begun->isUndone;
  });
  return found == journals.end() ? nullptr : &*found;
}

std::string BeingConverted(const BegunConversion& begun) {
  return "Estimate # " + FormatZeros(begun.estimate, 6) + " is being converted to work order # " +
         FormatZeros(begun.workorder, 6) + " by another copy of the program. It was begun " +
         (begun.where.empty() ? "" : "on " + begun.where + " ") + "at " + begun.when + ".\rNothing was done here.";
}

}  // namespace lantos
