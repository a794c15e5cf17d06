// A work order's text cut or changed anywhere is still read, and what was read of it can be written.
#include "WorkorderBench.h"
#include "records/Customers.h"

namespace lantos::test {
namespace {

class DamagedText : public WorkorderBench {
 protected:
  DamagedText() {
    desktop.otherwise = [](const ui::Box& box) {
      EXPECT_EQ(box.title, "LoadCheckListValues") << box.text;
      return ui::Answer::Ok;
    };
    whole_ = GoldenBytes("W0004711.tqa");
    LoadChecks();
  }
  static std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t end = std::min(text.find('\r', at), text.size());
      lines.push_back(text.substr(at, end - at));
      at = end + (text.substr(end, 2) == "\r\n" ? 2 : 1);
    }
    return lines;
  }
  // Reads it, writes what was read, and reads that: as many lines must come through again.
  void ReadAndWrite(const std::string& text) {
    Workorder first = ReadBack(LinesOf(text));
    // A salesperson without a name is written as no key at all, and reads back as the one of a cleared work order.
    if (first.Customer.View(customer::salesperson).empty()) first.Customer.Put(customer::salesperson, "None");
    const std::vector<std::string> written = Written(first);
    ASSERT_GE(written.size(), 22u);
    Workorder second = ReadBack(written);
    ASSERT_EQ(Written(second).size(), written.size());
  }
  std::string whole_;
};

TEST_F(DamagedText, EveryTruncationIsRead) {
  for (std::size_t length = 0; length <= whole_.size(); ++length) {
    SCOPED_TRACE(length);
    ASSERT_NO_FATAL_FAILURE(ReadAndWrite(whole_.substr(0, length)));
  }
}

class FlippedBit : public DamagedText, public testing::WithParamInterface<int> {};

// It comes to an end, and the sanitizers see nothing. No flip makes more lines than there are and one more.
TEST_P(FlippedBit, OfAnyByteIsRead) {
  const std::size_t lines = LinesOf(whole_).size();
  for (std::size_t at = 0; at < whole_.size(); ++at) {
    std::string text = whole_;
    text[at] = static_cast<char>(text[at] ^ (1 << GetParam()));
    std::size_t read = 0;
    ReadBack(LinesOf(text)).Labor.ForEach([&read](const WoLaborLine&) { ++read; });
    ASSERT_LE(read, lines + 1) << at;
  }
}

INSTANTIATE_TEST_SUITE_P(EachOfEight, FlippedBit, testing::Range(0, 8));

TEST_F(DamagedText, WhatIsReadOfATextWithAFlippedBitIsWrittenAndReadAgain) {
  for (std::size_t at = 0; at < whole_.size(); ++at) {
    std::string text = whole_;
    text[at] = static_cast<char>(text[at] ^ (1 << at % 8));
    SCOPED_TRACE(at);
    ASSERT_NO_FATAL_FAILURE(ReadAndWrite(text));
  }
}

TEST_F(DamagedText, EveryTruncationOfTheFileIsReadFromTheDisk) {
  Workorders workorders(environment, desktop, records);
  workorders.CurrentActiveTag.Put(wotag::FileName, "W0004711.tqa");
  for (std::size_t length = 0; length <= whole_.size(); length += 7) {
    Put("W0004711.tqa", whole_.substr(0, length));
    ASSERT_TRUE(workorders.GetCurrWoRec()) << length;
    if (length < whole_.find("4711") + 4) continue;  // not yet its number
    EXPECT_EQ(workorders.Current.WorkorderNumber, 4711) << length;
  }
}

TEST_F(DamagedText, AnArchiveReadAtEveryOffsetIsReadOrTold) {
  const std::string archive = GoldenBytes(kArchiveFile);
  Put(kArchiveFile, archive);
  int told = 0;
  desktop.otherwise = [&told](const ui::Box& box) {
    EXPECT_EQ(box.title, "GetArchWo()");
    ++told;
    return ui::Answer::Ok;
  };
  Workorders workorders(environment, desktop, records);
  int read = 0;
  for (std::size_t offset = 0; offset <= archive.size(); ++offset) {
    for (const std::int32_t number : {4600, 4601}) {
      if (workorders.GetArchWo(number, static_cast<FileLink>(offset))) {
        ++read;
        EXPECT_EQ(workorders.Current.WorkorderNumber, number);
      }
    }
  }
  EXPECT_EQ(read, 2);
  EXPECT_EQ(told, static_cast<int>(2 * (archive.size() + 1)) - 2);
}

}  // namespace
}  // namespace lantos::test
