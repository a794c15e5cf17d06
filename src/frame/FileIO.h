#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Clock.h"
#include "frame/DirectoryNames.h"
#include "frame/FileError.h"

namespace lantos {

// A text with the data directory's rules ("C:\shop\", "/srv/shop/\") as a path of this platform: backslashes become
// separators, runs of separators one. Characters beyond ASCII become the bytes that PathOfText tells.
std::filesystem::path PlatformPath(std::string_view text);

// Whether a name that was read from a file can be one of a file in the data directory: a name, and not a path.
bool IsPlainName(std::string_view name);

// Everything that has to do with files by name. DataDir is text, with its trailing backslash; a name is appended to
// it directly, and only here does the sum become a path. Names are found without regard to case, since the other
// program writes them on systems that ignore it; the directory itself is taken as it is spelled.
class FileIO {
 public:
  explicit FileIO(Clock& clock) : clock_(clock) {}

  const std::string& DataDir() const { return dataDir_; }
  void SetDataDir(std::string text);

  // The existing file that bears the name in any case, or the name as given when there is none. Two spellings of one
  // name in the directory: throws FileError (75) that names both. So does a name that leads out of DataDir ("..").
  std::filesystem::path PathOf(std::string_view name) const;

  // DataDir + the trimmed name. A network drive doesn't always answer at once: where DataDir lies on one and the name
  // isn't there, waits for the next second and looks again, at most twice. Throws as PathOf does.
  bool FileExists(std::string_view name) const;
  // One look, no waiting.
  bool IsThere(std::string_view name) const;

  // Names in DataDir that match a pattern with "*" and "?", without regard to case, sorted; none where the directory
  // can't be read.
  std::vector<std::string> List(std::string_view pattern) const;
  // In bytes; 0 when it isn't there. Throws FileError when it can't be told.
  std::uintmax_t Length(std::string_view name) const;
  // Makes the file, empty. False when it is there already: of several copies that try at once one alone gets true.
  // Throws FileError when it can't be made.
  bool MakeNew(std::string_view name) const;
  // False when it could not be deleted, be it that somebody has it open.
  bool Delete(std::string_view name) const;
  // Opens the file for reading and writing with no sharing, flushes it to the disk and closes; errors are ignored. An
  // empty DataDir is first set to what storedDataDir gives.
  void FlushFile(std::string_view name);
  // The data directory as the settings have it.
  std::function<std::string()> storedDataDir;
  // Hears of failures that nobody is told of, but for a file that somebody else has open, which is nothing unusual.
  std::function<void(const std::string& text)> logFailure;

  // While one of these stands, a name once looked up or listed keeps its spelling: for a few opens of the same files at
  // once.
  class SteadyNames {
   public:
    explicit SteadyNames(FileIO& files) : files_(files) { files_.steadyNames_.emplace(); }
    ~SteadyNames() { files_.steadyNames_.reset(); }
    SteadyNames(const SteadyNames&) = delete;

   private:
    FileIO& files_;
  };

  Clock& GetClock() const { return clock_; }
  // Told from the mount that DataDir lies on.
  bool AnswersLate() const { return answersLate_; }
  void SetAnswersLate(bool late) { answersLate_ = late; }

 private:
  std::string LookUp(std::string_view name) const;
  void KeepSpellings(const std::vector<std::string>& names) const;
  void LogUnlessBusy(std::string_view what, const FileError& error) const;

  Clock& clock_;
  std::string dataDir_;
  bool answersLate_ = false;
  // Of the directory asked for last, which is the data directory.
  mutable DirectoryNames names_{""};
  mutable std::optional<std::map<std::string, std::string, std::less<>>> steadyNames_;  // paths by name
};

}  // namespace lantos
