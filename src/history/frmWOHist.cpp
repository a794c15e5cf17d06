#include "history/frmWOHist.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "frame/Numbers.h"
#include "history/DetailLines.h"
#include "workorders/WorkorderSums.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 14100;
constexpr ui::Twips kHeight = 9000;
constexpr const char* kTitle = "Workorder History";
constexpr const char* kSearching = "Searching...";
constexpr std::int64_t kLong = 1000;  // milliseconds: from then on a search tells how far it is
constexpr const char* kNoCriteria = "You must enter search criteria!";
constexpr SearchCriterion::Kind kKinds[] = {SearchCriterion::Kind::Name, SearchCriterion::Kind::Vin,
                                            SearchCriterion::Kind::License};

template <std::size_t Length>
std::string Sought(const Record<Length>& tag, SearchCriterion::Kind kind) {
  switch (kind) {
    case SearchCriterion::Kind::Vin:
      return tag.Get(wotag::VIN);
    case SearchCriterion::Kind::License:
      return tag.Get(wotag::LicenseNumber);
    default:
      return tag.Get(wotag::CustomerName);
  }
}

// The part of the price that is profit. What was given away for nothing, at a cost, has no such part.
std::string Margin(std::int64_t profit, std::int64_t price) {
  if (price == 0 && profit != 0) return "none";
  return FormatFixed(price == 0 ? 0 : static_cast<double>(profit) / static_cast<double>(price), 4);
}

// The lines have a fixed pitch: the longest is the widest, and any two of its length are as wide.
void Fill(ui::ListBox& list, std::vector<std::string> lines) {
  list.Clear();
  std::size_t longest = 0;
  for (std::string& line : lines) {
    longest = std::max(longest, line.size());
    list.AddItem(std::move(line));
  }
  list.SetHorizontalExtent(list.Owner().GetDesktop().TextWidth(list, std::string(longest + 2, ' ')));
}

}  // namespace

frmWOHist::frmWOHist(Shop& shop, Print print)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmWOHist", kTitle),
      shop_(shop),
      print_(std::move(print)),
      checkList_(shop.records.checkList),
      workorders_(shop.environment, shop.desktop, shop.records, checkList_),
      search_(shop.environment, workorders_) {
  SetDesignedSize(kWidth, kHeight);
  for (ui::TextBox* box : {&srchName, &srchVIN, &srchLic}) box->SetFace(ui::FontFace::FixedPitch);
  for (ui::ListBox* list : {&WoDetail, &WoDetailC}) list->SetFace(ui::FontFace::FixedPitch);
  WoDetail.SetSpokenName("Workorder");
  WoDetailC.SetSpokenName("Workorder with costs");
  workorders_.onUnknownEntry = [this](const std::string& name) { unknownEntries_.push_back(name); };
  WireButtons();
  SetToolTips();
  NameTheLicense();
  ShowCosts();
  ShowState();
}

void frmWOHist::WireButtons() {
  UseButtons(cmdSearch, cmdCancel);
  cmdCancelSearch.OnClick = [this] { stopped_ = true; };
  cmdFirst.OnClick = [this] { GoTo(0); };
  cmdPrev.OnClick = [this] { GoBack(); };
  cmdNext.OnClick = [this] { GoOn(); };
  cmdLast.OnClick = [this] { GoTo(search_.Hits().size() - 1); };
  cmdName.OnClick = [this] { SearchShown(SearchCriterion::Kind::Name); };
  cmdVIN.OnClick = [this] { SearchShown(SearchCriterion::Kind::Vin); };
  cmdLicense.OnClick = [this] { SearchShown(SearchCriterion::Kind::License); };
  cmdToggleCost.OnClick = [this] { ToggleCost(); };
  cmdPrintWO.OnClick = [this] { print_(workorders_); };
}

