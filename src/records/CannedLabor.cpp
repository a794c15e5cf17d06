#include "records/CannedLabor.h"

#include <algorithm>
#include <utility>

#include "frame/ReplaceContent.h"
#include "frame/Text.h"
#include "frame/UnfitFile.h"
#include "records/FileNumber.h"
#include "records/LaborText.h"
#include "records/OpenedFile.h"

namespace lantos {

namespace {

constexpr std::size_t kAmountWidth = 12;
constexpr char kLineMark = '\t';  // between the lines of a description

std::int32_t Amount(std::string_view line, std::size_t column) { return NumberInFile(Mid(line, column, kAmountWidth)); }

// The first line, empty or not, then the others that aren't empty.
std::string JoinLines(const LaborText& lines) {
  std::string text(lines[0].substr(0, lines[0].find_last_not_of(' ') + 1));
  for (std::size_t i = 1; i < lines.size(); ++i) {
    if (const std::string line = Trim(lines[i]); !line.empty()) text += kLineMark + line;
  }
  return text;
}

}  // namespace

std::string CannedLabor::Code() const { return Trim(Left(Desc[0], kLaborCodeWidth)); }

std::string CannedLabor::FirstLine() const { return Mid(Desc[0], kLaborCodeWidth + 1); }

CannedLabor ParseCannedLabor(std::string_view line) {
  CannedLabor entry;
  entry.Hours = Amount(line, 1);
  entry.Rate = Amount(line, 1 + kAmountWidth);
  entry.Total = Amount(line, 1 + 2 * kAmountWidth);
  const std::string_view text = line.substr(std::min(line.size(), 3 * kAmountWidth));
  entry.Desc = SplitLaborText(text);
  // The code has its five places, blank or not.
  const std::string_view first = text.substr(0, text.find(kLineMark));
  entry.Desc[0] = std::string(first.substr(0, first.find_last_not_of(' ') + 1));
  return entry;
}

std::string CannedLaborLine(const CannedLabor& entry) {
  return LeftJustify(std::to_string(entry.Hours), kAmountWidth) +
         LeftJustify(std::to_string(entry.Rate), kAmountWidth) +
         RightJustify(std::to_string(entry.Total), kAmountWidth) + JoinLines(entry.Desc);
}

std::vector<CannedLabor> CannedLaborIn(const std::vector<std::string>& lines) {
  std::vector<CannedLabor> entries;
  for (const std::string& line : lines) entries.push_back(ParseCannedLabor(line));
  return entries;
}

std::vector<std::string> LinesOf(const std::vector<CannedLabor>& entries) {
  std::vector<std::string> lines;
  for (const CannedLabor& entry : entries) {
    if (!entry.IsDeleted()) lines.push_back(CannedLaborLine(entry));
  }
  return lines;
}

void LaborKits::LoadOnce() {
  if (!loaded_) Load();
}

void LaborKits::Load() {
  OpenedFile file(environment_.openFiles, kLaborKitFile, Access::Read, Deny::None);
  rows_ = RowsIn(*file);
  loaded_ = true;
}

std::vector<LaborKits::Row> LaborKits::RowsIn(const SharedFile& file) const {
  std::vector<Row> rows;
  LaborKitRec record;
  const std::uint64_t length = file.Length();
  RefuseTooLong(environment_.files.PathOf(kLaborKitFile), length, kLongestRecordFile);
  for (std::uint64_t offset = 0; offset < length; offset += LaborKitRec::kLength) {
    file.ReadAt(offset, record.Bytes());
    rows.push_back({record.Get(laborkit::Code), record.Get(laborkit::Kit)});
  }
  return rows;
}

std::string LaborKits::KitOf(std::string_view code) {
  LoadOnce();
  const auto row = std::find_if(rows_.begin(), rows_.end(), [&](const Row& each) { return each.code == code; });
  return row == rows_.end() ? std::string() : row->kit;
}

void LaborKits::Save(std::string_view code, std::string_view kit) {
  {
    OpenedFile file(environment_.openFiles, kLaborKitFile, Access::ReadWrite, Deny::All);
    std::vector<Row> rows = RowsIn(*file);
    auto row = std::find_if(rows.begin(), rows.end(), [&](const Row& each) { return each.code == code; });
    if (row == rows.end()) row = rows.insert(rows.end(), {std::string(code), ""});
    row->kit = Left(kit, laborkit::Kit.width);
    Write(rows, *file);
    rows_ = std::move(rows);
    loaded_ = true;
  }
  environment_.files.FlushFile(kLaborKitFile);
}

void LaborKits::Write(const std::vector<Row>& rows, SharedFile& file) {
  std::vector<std::byte> records;
  for (const Row& each : rows) {
    if (each.code.empty()) continue;
    LaborKitRec record;
    record.Put(laborkit::Code, each.code);
    record.Put(laborkit::Kit, each.kit);
    records.insert(records.end(), record.Bytes().begin(), record.Bytes().end());
  }
  ReplaceContent(file, records);
}

bool IsDeleted(const CannedNote& note) { return note[0] == kDeletedEntry; }

std::string CannedNoteLine(const CannedNote& note) {
  CannedNote trimmed = note;
  trimmed[0] = Trim(note[0]);
  return JoinLines(trimmed);
}

std::vector<CannedNote> CannedNotesIn(const std::vector<std::string>& lines) {
  std::vector<CannedNote> notes;
  for (const std::string& line : lines) notes.push_back(SplitLaborText(line));
  return notes;
}

std::vector<std::string> LinesOf(const std::vector<CannedNote>& notes) {
  std::vector<std::string> lines;
  for (const CannedNote& note : notes) {
    if (!IsDeleted(note)) lines.push_back(CannedNoteLine(note));
  }
  return lines;
}

}  // namespace lantos
