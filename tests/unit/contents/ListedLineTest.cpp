#include "contents/ListedLine.h"

#include <gmock/gmock.h>

#include <stdexcept>

#include "TestDesktop.h"
#include "screens/OkCancelForm.h"

namespace lantos {
namespace {

using testing::HasSubstr;
using testing::Not;
using ui::Answer;

// A table of one line, and how often its list was read again.
struct ListedBench {
  static LineValues Line(const std::string& text, const std::string& price = "1.00") {
    return {{"Price", price}, {"Description 1", text}};
  }
  bool Store(const LineValues& ours) {
    const auto transaction = [&] {
      listed.Expect(stored);
      if (meanwhile) meanwhile();
      stored = ours;
    };
    return listed.Store(desktop, "Change Line", ours, {transaction, [this] { ++reloads; }});
  }
  bool Remove() {
    const auto transaction = [this] {
      listed.Expect(stored);
      stored.reset();
    };
    return RemoveAsListed(desktop, "Remove Line", "The line \"OIL\" was", {transaction, [this] { ++reloads; }});
  }
  std::string LastBox() const { return desktop.boxes.back().text; }

  test::TestDesktop desktop;
  std::optional<LineValues> stored = Line("OIL");
  ListedLine listed{Line("OIL")};
  std::function<void()> meanwhile;
  int reloads = 0;
};

TEST(ListedLine, IsReplacedAndRemovedWithoutAQuestionAsLongAsItIsStoredAsListed) {
  ListedBench bench;
  EXPECT_TRUE(bench.Store(ListedBench::Line("GLASS")));
  EXPECT_EQ(bench.stored, ListedBench::Line("GLASS"));
  ListedBench another;
  EXPECT_TRUE(another.Remove());
  EXPECT_FALSE(another.stored.has_value());
  EXPECT_EQ(bench.reloads + another.reloads, 0);
}

TEST(ListedLine, ThatIsntRemovedIsToldOnceTheListIsReadAgain) {
  for (const bool fails : {false, true}) {
    ListedBench bench;
    bench.desktop.WillAnswer(Answer::Ok);
    const auto transaction = [&] { bench.listed.Expect(std::nullopt); };
    const auto reload = [&] {
      EXPECT_TRUE(bench.desktop.boxes.empty());
      if (fails) throw std::runtime_error("can't be read");
    };
    const auto remove = [&] {
      EXPECT_FALSE(RemoveAsListed(bench.desktop, "Remove Line", "It was", {transaction, reload}));
    };
    if (fails) {
      EXPECT_THROW(remove(), std::runtime_error);
      EXPECT_THAT(bench.LastBox(), Not(HasSubstr("The list shows what is stored.")));
    } else {
      remove();
      EXPECT_THAT(bench.LastBox(), HasSubstr("The list shows what is stored."));
    }
  }
}

TEST(ListedLine, IsAskedAboutWithTheValuesThatDifferAndOnlyThose) {
  ListedBench bench;
  bench.stored = ListedBench::Line("TOWING");
  bench.desktop.WillAnswer(Answer::Yes);
  EXPECT_TRUE(bench.Store(ListedBench::Line("GLASS")));
  EXPECT_THAT(bench.LastBox(), HasSubstr("Description 1: \"TOWING\" is stored, \"GLASS\" is yours"));
  EXPECT_THAT(bench.LastBox(), Not(HasSubstr("Price")));
  EXPECT_EQ(bench.stored, ListedBench::Line("GLASS"));
}

TEST(ListedLine, ThatIsStoredAsThePersonWantsItIsLeftAlone) {
  ListedBench bench;
  bench.stored = ListedBench::Line("GLASS");
  EXPECT_FALSE(bench.Store(ListedBench::Line("GLASS")));
  EXPECT_EQ(bench.reloads, 1);
}

TEST(ListedLine, ThatChangesOnceMoreWhileThePersonThinksIsAskedAboutOnceMore) {
  ListedBench bench;
  bench.stored = ListedBench::Line("TOWING");
  bench.desktop.WillAnswer([&](const ui::Box&) {
    bench.stored = ListedBench::Line("HOIST");
    return Answer::Yes;
  });
  bench.desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_THAT(box.text, HasSubstr("\"HOIST\" is stored"));
    bench.stored.reset();
    return Answer::Yes;
  });
  bench.desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_THAT(box.text, HasSubstr("Somebody else has removed this meanwhile."));
    return Answer::No;
  });
  EXPECT_FALSE(bench.Store(ListedBench::Line("GLASS")));
  EXPECT_FALSE(bench.stored.has_value());
  EXPECT_EQ(bench.reloads, 1);
}

TEST(ListedLine, IsAskedAboutAgainBehindALookAtTheScreen) {
  ListedBench bench;
  bench.stored = ListedBench::Line("TOWING");
  bench.desktop.WillAnswer({Answer::Yes, Answer::Cancel, Answer::No});
  bench.meanwhile = [&] {
    bench.meanwhile = nullptr;
    bench.stored = ListedBench::Line("HOIST");
    bench.listed.Expect(bench.stored);
  };
  EXPECT_THROW((void)bench.Store(ListedBench::Line("GLASS")), OkCancelForm::BackToScreen);
  EXPECT_FALSE(bench.Store(ListedBench::Line("GLASS")));
  EXPECT_EQ(bench.stored, ListedBench::Line("HOIST"));
}

TEST(ListedLine, ThatIsAnotherIsntRemoved) {
  ListedBench bench;
  bench.stored = ListedBench::Line("OIL", "2.00");
  bench.desktop.WillAnswer(Answer::Ok);
  EXPECT_FALSE(bench.Remove());
  EXPECT_THAT(bench.LastBox(), testing::StartsWith("The line \"OIL\" was not removed: somebody else"));
  EXPECT_EQ(bench.stored, ListedBench::Line("OIL", "2.00"));
  EXPECT_EQ(bench.reloads, 1);
}

}  // namespace
}  // namespace lantos
