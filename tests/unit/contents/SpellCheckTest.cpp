#include "contents/SpellCheck.h"

#include <gmock/gmock.h>

#include "contents/ContentsBench.h"
#include "contents/frmSpelling.h"
#include "contents/notes/frmNotes.h"
#include "records/MakesModels.h"
#include "records/inventory/Inventory.h"
#include "spelling/FewWords.h"
#include "spelling/OwnWords.h"

namespace lantos::test {
namespace {

using ui::Answer;

constexpr const char* kNoChange = "No changes made.\r\rSpell check complete.";
constexpr const char* kDone = "\r\rSpell check complete.";

// A note on the screen, and a person who knows what to do with unknown words.
struct SpellingBench : ContentsBench {
  SpellingBench() {
    shop.openSpeller = [this] {
      ++opened;
      return std::make_unique<FewWords>(
          std::vector<std::string>{"replace", "pads"},
          std::map<std::string, std::vector<std::string>>{{"braek", {"brake", "break"}}, {"belr", {"belt"}}});
    };
  }

  // What the note reads when the check is over.
  std::string Check(const std::string& text) {
    note.txtDesc.SetText(text);
    desktop.WillAnswer(Answer::Ok);
    note.cmdSpellCheck.DoClick();
    return note.txtDesc.Text();
  }
  void Will(std::function<void(frmSpelling&)> person) {
    desktop.WillUse([person = std::move(person)](ui::Form& form) { person(dynamic_cast<frmSpelling&>(form)); });
  }
  std::string Told() const { return desktop.boxes.back().text; }

