#include "board/frmFind.h"

#include <algorithm>
#include <vector>

#include "board/FoundEstimates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "masters/customers/KeptCustomer.h"
#include "records/Customers.h"

namespace lantos {

namespace {

constexpr const char* kAllVehicles = " All Vehicles";
constexpr const char* kTitle = "Find";

// A name's place in the alphabet. The first eight letters, in a number, settle nearly all.
struct NameOrder {
  explicit NameOrder(const CustomerTag& theTag) : tag(&theTag) {
    const std::string_view name = theTag.View(customertag::NameKey);
    for (std::size_t i = 0; i < sizeof first; ++i) {
      first = first << 8U | (i < name.size() ? static_cast<unsigned char>(ToUpper(name[i])) : 0U);
    }
  }
  bool operator<(const NameOrder& other) const {
    if (first != other.first) return first < other.first;
    return ToUpper(tag->View(customertag::NameKey)) < ToUpper(other.tag->View(customertag::NameKey));
  }

  const CustomerTag* tag;
  std::uint64_t first = 0;
};

}  // namespace

frmFind::frmFind(Shop& shop, EstimateDatabase& database, MasterScreens& masters)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmFind", kTitle),
      shop_(shop),
      database_(database),
      masters_(masters) {
  SetDesignedSize(10200, 7200);
  List1.SetFace(ui::FontFace::FixedPitch);
  List1.SetSpokenName("Estimates");
  UseButtons(cmdUpdate, cmdCancel);
  Combo1.OnClick = [this] { CustomerClicked(); };
  Combo2.OnClick = [this] { VehicleClicked(); };
  cmdSearch.OnClick = [this] { Search(); };
  cmdUpdate.OnClick = [this] { Update(); };
  cmdSelect.OnClick = [this] { Select(); };
  List1.OnKeyDown = [this](ui::KeyPress& key) {
    if (!key.Is("Enter")) return;
    key.Clear();
    Select();
  };
  List1.OnDoubleClick = [this] {
    if (List1.ListIndex() >= 0) Select();
  };
  Combo1.SetToolTip("Type the beginning of a name");
  cmdSearch.SetToolTip("Search for a customer <F5>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  FollowList();
}

void frmFind::OnLoad() {
  SizedForm::OnLoad();
  const ui::Hourglass hourglass(shop_.desktop);
  Combo2.AddItem(kAllVehicles, kNoLink);
  Combo2.SetListIndex(0);
  FillCustomers();
  const Estimate& current = database_.estimates.CurrentEstimate;
  if (current.EstimateNumber != 0) SelectCustomer(current.CustomerNumber);
}

void frmFind::OnKeyDown(ui::KeyPress& key) {
  if (!key.Is("F5")) return SizedForm::OnKeyDown(key);
  key.Clear();
  Search();
}

// By name, as the person looks for them.
void frmFind::FillCustomers() {
  Customers& customers = shop_.records.customers;
  if (customers.Count() == 0 && !customers.LoadCustomerTags()) return;  // held, and given up by the person
  if (customers.Count() == 0) {
    shop_.desktop.Tell("No customers on file.", kTitle);
    return;
  }
  std::vector<NameOrder> names;
  names.reserve(customers.Count());
  for (std::size_t i = 0; i < customers.Count(); ++i) names.emplace_back(customers.Tag(i));
  std::stable_sort(names.begin(), names.end());
  for (const NameOrder& name : names) {
    Combo1.AddItem(std::string(name.tag->View(customertag::NameKey)), name.tag->Get(customertag::Number));
  }
}

// Somebody else may have added the customer since the tags were loaded.
void frmFind::SelectCustomer(std::int32_t number) {
  Customers& customers = shop_.records.customers;
  int row = Combo1.FindData(number);
  if (row < 0) {
    if (customers.IndexOf(number) == customers.Count() && !customers.LoadCustomerTags()) return;
    const std::size_t index = customers.IndexOf(number);
    if (index == customers.Count()) return;
    const CustomerTag& tag = customers.Tag(index);
    row = RowFor(tag);
    Combo1.InsertItem(row, std::string(tag.View(customertag::NameKey)), number);
  }
  Combo1.SetListIndex(row);
}

// Where a name that isn't in the list belongs.
int frmFind::RowFor(const CustomerTag& tag) const {
  const std::string name = ToUpper(tag.View(customertag::NameKey));
  const std::vector<ui::ListRow>& rows = Combo1.Rows();
  const auto behind =
      std::find_if(rows.begin(), rows.end(), [&](const ui::ListRow& row) { return ToUpper(row.text) > name; });
  return static_cast<int>(behind - rows.begin());
}

std::int32_t frmFind::Customer() const { return Combo1.ListIndex() < 0 ? 0 : Combo1.ItemData(Combo1.ListIndex()); }

void frmFind::CustomerClicked() {
  if (Customer() == customer_) return;
  customer_ = Customer();
  FillVehicles();
  ClearList();
}

void frmFind::FillVehicles() {
  Customers& customers = shop_.records.customers;
  Combo2.Clear();
  Combo2.AddItem(kAllVehicles, kNoLink);
  lblCustomer.SetCaption("");
  const std::size_t index = customers.IndexOf(customer_);
  if (index == customers.Count()) return Combo2.SetListIndex(0);
  const CustomerTag& tag = customers.Tag(index);
  lblCustomer.SetCaption(FormatZeros(customer_, 6) + "  " + tag.Get(customertag::Phone));
  if (const std::optional<CustomerRecord> owner = customers.Master(tag)) {
    shop_.records.vehicles.Walk(owner->Get(customer::VLink), [this](const VehicleRecord& vehicle, FileLink link) {
      if (vehicle.Get(vehicle::Deleted) != kVehicleDeleted) Combo2.AddItem(Trim(DescriptionOf(vehicle)), link);
      return true;
    });
  }
  Combo2.SetListIndex(0);
}

void frmFind::VehicleClicked() {
  const FileLink vehicle = Combo2.ItemData(Combo2.ListIndex());
  if (vehicle == vehicle_) return;
  vehicle_ = vehicle;
  ClearList();
}

// The search makes whom it finds the current customer, which the board has another one for.
void frmFind::Search() {
  Customers& customers = shop_.records.customers;
  std::int32_t number = 0;
  {
    const KeptCustomer before(customers);
    if (!masters_.CustomerMaintenance(MasterScreens::Purpose::ChooseOnly)) return;
    number = customers.CurrentCustomer.Get(customer::Number);
  }
  SelectCustomer(number);
}

void frmFind::Update() {
  ClearList();
  FoundEstimates found;
  if (customer_ != 0) {
    const ui::Hourglass hourglass(shop_.desktop);
    found = FindEstimates(shop_, database_, customer_, vehicle_ == kNoLink ? std::nullopt : std::optional(vehicle_));
  }
  for (FoundEstimates::Line& line : found.lines) List1.AddItem(std::move(line.text), line.estimate);
  ui::SetListExtent(List1);
  FollowList();
  lblResults.SetCaption("Total estimates = " + std::to_string(found.count));
  if (found.count > 0) return List1.SetFocus();
  shop_.desktop.Tell("No estimate records found.", kTitle);
}

// The lines of one customer don't stand below the name of another.
void frmFind::ClearList() {
  List1.Clear();
  lblResults.SetCaption("");
  FollowList();
}

// F10 looks as long as there is nothing to choose from.
void frmFind::FollowList() {
  const bool isEmpty = List1.ListCount() == 0;
  cmdUpdate.SetToolTip(isEmpty ? "List the estimates <F10>" : "List the estimates");
  cmdSelect.SetToolTip(isEmpty ? "Go to the estimate" : "Go to the estimate <F10>");
}

void frmFind::Accept() {
  if (List1.ListCount() == 0) return Update();
  Select();
}

void frmFind::Select() {
  const int row = List1.ListIndex();
  if (row < 0) {
    shop_.desktop.Tell("Must select a displayed estimate.", "Find - Select");
    return;
  }
  chosen_ = List1.ItemData(row);
  Hide();
}

}  // namespace lantos
