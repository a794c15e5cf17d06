#include <gmock/gmock.h>

#include <array>

#include "contents/extras/frmEstExtras.h"
#include "contents/extras/frmWOExtra.h"
#include "contents/labor/LaborBench.h"
#include "contents/notes/frmEstNotes.h"
#include "contents/notes/frmNotes.h"

// With one copy alone a line is always known again, whatever its texts: nobody is asked about another copy.
namespace lantos {
namespace {

using ui::Answer;

// Every character of the page but the NUL, which ends a text; blanks and tabs where they get lost; and the plain ones.
std::vector<std::string> Texts() {
  std::vector<std::string> texts = {"'",   "\"?:a$1", " IN FRONT", "BEHIND ", "A\tB",
                                    "\tA", "A\t",     "A  B",      "%s\\n",   "\xA0"};
  for (int c = 1; c < 256; ++c) texts.push_back(std::string("<") + static_cast<char>(c) + ">");
  return texts;
}

TEST(ListedAgain, IsALineOfLaborWhateverItsTexts) {
  test::LaborBench bench;
  for (const std::string& text : Texts()) {
    WoLaborLine line;
    line.Hours = line.Rate = line.Total = -1;
    line.Mechanic = 1000000;
    for (std::string& each : line.Desc) each = text;
    bench.contents.labor.AddLaborLine(line);
    bench.desktop.WillAnswer(Answer::Yes);
    bench.contents.labor.Remove();
    ASSERT_TRUE(bench.Stored().empty()) << text;
  }
}

TEST(ListedAgain, IsAPartWhateverItsTexts) {
  test::LaborBench bench;
  for (const std::string& text : Texts()) {
    if (text.find('\'') != std::string::npos) continue;  // no part number
    PartLine part;
    part.partNumber = part.description = text;
    part.quantity = -1;
    part.price = part.cost = part.list = -5;
    bench.contents.parts.AddPartLine(part, PartLines::Choosing::ItsRow);
    bench.contents.parts.RemovePartLine(0);
    ASSERT_EQ(bench.Ask("select count(*) from Parts"), "0") << text;
  }
}

TEST(ListedAgain, AreSubletsAndWasteWhateverTheirTexts) {
  test::LaborBench bench;
  frmEstExtras form(bench.bench, kWasteExtras);
  form.LoadForm();
  form.Show();
  for (const std::string& text : Texts()) {
    bench.desktop.WillUse([&](ui::Form& editor) {
      auto& extra = dynamic_cast<frmWOExtra&>(editor);
      for (ui::TextBox* box : {&extra.Vendor, &extra.VendorInvoice, &extra.Desc[0], &extra.Desc[3]}) {
        test::Type(*box, text);
      }
      test::Type(extra.Price, "-1");
      test::Press(editor, "F10");
    });
    form.cmdAdd.DoClick();
    bench.desktop.WillAnswer(Answer::Yes);
    form.cmdRemove.DoClick();
    ASSERT_EQ(bench.Ask("select count(*) from Waste"), "0") << text;
  }
}

TEST(ListedAgain, IsANoteWhateverItsTexts) {
  test::LaborBench bench;
  frmEstNotes form(bench.bench);
  form.LoadForm();
  form.Show();
  for (const std::string& text : Texts()) {
    bench.desktop.WillUse([&](ui::Form& editor) {
      test::Type(dynamic_cast<frmNotes&>(editor).txtDesc, text + "\r\n\r\n" + text);
      test::Press(editor, "F10");
    });
    form.cmdAdd.DoClick();
    bench.desktop.WillAnswer(Answer::Yes);
    form.cmdRemove.DoClick();
    ASSERT_EQ(bench.Ask("select count(*) from Notes"), "0") << text;
  }
}

}  // namespace
}  // namespace lantos
