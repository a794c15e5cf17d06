#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"
#include "frame/JournalLines.h"
#include "frame/SharedFile.h"
#include "ui/Desktop.h"

namespace lantos {

// A part whose stock is about to be lowered, as its records stood then.
struct JournaledPart {
  std::string number;
  std::int16_t quantity = 0;
  std::int16_t stockInTag = 0, stockInMaster = 0;
  FileLink usageLink = kNoLink;  // of the master
  // Once that is settled, ahead of the stock: the record of its usage, kNoLink where the person went on without one.
  std::optional<FileLink> noted = {};
};

// What a journal says: a conversion that was begun, and how far it came at least.
struct BegunConversion {
  std::int32_t estimate = 0;
  std::int32_t workorder = 0;
  std::string when, where;  // "2003-09-30T08:15:00"; the computer's name
  bool hasNumber = false;   // it is this work order's own, and nobody else's
  bool isUndone = false;    // but for its number
  bool hasFiles = false;    // tags and text were written; the shop may have closed the work order since
  // What the estimate held when its lines were read (ConvertedRows); none where that wasn't reached.
  std::optional<std::uint64_t> contents = {};
  std::vector<JournaledPart> parts;
};

// The journal of a running conversion: a text file in the data directory under this copy's name, that says ahead of
// each step what it will do. It is open, and anybody may read it but nobody write, for as long as the conversion runs,
// and goes with its end; so one that can be opened for writing was left behind. docs/file-formats.md has its lines.
class ConversionJournal {
 public:
  // Makes the file and notes which number the estimate is about to get. WordedError when that isn't possible.
  ConversionJournal(Environment& environment, ui::Desktop& desktop, std::int32_t estimate, std::int32_t workorder);
  // Goes on with one that was left behind. FileError: 70 while its conversion runs, 53 when it is gone.
  ConversionJournal(Environment& environment, ui::Desktop& desktop, const std::string& name);

  std::string Content() const { return JournalContent(file_); }

  // A line that can't be written is asked about; when the person doesn't wait, all but WillWrite throw WordedError,
  // which ends the conversion there.
  void TakesNumber();  // it is this conversion's own
  void Holds(std::uint64_t contents);
  void WillMove(const JournaledPart& part);
  void HasNoted(const std::string& part, FileLink usage);  // kNoLink: the stock moves without a note
  // Of the other steps, for who reads the file. A failure goes to the run log.
  void WillWrite(std::string_view what);
  // Behind these lines all files of the work order are written; so whoever finishes it writes none of them anew.
  void WillWriteComments();
  void WillWriteStatus();
  // What was written so far survives a power cut from here on, as far as the disk keeps its word.
  void Force();
  void IsUndone();
  // The conversion is whole, or undone. A file that can't be deleted is emptied.
  void Remove();

  const std::string& Name() const { return name_; }

 private:
  void Write(const std::string& line);
  void WriteOrAsk(const std::string& line);
  void RunOrAsk(const std::function<void()>& step);

  Environment& environment_;
  ui::Desktop& desktop_;
  std::string name_;
  SharedFile file_;
  std::uint64_t end_ = 0;
};

// Nothing for a text that is no journal, or a damaged one. One that says nothing of an estimate yet has the number 0.
std::optional<BegunConversion> ReadJournal(std::string_view content);

}  // namespace lantos
