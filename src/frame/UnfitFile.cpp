#include "frame/UnfitFile.h"

#include "frame/PathText.h"

namespace lantos {

namespace {

std::string_view CauseOf(UnfitFile::Why why) {
  switch (why) {
    case UnfitFile::Why::LeadsAway:
      return " is a link that leads out of its directory or nowhere, so it isn't opened.\r"
             "Put the file itself in its place.";
    case UnfitFile::Why::NotRegular:
      return " is no file but a folder, a pipe or a device, so it isn't opened.\r"
             "Remove it, and put the file in its place.";
    case UnfitFile::Why::TooLong:
      return " is longer than such a file can be, so it isn't read.\rPut a copy from your backup in its place.";
    case UnfitFile::Why::LongLine:
      return " has a line that is longer than a line of text can be, so it isn't read.\r"
             "Put a copy from your backup in its place.";
    case UnfitFile::Why::NoLocks:
      return " lies where files can't be locked, so it isn't opened: without locks nothing is shared safely.\r"
             "Have locking turned on for that drive, or put the data directory on another one.";
  }
  return " isn't opened.";
}

std::string WordsOf(const std::filesystem::path& path, UnfitFile::Why why) {
  return TextOfPath(path.filename()) + std::string(CauseOf(why));
}

// The log has it in one line, with the whole path.
std::string DetailOf(const std::filesystem::path& path, UnfitFile::Why why) {
  const std::string_view cause = CauseOf(why);
  return "opening " + path.string() + ":" + std::string(cause.substr(0, cause.find(',')));
}

}  // namespace

UnfitFile::UnfitFile(const std::filesystem::path& path, Why why, const std::string& detail)
    : FileError(FileErrorNumber::PathFileAccess, DetailOf(path, why), detail), words_(WordsOf(path, why)) {}

void RefuseTooLong(const std::filesystem::path& path, std::uint64_t length, std::uint64_t limit) {
  if (length > limit) throw UnfitFile(path, UnfitFile::Why::TooLong);
}

}  // namespace lantos
