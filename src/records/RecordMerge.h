#pragma once

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "records/Record.h"
#include "ui/Desktop.h"

namespace lantos {

// One field of a record as a screen shows it: what it is called there, where it lies, and how its value reads.
struct MergedField {
  enum class Reads { Text, Money, TenThousandths, PercentOrDollars, Whole, Day, YesNo, Word };
  using Words = std::span<const std::string_view>;

  constexpr MergedField(std::string_view fieldName, TextField field)
      : name(fieldName), offset(field.offset), width(field.width), reads(Reads::Text) {}
  constexpr MergedField(std::string_view fieldName, LongField field, Reads howItReads)
      : name(fieldName), offset(field.offset), width(4), reads(howItReads) {}
  constexpr MergedField(std::string_view fieldName, IntegerField field, Reads howItReads = Reads::Whole)
      : name(fieldName), offset(field.offset), width(2), reads(howItReads) {}
  constexpr MergedField(std::string_view fieldName, ByteField field, Reads howItReads)
      : name(fieldName), offset(field.offset), width(1), reads(howItReads) {}

  // A code that stands for one of these words, by place. Any other code reads as the number that it is.
  constexpr MergedField(std::string_view fieldName, IntegerField field, Words itsWords)
      : name(fieldName), offset(field.offset), width(2), reads(Reads::Word), words(itsWords) {}
  constexpr MergedField(std::string_view fieldName, ByteField field, Words itsWords)
      : name(fieldName), offset(field.offset), width(1), reads(Reads::Word), words(itsWords) {}

  std::string_view name;
  std::size_t offset;
  std::size_t width;
  Reads reads;
  Words words = {};
};

// What the person and somebody else have changed to different values.
struct ChangedByBoth {
  std::string name, stored, ours;
};
// One box for all of them. Yes: the person's are to be stored; No: what is stored stays; Cancel: back to the screen.
ui::Answer AskWhoseIsKept(ui::Desktop& desktop, const std::string& title, const std::vector<ChangedByBoth>& fields);

// The save of a record that others may have changed since a screen read it. Field by field: what only the person
// changed is stored, what only others changed stays as they stored it, and where both changed one field the person is
// asked, in one box for all such fields. What no field of the table names stays as the others have it. Nobody's file is
// held while the person thinks.
class RecordMerge {
 public:
  // The table outlives the merge. read is the record as the screen showed it, ours the same with what was typed.
  template <std::size_t Length>
  RecordMerge(std::span<const MergedField> fields, const Record<Length>& read, const Record<Length>& ours)
      : fields_(fields),
        read_(read.Bytes().begin(), read.Bytes().end()),
        ours_(ours.Bytes().begin(), ours.Bytes().end()) {}

  // Runs save, which reads the record, calls Into with it and stores it; again for as long as the person has to be
  // asked. False when the person goes back to the screen: nothing was stored then. Save lets pass what Into throws.
  template <class Save>
  bool Run(ui::Desktop& desktop, const std::string& title, const Save& save) {
    for (;;) {
      try {
        save();
        return true;
      } catch (const Undecided&) {
        if (!Ask(desktop, title)) return false;
      }
    }
  }
  // Makes of the record as it lies on file the one that is to be stored.
  template <std::size_t Length>
  void Into(Record<Length>& onFile) {
    Into(std::span<std::byte>(onFile.Bytes()));
  }

 private:
  struct Undecided {};
  struct Question {
    std::string theirs;  // bytes, as the person was shown them
    bool isAnswered = false;
    bool keepsOurs = false;
  };
  void Into(std::span<std::byte> onFile);
  bool Ask(ui::Desktop& desktop, const std::string& title);

  std::span<const MergedField> fields_;
  std::vector<std::byte> read_;
  std::vector<std::byte> ours_;
  std::map<std::size_t, Question> questions_;  // by the place of the field in the table
};

}  // namespace lantos
