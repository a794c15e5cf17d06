#include "records/RecordMerge.h"

#include <algorithm>

#include "frame/Dates.h"
#include "frame/Numbers.h"

namespace lantos {

namespace {

using Bytes = std::span<const std::byte>;
using Reads = MergedField::Reads;

Bytes In(Bytes record, const MergedField& field) { return record.subspan(field.offset, field.width); }

std::string AsString(Bytes bytes) { return {reinterpret_cast<const char*>(bytes.data()), bytes.size()}; }

std::int32_t NumberIn(Bytes bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) value = value << 8U | std::to_integer<std::uint32_t>(bytes[i]);
  return bytes.size() == 2 ? static_cast<std::int16_t>(value) : static_cast<std::int32_t>(value);
}

std::string DayText(FileDate date) {
  const DaySerial day = FromFileDate(date);
  return day < 1 ? std::string() : FormatDate(day);
}

std::string TextOf(Bytes bytes, const MergedField& field) {
  const std::int32_t number = field.reads == Reads::Text ? 0 : NumberIn(bytes);
  switch (field.reads) {
    case Reads::Text: {
      const std::string all = AsString(bytes);
      return Trim(all.substr(0, all.find('\0')));
    }
    case Reads::Money:
      return FormatHundredths(number);
    case Reads::TenThousandths:
      return FormatTenThousandths(number);
    case Reads::PercentOrDollars:  // dollars are stored below 0
      return number < 0 ? "$" + FormatFixed(-static_cast<double>(number) / 10000, 2)
                        : FormatTenThousandths(number) + "%";
    case Reads::Day:
      return DayText(number);
    case Reads::YesNo:
      return number == 1 || number == 'Y' ? "Yes" : "No";
    case Reads::Word:
      if (number >= 0 && static_cast<std::size_t>(number) < field.words.size()) return std::string(field.words[number]);
      break;
    case Reads::Whole:
      break;
  }
  return std::to_string(number);
}

// Bytes behind a text's end are no value.
bool IsSame(Bytes a, Bytes b, const MergedField& field) {
  return field.reads == Reads::Text ? TextOf(a, field) == TextOf(b, field) : std::ranges::equal(a, b);
}

}  // namespace

ui::Answer AskWhoseIsKept(ui::Desktop& desktop, const std::string& title, const std::vector<ChangedByBoth>& fields) {
  std::string text = "Somebody else has changed this meanwhile:\r";
  for (const ChangedByBoth& field : fields) {
    text += "\r" + field.name + ": \"" + field.stored + "\" is stored, \"" + field.ours + "\" is yours";
  }
  text += "\r\rDo you want to store yours?\rNo keeps what is stored, CANCEL goes back.";
  return desktop.Ask(text, title, ui::Buttons::YesNoCancel, ui::Icon::Question);
}

void RecordMerge::Into(std::span<std::byte> onFile) {
  std::erase_if(questions_, [](const auto& each) { return !each.second.isAnswered; });
  std::vector<std::byte> merged(onFile.begin(), onFile.end());
  bool isDecided = true;
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const MergedField& field = fields_[i];
    const Bytes ours = In(ours_, field);
    if (std::ranges::equal(ours, In(read_, field))) continue;
    Question* question = nullptr;
    const Bytes theirs = In(onFile, field);
    if (!IsSame(theirs, In(read_, field), field) && !IsSame(theirs, ours, field)) {
      question = &questions_[i];
      if (question->theirs != AsString(theirs)) *question = {.theirs = AsString(theirs)};
      isDecided = isDecided && question->isAnswered;
    }
    if (question != nullptr && !question->keepsOurs) continue;
    std::ranges::copy(ours, merged.begin() + static_cast<std::ptrdiff_t>(field.offset));
  }
  if (!isDecided) throw Undecided{};
  std::ranges::copy(merged, onFile.begin());
}

bool RecordMerge::Ask(ui::Desktop& desktop, const std::string& title) {
  std::vector<ChangedByBoth> changed;
  for (const auto& [place, question] : questions_) {
    if (question.isAnswered) continue;
    const MergedField& field = fields_[place];
    changed.push_back({std::string(field.name), TextOf(std::as_bytes(std::span(question.theirs)), field),
                       TextOf(In(ours_, field), field)});
  }
  const ui::Answer answer = AskWhoseIsKept(desktop, title, changed);
  if (answer == ui::Answer::Cancel) return false;
  for (auto& [place, question] : questions_) {
    if (!question.isAnswered) question.keepsOurs = answer == ui::Answer::Yes;
    question.isAnswered = true;
  }
  return true;
}

}  // namespace lantos
