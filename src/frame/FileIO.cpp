#include "frame/FileIO.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "frame/GuardedOpen.h"
#include "frame/NetworkMount.h"
#include "frame/PathText.h"
#include "frame/SharedFile.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr int kWaitsForAFile = 2;  // slow network drives don't answer at once

std::string PlatformText(std::string_view text) {
  std::string path;
  path.reserve(text.size());
  for (char c : text.substr(0, text.find('\0'))) {
    if (c == '\\') c = '/';
    if (c != '/' || path.empty() || path.back() != '/') path += c;
  }
  return PathOfText(path);
}

void RefuseWayOut(std::string_view name) {
  for (std::size_t start = 0; start <= name.size();) {
    const std::size_t end = std::min(name.find_first_of("/\\", start), name.size());
    if (name.substr(start, end - start) == "..") {
      throw FileError(FileErrorNumber::PathFileAccess, std::string(name) + " leads out of the data directory");
    }
    start = end + 1;
  }
}

}  // namespace

std::filesystem::path PlatformPath(std::string_view text) { return PlatformText(text); }

void FileIO::SetDataDir(std::string text) {
  dataDir_ = std::move(text);
  answersLate_ = IsOnNetworkMount(PlatformPath(dataDir_));
}

bool IsPlainName(std::string_view name) {
  const bool isText =
      std::none_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
  return isText && !name.empty() && name != "." && name != ".." && name.find_first_of("/\\:") == std::string_view::npos;
}

std::string FileIO::LookUp(std::string_view name) const {
  RefuseWayOut(name);
  std::string path = PlatformText(dataDir_ + std::string(name));
  const std::size_t nameStart = path.find_last_of('/') + 1;
  const std::string_view directory = std::string_view(path).substr(0, nameStart);
  if (names_.Directory() != directory) names_ = DirectoryNames(std::string(directory));
  names_.SetToldLate(answersLate_);
  // A text that ends in a separator names no file.
  if (nameStart == path.size()) return path;
  const std::string spelling = names_.SpellingOf(std::string_view(path).substr(nameStart));
  if (!spelling.empty()) path.replace(nameStart, std::string::npos, spelling);
  return path;
}

std::filesystem::path FileIO::PathOf(std::string_view name) const {
  if (!steadyNames_) return LookUp(name);
  auto known = steadyNames_->find(name);
  if (known == steadyNames_->end()) known = steadyNames_->emplace(name, LookUp(name)).first;
  return known->second;
}

bool FileIO::FileExists(std::string_view name) const {
  const std::string_view trimmed = TrimView(name);
  if (IsThere(trimmed)) return true;
  // A disk of this machine has said all it knows.
  for (int waits = 0; answersLate_ && waits < kWaitsForAFile; ++waits) {
    WaitOneSecond(clock_);
    if (IsThere(trimmed)) return true;
  }
  return false;
}

bool FileIO::IsThere(std::string_view name) const {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(PathOf(name), error);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

std::vector<std::string> FileIO::List(std::string_view pattern) const {
  const std::string path = PlatformText(dataDir_ + std::string(pattern));
  const std::size_t nameStart = path.find_last_of('/') + 1;
  const std::string directory = path.substr(0, nameStart);
  const std::string_view names = std::string_view(path).substr(nameStart);
  std::vector<std::string> found =
      directory == names_.Directory() ? names_.Matching(names) : DirectoryNames(directory).Matching(names);
  if (steadyNames_) KeepSpellings(found);
  return found;
}

// A name that bears no second spelling beside it needs no look-up of its own.
void FileIO::KeepSpellings(const std::vector<std::string>& names) const {
  std::map<std::string, int> spellings;
  for (const std::string& name : names) ++spellings[ToUpper(name)];
  for (const std::string& name : names) {
    if (spellings[ToUpper(name)] == 1) steadyNames_->try_emplace(name, PlatformText(dataDir_ + name));
  }
}

std::uintmax_t FileIO::Length(std::string_view name) const {
  std::error_code error;
  const std::uintmax_t length = std::filesystem::file_size(PathOf(name), error);
  if (!error) return length;
  if (error != std::errc::no_such_file_or_directory) ThrowFileError(error.value(), "measuring " + std::string(name));
  return 0;
}

bool FileIO::MakeNew(std::string_view name) const {
  const std::filesystem::path path = PathOf(name);
  const int descriptor = MakeFile(path, O_WRONLY);
  if (descriptor < 0 && errno == EEXIST) return false;
  if (descriptor < 0) ThrowFileError(errno, "making " + path.string());
  ::close(descriptor);
  return true;
}

// Under a claim that denies all, so that a file that somebody has open stays, and nobody opens it meanwhile.
bool FileIO::Delete(std::string_view name) const {
  try {
    const std::filesystem::path path = PathOf(name);
    const SharedFile claimed(path, Access::ReadWrite, Deny::All, Absent::Fail);
    if (::unlink(path.c_str()) != 0) ThrowFileError(errno, "deleting " + path.string());
    return true;
  } catch (const FileError& error) {
    LogUnlessBusy("Not deleted: ", error);
    return false;
  }
}

void FileIO::FlushFile(std::string_view name) {
  if (dataDir_.empty() && storedDataDir) {
    std::string stored = storedDataDir();
    if (!stored.empty() && stored.back() == '/') stored.back() = '\\';
    SetDataDir(std::move(stored));
  }
  try {
    SharedFile file(PathOf(name), Access::ReadWrite, Deny::All, Absent::Fail);
    file.Flush();
    file.Close();
  } catch (const FileError& error) {
    LogUnlessBusy("Not flushed: ", error);
  }
}

void FileIO::LogUnlessBusy(std::string_view what, const FileError& error) const {
  if (error.Number() == FileErrorNumber::PermissionDenied || !logFailure) return;
  logFailure(std::string(what) + error.what());
}

}  // namespace lantos
