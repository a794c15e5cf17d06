#include <fmt/format.h>

#include <algorithm>
#include <span>
#include <system_error>

#include "caretaker/backup/PlainFile.h"
#include "caretaker/backup/Restore.h"
#include "caretaker/backup/ShopFigures.h"
#include "caretaker/backup/ShopFiles.h"
#include "caretaker/check/CheckShop.h"
#include "caretaker/check/ShopArgument.h"
#include "frame/Dates.h"
#include "frame/FileError.h"
#include "frame/LastVerified.h"
#include "frame/Text.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

std::vector<std::string> Compare(const std::vector<ShopFigure>& taken, const std::vector<ShopFigure>& restored) {
  std::vector<std::string> differences;
  const auto find = [](const std::vector<ShopFigure>& figures, const std::string& name) {
    return std::find_if(figures.begin(), figures.end(), [&](const auto& each) { return each.name == name; });
  };
  for (const ShopFigure& figure : taken) {
    const auto found = find(restored, figure.name);
    if (found == restored.end()) {
      differences.push_back(fmt::format("{}: {} in the shop, and missing in the backup.", figure.name, figure.value));
    } else if (found->value != figure.value) {
      differences.push_back(
          fmt::format("{}: {} in the shop, {} in the backup.", figure.name, figure.value, found->value));
    }
  }
  for (const ShopFigure& figure : restored) {
    if (find(taken, figure.name) != taken.end()) continue;
    differences.push_back(fmt::format("{}: {} in the backup, and unknown of the shop.", figure.name, figure.value));
  }
  return differences;
}

bool IsShop(const std::filesystem::path& directory) {
  std::error_code error;
  if (!std::filesystem::is_directory(directory, error)) return false;
  const std::vector<std::string> names = LookAtShop(directory).taken;
  return std::any_of(names.begin(), names.end(),
                     [](const std::string& name) { return EqualsIgnoringCase(name, kSystemFile); });
}

}  // namespace

Verified Verify(const std::filesystem::path& archive, Clock& clock, const TellBackup& tell) {
  const ScratchFolder scratch(archive.string() + std::string(kVerifyMark));
  Verified verified;
  verified.manifest = Restore(archive, scratch.Path(), {}, clock, tell).manifest;
  verified.differences = Compare(verified.manifest.figures, FiguresOf(scratch.Path(), clock));
  FileIO files(clock);
  GoToShop(files, scratch.Path().string());
  ShopView shop(files);
  const TellKind tellKind = [&tell](const Kind& kind, std::size_t done, std::size_t of) {
    tell({kind.looksAt, done, of});
  };
  for (const Finding& finding : LookOnce(shop, Kinds(), tellKind)) verified.faults.push_back(LineOf(finding));
  return verified;
}

// "2003-09-30T09:00:00", when it was compared, a blank, and the time at which the backup was taken.
bool NoteVerified(const Manifest& manifest, const Clock& clock) {
  // Where it was taken and when is told by the backup, which need not be one of this program's.
  const std::filesystem::path directory = manifest.directory;
  if (!IsShop(directory) || !ParseLocalTime(manifest.madeAt)) return false;
  const LocalTime now = clock.Now();
  const std::string line = fmt::format("{}T{} {}\r\n", FormatIsoDate(now.day), FormatTime(now), manifest.madeAt);
  try {
    PlainFile(directory / kLastVerified, PlainFile::Mode::Anew).Write(std::as_bytes(std::span(line)));
    return true;
  } catch (const FileError&) {
    return false;
  }
}

}  // namespace lantos