void frmWOHist::SetToolTips() {
  cmdSearch.SetToolTip("Search <F10>");
  cmdCancelSearch.SetToolTip("Cancel Search <Esc>");
  cmdName.SetToolTip("<Ctrl+N> This Name");
  cmdVIN.SetToolTip("<Ctrl+V> This VIN");
  cmdLicense.SetToolTip("<Ctrl+L> This License");
  cmdToggleCost.SetToolTip("Toggle Cost <Alt+F4>");
  cmdPrintWO.SetToolTip("Print <Alt+F2>");
  cmdCancel.SetToolTip("Close <Esc>");
}

void frmWOHist::NameTheLicense() {
  if (!shop_.environment.fleetVersion) return;
  lblLic.SetCaption("Unit Number");
  cmdLicense.SetCaption("&Unit");
  cmdLicense.SetToolTip("<Ctrl+U> This Unit");
}

void frmWOHist::OnUnload(bool& refuse) {
  search_.End();
  SizedForm::OnUnload(refuse);
}

void frmWOHist::OnKeyDown(ui::KeyPress& key) {
  if (searching_ && key.Is("Esc")) {
    key.Clear();
    stopped_ = true;
    return;
  }
  const ui::Button* button = ButtonOf(key);
  if (button == nullptr) return SizedForm::OnKeyDown(key);
  key.Clear();
  if (button->IsUsable()) {
    button->OnClick();
  } else {
    shop_.desktop.Beep();
  }
}

// In what is being typed Ctrl+V pastes. Enter in the lines goes on, and not to the end of the browse.
const ui::Button* frmWOHist::ButtonOf(const ui::KeyPress& key) const {
  const bool isReading = WoDetail.HasFocus() || WoDetailC.HasFocus();
  if (key.Is("Enter") && isReading && mode_ == Mode::Browsing) return &cmdNext;
  if (key.IsAlt("F4")) return &cmdToggleCost;
  if (key.IsAlt("F2")) return &cmdPrintWO;
  if (key.IsControl("N")) return &cmdName;
  if (key.IsControl(shop_.environment.fleetVersion ? "U" : "L")) return &cmdLicense;
  const bool isTyping = srchName.HasFocus() || srchVIN.HasFocus() || srchLic.HasFocus();
  return key.IsControl("V") && !isTyping ? &cmdVIN : nullptr;
}

void frmWOHist::ShowState() {
  const bool waits = !searching_;
  const bool browses = waits && mode_ == Mode::Browsing;
  for (ui::TextBox* box : {&srchName, &srchVIN, &srchLic}) box->SetEnabled(waits && mode_ == Mode::Criteria);
  for (ui::Button* button : {&cmdFirst, &cmdPrev, &cmdNext, &cmdLast}) button->SetEnabled(browses);
  for (ui::Button* button : {&cmdName, &cmdVIN, &cmdLicense}) button->SetEnabled(waits && current_.has_value());
  cmdPrintWO.SetEnabled(browses && hasDetail_);
  cmdSearch.SetEnabled(waits);
  cmdSearch.SetCaption(mode_ == Mode::Browsing ? "New &Search" : "&Search");
  lblSearching.SetVisible(searching_);
  cmdCancelSearch.SetVisible(searching_);
}

void frmWOHist::Accept() {
  if (!cmdSearch.IsUsable()) return;
  if (mode_ == Mode::Browsing) {
    EnterCriteria();
  } else {
    SearchTyped();
  }
}

void frmWOHist::Cancel() {
  stopped_ = true;
  Hide();
}

void frmWOHist::EnterCriteria() {
  search_.End();
  mode_ = Mode::Criteria;
  SetCaption(kTitle);
  for (ui::TextBox* box : {&srchName, &srchVIN, &srchLic}) box->SetText("");
  ShowState();
  srchName.SetFocus();
}

void frmWOHist::SearchTyped() {
  for (ui::TextBox* box : {&srchName, &srchVIN, &srchLic}) box->SetText(Trim(box->Text()));
  for (const SearchCriterion::Kind kind : kKinds) {
    if (!FieldOf(kind).Text().empty()) return Begin({kind, FieldOf(kind).Text()});
  }
  shop_.desktop.Tell(kNoCriteria, Caption());
  srchName.SetFocus();
}

