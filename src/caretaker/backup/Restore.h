#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "caretaker/backup/Backup.h"
#include "caretaker/backup/Manifest.h"
#include "frame/Clock.h"

namespace lantos {

struct RestoreDone {
  Manifest manifest;
  std::vector<std::string> restored;  // names
  // Where the files lie that were replaced, or belong to the shop and weren't in the backup; empty when there were
  // none.
  std::filesystem::path kept;
};

// Puts the files of a backup in the place of those of a shop, all of them or those that are named (in any case). Every
// checksum of the backup is looked at first. Nobody may work in the directory; it is made when it isn't there. On a
// failure all is as it was. Throws BackupError, FileError.
RestoreDone Restore(const std::filesystem::path& archive, const std::filesystem::path& directory,
                    const std::vector<std::string>& only, Clock& clock, const TellBackup& tell);

struct Verified {
  Manifest manifest;
  std::vector<std::string> differences;  // from the shop as it was taken, in words; none in a backup to be relied on
  std::vector<std::string> faults;       // in words, of the shop itself, which the backup has as they were
};

// Restores the backup into a folder of its own beside it, and compares rows, totals and cross-references with what they
// were when it was taken. Then looks for what is wrong there, as lantos-shop check does. Throws BackupError, FileError,
// DatabaseError.
Verified Verify(const std::filesystem::path& archive, Clock& clock, const TellBackup& tell);

// Notes in the shop's directory that its backup of this time was restored and compared. False where the directory isn't
// there, or can't be written.
bool NoteVerified(const Manifest& manifest, const Clock& clock);

}  // namespace lantos
