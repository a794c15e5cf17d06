// Several copies of the program make work orders at the same moment.
#include <sys/resource.h>

#include <csignal>
#include <set>

#include "WorkorderBench.h"
#include "frame/ScratchDirectory.h"

namespace lantos::test {
namespace {

class AppendingTags : public WorkorderBench {
 protected:
  static std::multiset<std::int32_t> NumbersIn(const std::string& bytes, std::size_t length) {
    EXPECT_EQ(bytes.size() % length, 0u);
    std::multiset<std::int32_t> numbers;
    for (std::size_t at = 0; at < bytes.size(); at += length) numbers.insert(LongAt(bytes, at));
    return numbers;
  }
};

TEST_F(AppendingTags, CopiesThatWriteTogetherLoseNoTag) {
  constexpr int kCopies = 4;
  constexpr int kEach = 10;
  std::vector<pid_t> children;
  for (int copy = 0; copy < kCopies; ++copy) {
    children.push_back(BeginInChild([&] {
      desktop.otherwise = [](const ui::Box&) { return ui::Answer::Retry; };
      SystemClock realClock;
      Environment own(realClock, settings);
      own.files.SetDataDir(environment.files.DataDir());
      Workorders workorders(own, desktop, records);
      for (int i = 0; i < kEach; ++i) {
        workorders.Current = Sample();
        workorders.Current.WorkorderNumber = copy * 1000 + i;
        workorders.WriteActiveWoTag();
        if (!workorders.WriteArchivedWoTag()) return 1;
      }
      return 0;
    }));
  }
  for (const pid_t child : children) EXPECT_EQ(ResultOf(child), 0);
  std::multiset<std::int32_t> all;
  for (int copy = 0; copy < kCopies; ++copy) {
    for (int i = 0; i < kEach; ++i) all.insert(copy * 1000 + i);
  }
  EXPECT_EQ(NumbersIn(BytesOf(kActiveTagFile), 302), all);
  EXPECT_EQ(NumbersIn(BytesOf(kArchivedTagFile), 290), all);
}

TEST_F(AppendingTags, AWriteThatFailsIsAskedForAndLeavesNoPieceOfATag) {
  const std::string before(100 * 290, 'a');
  Put(kArchivedTagFile, before);
  EXPECT_EQ(InChild([&] {
              ::signal(SIGXFSZ, SIG_IGN);
              const rlimit limit = {before.size() + 100, before.size() + 100};
              if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 97;
              Workorders workorders(environment, desktop, records);
              desktop.WillAnswer([this](const ui::Box&) {
                HeldByAnother(kArchivedTagFile);  // throws if the file were still open
                return ui::Answer::Cancel;
              });
              if (workorders.WriteArchivedWoTag()) return 1;
              return desktop.boxes.size() == 1 && desktop.boxes[0].title == "WriteArchivedWoTag(TQINCTAG.DAT)" ? 0 : 2;
            }),
            0);
  EXPECT_EQ(BytesOf(kArchivedTagFile), before);
}

}  // namespace
}  // namespace lantos::test