// By the tag, which is what a search looks at: a long name is cut there.
void frmWOHist::SearchShown(SearchCriterion::Kind kind) {
  const WorkorderSearch::Hit& hit = search_.Hits().at(current_.value());
  const std::string text = hit.source == WorkorderSearch::kActive ? Sought(search_.ActiveTag(hit), kind)
                                                                  : Sought(search_.ArchivedTag(hit), kind);
  if (text.empty()) return shop_.desktop.Tell(kNoCriteria, Caption());
  for (ui::TextBox* box : {&srchName, &srchVIN, &srchLic}) box->SetText("");
  FieldOf(kind).SetText(text);
  Begin({kind, text});
}

void frmWOHist::Begin(const SearchCriterion& criterion) {
  SetCaption(TitleOf(criterion.kind));
  mode_ = Mode::Criteria;
  ClearWorkorderOnShow();
  search_.Begin(criterion);
  const WorkorderSearch::Outcome outcome = SearchOn();
  if (outcome == WorkorderSearch::Outcome::Found) {
    mode_ = Mode::Browsing;
    GoTo(0);
    cmdNext.SetFocus();
    return;
  }
  FieldOf(criterion.kind).SetFocus();
  if (outcome == WorkorderSearch::Outcome::NothingMore) shop_.desktop.Tell("No data found.", kTitle);
}

WorkorderSearch::Outcome frmWOHist::SearchOn() {
  struct Searching {
    explicit Searching(frmWOHist& form) : form_(form) { Set(true); }
    ~Searching() { Set(false); }
    void Set(bool searching) {
      form_.searching_ = searching;
      form_.ShowState();
    }
    frmWOHist& form_;
  };
  stopped_ = false;
  lblSearching.SetCaption(kSearching);
  const Searching searching(*this);
  cmdCancelSearch.SetFocus();
  const Clock& clock = shop_.environment.clock;
  return search_.SearchOn([this, &clock, begun = clock.Now()] {
    if (clock.Now().MillisecondsSince(begun) >= kLong) {
      lblSearching.SetCaption(fmt::format("{} {} %", kSearching, search_.PercentDone()));
    }
    shop_.desktop.ServeMeanwhile(*this, cmdCancelSearch);
    return !stopped_;
  });
}

std::string frmWOHist::TitleOf(SearchCriterion::Kind kind) const {
  switch (kind) {
    case SearchCriterion::Kind::Name:
      return "Workorder History by Name";
    case SearchCriterion::Kind::Vin:
      return "Workorder History by VIN #";
    default:
      return shop_.environment.fleetVersion ? "Workorder history by Unit #" : "Workorder history by License #";
  }
}

ui::TextBox& frmWOHist::FieldOf(SearchCriterion::Kind kind) {
  return kind == SearchCriterion::Kind::Name ? srchName : kind == SearchCriterion::Kind::Vin ? srchVIN : srchLic;
}

void frmWOHist::GoOn() {
  if (*current_ + 1 < search_.Hits().size()) return GoTo(*current_ + 1);
  ui::Control* const before = Focus();  // the lines, where Enter goes on from hit to hit
  const WorkorderSearch::Outcome outcome = SearchOn();
  if (!Visible()) return;
  (before != nullptr && before->IsUsable() ? *before : cmdNext).SetFocus();
  if (outcome == WorkorderSearch::Outcome::Found) return GoTo(search_.Hits().size() - 1);
  ShowPlace();
  if (outcome == WorkorderSearch::Outcome::NothingMore) shop_.desktop.Beep();
}

void frmWOHist::GoBack() {
  if (*current_ == 0) return shop_.desktop.Beep();
  GoTo(*current_ - 1);
}