  int opened = 0;
  frmNotes note{shop, NoteMode::EstimateNote, {}};
};

TEST(SpellCheck, SaysWhatIsMissingWhereThereIsNoDictionary) {
  SpellingBench bench;
  bench.shop.openSpeller = [] { return nullptr; };
  EXPECT_EQ(bench.Check("braek "), "braek ");
  EXPECT_EQ(bench.Told(), "Microsoft Word is required in order to check the spelling.");
}

TEST(SpellCheck, SaysWhyADictionaryCanNotBeUsed) {
  SpellingBench bench;
  bench.shop.openSpeller = []() -> std::unique_ptr<Speller> { throw WordedError("log", "It is broken."); };
  EXPECT_EQ(bench.Check("braek"), "braek");
  EXPECT_EQ(bench.Told(), "It is broken.");
}

TEST(SpellCheck, AsksNothingWhereAllIsKnown) {
  SpellingBench bench;
  EXPECT_EQ(bench.Check("REPLACE pads"), "REPLACE pads");
  EXPECT_EQ(bench.Told(), kNoChange);
  EXPECT_EQ(bench.desktop.boxes.back().title, "Estimate Notes");
}

TEST(SpellCheck, TakesBlanksAwayAroundTheTextAndSaysThatItIsComplete) {
  SpellingBench bench;
  EXPECT_EQ(bench.Check(" replace\r\npads  "), "replace\r\npads");
  EXPECT_EQ(bench.Told(), kDone);
  EXPECT_EQ(bench.note.cmdCancel.Caption(), "Cancel");  // changed
}

TEST(SpellCheck, ShowsTheWordItsSentenceAndWhatItMayHaveMeant) {
  SpellingBench bench;
  bench.Will([](frmSpelling& form) {
    EXPECT_EQ(form.lblUnknown.Caption(), "Not in the dictionary: braek");
    EXPECT_EQ(form.txtSentence.Text(),
              "replace \xBB"
              "braek\xAB pads.");
    EXPECT_EQ(form.txtWord.Text(), "brake");
    EXPECT_EQ(form.cmdSuggestion[1].Caption(), "&2 break");
    EXPECT_FALSE(form.cmdSuggestion[2].Visible());
    Press(form, "Alt+2");
    EXPECT_EQ(form.txtWord.Text(), "break");
    Press(form, "F10");
  });
  EXPECT_EQ(bench.Check("pads. replace braek pads. pads"), "pads. replace break pads. pads");
  EXPECT_EQ(bench.Told(), kDone);
}

TEST(SpellCheck, ChangesIgnoresAndAddsWordByWord) {
  SpellingBench bench;
  bench.Will([](frmSpelling& form) {
    Click(form.cmdChangeAll);
    EXPECT_EQ(form.lblUnknown.Caption(), "Not in the dictionary: zzz");
    EXPECT_EQ(form.txtWord.Text(), "zzz");
    EXPECT_FALSE(form.cmdSuggestion[0].Visible());
    Click(form.cmdIgnore);
    Click(form.cmdAdd);
    EXPECT_EQ(form.lblUnknown.Caption(), "Not in the dictionary: yyy");
    Click(form.cmdIgnoreAll);
  });
  EXPECT_EQ(bench.Check("braek zzz ZZZ braek yyy yyy"), "brake zzz ZZZ brake yyy yyy");
  EXPECT_EQ(bench.Check("zzz"), "zzz");  // added, so that nothing is asked
  EXPECT_EQ(bench.opened, 2);
}

TEST(SpellCheck, CancelledHasDecidedNothing) {
  SpellingBench bench;
  bench.Will([](frmSpelling& form) {
    Click(form.cmdChange);
    Click(form.cmdAdd);
    Press(form, "Esc");
  });
  EXPECT_EQ(bench.Check(" braek zzz belr "), " braek zzz belr ");
  EXPECT_EQ(bench.Told(), kNoChange);
  EXPECT_TRUE(OwnWords(bench.settings.Directory()).Load().Empty());
}

TEST(SpellCheck, WantsAWordToChangeTo) {
  SpellingBench bench;
  bench.desktop.WillAnswer(Answer::Ok);
  bench.Will([&bench](frmSpelling& form) {
    Type(form.txtWord, "  ");
    Click(form.cmdChange);
    EXPECT_EQ(bench.Told(), "The word can not be blank");
    Type(form.txtWord, " brakes ");
    Click(form.cmdChange);
  });
  EXPECT_EQ(bench.Check("braek"), "brakes");
}

TEST(SpellCheck, KnowsTheShopsMakesModelsAndParts) {
  SpellingBench bench;
  bench.records.makes.AddMake("Toyota");
  bench.records.makes.AddModel("Toyota", "Camry LE");
  InventoryTag tag;
  tag.Put(inventorytag::StockNumber, "SERPBELT");
  tag.Put(inventorytag::Description, "Serpentine");
  bench.records.inventory.AppendTag(tag);
  EXPECT_EQ(bench.Check("toyota CAMRY le serpbelt SERPENTINE"), "toyota CAMRY le serpbelt SERPENTINE");
}

TEST(SpellCheck, ReadsTheRestOfThePartsFirst) {
  SpellingBench bench;
  bench.records.inventory.onFinishLoading = [&bench] {
    InventoryTag tag;
    tag.Put(inventorytag::StockNumber, "SERPBELT");
    bench.records.inventory.AppendTag(tag);
    bench.records.inventory.onFinishLoading = nullptr;
  };
  EXPECT_EQ(bench.Check("serpbelt"), "serpbelt");
}

TEST(SpellCheck, SaysThatWordsCouldNotBeAddedAndKeepsTheRest) {
  SpellingBench bench;
  std::filesystem::create_directories(OwnWords(bench.settings.Directory()).File());
  bench.Will([](frmSpelling& form) {
    Click(form.cmdAdd);
    Click(form.cmdChange);
  });
  bench.desktop.WillAnswer(Answer::Ok);
  EXPECT_EQ(bench.Check("zzz braek"), "zzz brake");
  EXPECT_THAT(bench.desktop.boxes[0].text, testing::HasSubstr("words.txt"));
  EXPECT_EQ(bench.Told(), kDone);
}

}  // namespace
}  // namespace lantos::test
