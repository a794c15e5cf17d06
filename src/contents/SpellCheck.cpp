#include "contents/SpellCheck.h"

#include <exception>

#include "contents/frmSpelling.h"
#include "frame/PathText.h"
#include "frame/PlainWords.h"
#include "records/MakesModels.h"
#include "records/inventory/Inventory.h"
#include "spelling/OwnWords.h"
#include "spelling/Proofreading.h"
#include "ui/Form.h"

namespace lantos {

namespace {

// Of a dictionary that isn't there: nobody is told anything else.
constexpr const char* kNone = "Microsoft Word is required in order to check the spelling.";

// What the shop itself is known to say, gathered when it is first asked for: most texts need none of it.
class KnownWords {
 public:
  explicit KnownWords(Shop& shop) : shop_(shop), own_(OwnWords(shop.environment.settings.Directory()).Load()) {}

  bool Has(const std::string& word) {
    if (own_.Has(word)) return true;
    if (!gathered_) Gather();
    return ofShop_.Has(word);
  }

 private:
  void Gather() {
    const ui::Hourglass hourglass(shop_.desktop);
    gathered_ = true;
    for (const Make& make : shop_.records.makes.Makes()) ofShop_.AddWordsOf(make.Name);
    for (const Model& model : shop_.records.makes.Models()) ofShop_.AddWordsOf(model.Name);
    Inventory& parts = shop_.records.inventory;
    parts.FinishLoading();
    for (Inventory::PartIndex i = 0; i < parts.Count(); ++i) {
      ofShop_.AddWordsOf(parts.Tag(i).Get(inventorytag::StockNumber));
      ofShop_.AddWordsOf(parts.Tag(i).Get(inventorytag::Description));
    }
  }

  Shop& shop_;
  WordSet own_;
  WordSet ofShop_;
  bool gathered_ = false;
};

// Ends of lines as the box has them, without blanks around all.
std::string AsTheBoxHasIt(const std::string& text) {
  std::string whole;
  for (std::size_t i = 0; i < text.size(); ++i) {
    whole += text[i];
    if (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n')) whole += '\n';
  }
  return Trim(whole);
}

void Learn(Shop& shop, const ui::Form& form, const std::vector<std::string>& words) {
  OwnWords own(shop.environment.settings.Directory());
  if (own.Add(words)) return;
  shop.desktop.Tell(InWords(own.Failure(), "The words could not be added to " + TextOfPath(own.File())), form.Caption(),
                    ui::Icon::Exclamation);
}

std::unique_ptr<Speller> OpenSpellerOrTell(Shop& shop, const ui::Form& form) {
  try {
    std::unique_ptr<Speller> speller = shop.openSpeller ? shop.openSpeller() : nullptr;
    if (!speller) shop.desktop.Tell(kNone, form.Caption());
    return speller;
  } catch (const std::exception& error) {
    shop.environment.log.Write(error.what());
    shop.desktop.Tell(WordsFor(error), form.Caption());
    return nullptr;
  }
}

}  // namespace

void SpellCheckText(Shop& shop, ui::TextBox& text) {
  const ui::Form& form = text.Owner();
  const std::unique_ptr<Speller> speller = OpenSpellerOrTell(shop, form);
  if (!speller) return;
  std::string result = text.Text();
  KnownWords known(shop);
  Proofreading proofreading(result, *speller, [&known](const std::string& word) { return known.Has(word); });
  bool cancelled = false;
  if (!proofreading.Done()) {
    frmSpelling screen(shop, std::move(proofreading));
    screen.ShowModal();
    cancelled = !screen.Saved();
    if (!cancelled) Learn(shop, form, screen.Result().Learnt());
    if (!cancelled) result = screen.Result().Text();
  }
  if (!cancelled) result = AsTheBoxHasIt(result);
  std::string told = result == text.Text() ? "No changes made." : "";
  text.SetText(result);
  shop.desktop.Tell(told + "\r\rSpell check complete.", form.Caption());
}

}  // namespace lantos