void frmWOHist::GoTo(std::size_t hit) {
  ClearWorkorderOnShow();
  current_ = hit;
  ShowPlace();
  ShowState();
  hasDetail_ = Read(search_.Hits().at(hit));
  if (hasDetail_) ShowWorkorder();
  head.workorder_number.SetCaption(std::to_string(NumberOf(search_.Hits().at(hit))));  // of one without a text, too
  ShowState();
  TellUnknownEntries(shop_.desktop, std::exchange(unknownEntries_, {}));
}

std::int32_t frmWOHist::NumberOf(const WorkorderSearch::Hit& hit) const {
  return hit.source == WorkorderSearch::kActive ? search_.ActiveTag(hit).Get(wotag::WorkorderNumber)
                                                : search_.ArchivedTag(hit).Get(wotag::WorkorderNumber);
}

bool frmWOHist::Read(const WorkorderSearch::Hit& hit) {
  if (hit.source == WorkorderSearch::kActive) {
    workorders_.CurrentActiveTag = search_.ActiveTag(hit);
    return workorders_.GetCurrWoRec();
  }
  workorders_.CurrentArchivedTag = search_.ArchivedTag(hit);
  const ArchivedWoTag& tag = workorders_.CurrentArchivedTag;
  const std::int32_t number = tag.Get(wotag::WorkorderNumber);
  if (workorders_.GetArchWo(number, tag.Get(wotag::MasterOffset))) return true;
  shop_.desktop.Tell("ArchWO not found = wo = " + std::to_string(number), Caption());
  return false;
}

void frmWOHist::ShowWorkorder() {
  const Workorder& workorder = workorders_.Current;
  const PaymentMethodTable& methods = shop_.environment.shopOptions.PaymentMethodNames;
  head.Show(workorder, methods,
            shop_.environment.fleetVersion ? WorkorderHead::Naming::Unit : WorkorderHead::Naming::License);
  DetailLines lines = ComposeDetail(workorder, checkList_, methods);
  Fill(WoDetail, std::move(lines.plain));
  Fill(WoDetailC, std::move(lines.withCost));
  const std::int64_t cost = CostOf(workorder.Totals);
  const std::int64_t price = PriceOf(workorder.Totals);
  lblCost.SetCaption("Cost: " + FormatHundredths(cost));
  lblPrice.SetCaption("Price: " + FormatHundredths(price));
  lblProfit.SetCaption("Profit: " + FormatHundredths(price - cost));
  lblMargin.SetCaption("Margin: " + Margin(price - cost, price));
}

void frmWOHist::ClearWorkorderOnShow() {
  current_.reset();
  hasDetail_ = false;
  head.Clear();
  WoDetail.Clear();
  WoDetailC.Clear();
  for (ui::Label* label : {&lblCost, &lblPrice, &lblProfit, &lblMargin, &done}) label->SetCaption("");
}

void frmWOHist::ShowPlace() {
  const std::string count = std::to_string(search_.Hits().size());
  done.SetCaption("Hit " + std::to_string(*current_ + 1) + " of " + count + (search_.IsAtEnd() ? "" : " so far"));
}

void frmWOHist::ToggleCost() {
  costs_ = costs_ == Costs::Shown ? Costs::Hidden : Costs::Shown;
  const bool wasInList = WoDetail.HasFocus() || WoDetailC.HasFocus();
  ShowCosts();
  if (wasInList) (costs_ == Costs::Shown ? WoDetailC : WoDetail).SetFocus();
}

void frmWOHist::ShowCosts() {
  const bool shown = costs_ == Costs::Shown;
  WoDetail.SetVisible(!shown);
  WoDetailC.SetVisible(shown);
  for (ui::Label* label : {&lblCost, &lblPrice, &lblProfit, &lblMargin}) label->SetVisible(shown);
}

void BrowseWorkorders(Shop& shop, frmWOHist::Print print) {
  frmWOHist form(shop, std::move(print));
  form.ShowModal();
  form.Unload();
}

}  // namespace lantos
