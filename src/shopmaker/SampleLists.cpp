#include <fmt/format.h>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/CannedLabor.h"
#include "records/Followups.h"
#include "records/PurchaseOrders.h"
#include "records/Vehicles.h"
#include "records/inventory/InventoryKits.h"
#include "records/inventory/InventoryLayout.h"
#include "records/modSystem.h"
#include "shopmaker/PartShelf.h"
#include "shopmaker/Random.h"
#include "shopmaker/SampleSteps.h"

// The shop's own lists: kits, standard jobs, notes, inspection points, and what purchase orders and earlier work left.
namespace lantos::sample {

namespace {

struct KitEntry {
  std::string_view number, description;
  std::string_view prices;  // behind "KIT:"; empty: the sum of its parts
  JobPart parts[3];
};
constexpr KitEntry kKits[] = {
    {"KIT-LOF",
     "LUBE, OIL AND FILTER KIT",
     "(24.95,29.95)",
     {{PartKind::OilFilter, 1}, {PartKind::Oil, 5}, {PartKind::None, 0}}},
    {"KIT-TUNE6",
     "TUNE-UP KIT 6 CYL",
     "",
     {{PartKind::SparkPlug, 6}, {PartKind::AirFilter, 1}, {PartKind::FuelFilter, 1}}},
    {"KIT-COOL", "COOLING SYSTEM KIT", "", {{PartKind::Thermostat, 1}, {PartKind::Hose, 2}, {PartKind::Coolant, 2}}},
};
constexpr std::int32_t kLeastPartsForKits = 100;

struct CannedEntry {
  std::string_view code;
  std::string_view lines[3];
  Hundredths hours;
  std::string_view kit;
};
constexpr CannedEntry kCanned[] = {
    {"LOF", {"LUBE, OIL AND FILTER", "CHECK ALL FLUIDS AND TIRE PRESSURE", ""}, 50, "KIT-LOF"},
    {"TUNE6", {"TUNE UP, 6 CYLINDER", "REPLACE PLUGS, CHECK WIRES AND TIMING", ""}, 170, "KIT-TUNE6"},
    {"COOL", {"COOLING SYSTEM SERVICE", "PRESSURE TEST, FLUSH AND FILL", ""}, 120, "KIT-COOL"},
    {"ROT", {"ROTATE TIRES", "SET PRESSURES", ""}, 40, ""},
    {"BRKIN", {"BRAKE INSPECTION", "PULL WHEELS, MEASURE LININGS", "ADVISE"}, 60, ""},
    {"BRKF", {"REPLACE FRONT BRAKE PADS", "RESURFACE ROTORS, LUBRICATE SLIDES", "ROAD TEST"}, 140, ""},
    {"DIAG", {"CHECK ENGINE LAMP ON", "SCAN CODES AND DIAGNOSE", "ADVISE BEFORE REPAIR"}, 100, ""},
    {"AC", {"AIR CONDITIONING SERVICE", "EVACUATE, LEAK TEST AND RECHARGE", ""}, 130, ""},
    {"ALIGN", {"FOUR WHEEL ALIGNMENT", "", ""}, 120, ""},
    {"PREP", {"PRE-PURCHASE INSPECTION", "WRITTEN REPORT TO CUSTOMER", ""}, 150, ""},
};

constexpr std::string_view kNotes[][3] = {
    {"Customer waits. Coffee is on us.", "", ""},
    {"Call before any work beyond the estimate.", "Leave word on the machine if nobody answers.", ""},
    {"Vehicle drops off the night before.", "Keys in the slot by the front door.", ""},
    {"Please save the old parts.", "", ""},
    {"Bring the loaner back full.", "Return by closing time.", "The spare key stays at the counter."},
};

constexpr std::string_view kChecklist =
    "[Under the hood]\r\nEngine oil level\r\nCoolant level and strength\r\nBrake fluid, moisture test\r\n"
    "Power steering fluid\r\nBelts\r\nHoses\r\nBattery and cables\r\nAir filter\r\n"
    "[Under the car]\r\nExhaust\r\nShocks and struts\r\nBall joints and tie rods\r\nCV boots\r\nFluid leaks\r\n"
    "[Brakes]\r\nFront linings\r\nRear linings\r\nParking brake\r\nLines and hoses\r\n"
    "[Tires]\r\nTread depth, four tires\r\nPressures\r\nSpare\r\n"
    "[Lights and glass]\r\nHeadlamps\r\nTurn signals\r\nStop lamps\r\nWiper blades\r\nWindshield\r\n";

struct OrderEntry {
  std::string_view vendor, description;
  Cents cost;
};
constexpr OrderEntry kOrders[] = {
    {"Valley Machine", "RESURFACE FLYWHEEL", 4500},   {"Towne Upholstery", "REPAIR DRIVER SEAT", 12500},
    {"Riverside Radiator", "RECORE RADIATOR", 18900}, {"Clearview Glass", "WINDSHIELD INSTALLED", 16500},
    {"Valley Machine", "PRESS WHEEL BEARING", 3500},  {"Northside Towing", "TOW IN FROM HIGHWAY", 7500},
};
constexpr std::int32_t kFirstOrder = 3101;

constexpr std::string_view kRecommendations[] = {
    "REPLACE TIMING BELT\tDUE AT 90,000 MILES", "FRONT BRAKES AT 3 MM\tREPLACE SOON", "COOLANT FLUSH DUE",
    "STRUTS SEEPING\tREPLACE IN PAIRS",         "TRANSMISSION SERVICE DUE",           "REPLACE CRACKED SERPENTINE BELT",
};

// The first part on the shelf for each of its lines; a kit that can't be filled isn't kept.
void AddKit(SampleShop& shop, const PartShelf& shelf, const KitEntry& entry) {
  InventoryKitRecord kit;
  kit.Put(inventorykit::KitNumber, entry.number);
  Cents cost = 0;
  std::size_t line = 0;
  for (const JobPart& component : entry.parts) {
    if (component.kind == PartKind::None) continue;
    const std::vector<std::size_t>& fitting = shelf.Fitting(component.kind, "");
    if (fitting.empty()) return;
    const InventoryRecord& part = shop.parts[fitting.front()];
    kit.Put(inventorykit::Line(line++), KitLine({part.Get(inventory::StockNumber), component.quantity}));
    cost += component.quantity * part.Get(inventory::Pricing[0]);
  }
  InventoryRecord part;
  part.Put(inventory::StockNumber, entry.number);
  part.Put(inventory::Description, entry.description);
  part.Put(inventory::Department, "KITS");
  part.Put(inventory::Location, "KIT:" + std::string(entry.prices));
  SetPrices(part, cost, shop.system);
  part.Put(inventory::UsageLink, kNoLink);
  part.Put(inventory::ReceivingLink, kNoLink);
  AddPart(shop, part);
  shop.kits.push_back(kit);
}

void AddCannedLabor(SampleShop& shop) {
  const Cents rate = shop.system.Get(sysrec::shop_rate);
  for (const CannedEntry& entry : kCanned) {
    CannedLabor& labor = shop.cannedLabor.emplace_back();
    labor.Hours = entry.hours;
    labor.Rate = rate;
    labor.Total = static_cast<Cents>(DivideHalfEven(static_cast<std::int64_t>(entry.hours) * rate, 100));
    for (std::size_t i = 0; i < std::size(entry.lines); ++i) labor.Desc[i] = entry.lines[i];
    labor.Desc[0] = LeftJustify(entry.code, kLaborCodeWidth) + labor.Desc[0];
    if (entry.kit.empty()) continue;
    LaborKitRec& kit = shop.laborKits.emplace_back();
    kit.Put(laborkit::Code, entry.code);
    kit.Put(laborkit::Kit, entry.kit);
  }
}

void AddCannedNotes(SampleShop& shop) {
  for (const auto& lines : kNotes) {
    CannedNote& note = shop.cannedNotes.emplace_back();
    for (std::size_t i = 0; i < std::size(lines); ++i) note[i] = lines[i];
  }
}

std::string SubletLine(std::string_view vendor, std::string_view invoice, Cents cost, Cents price,
                       std::string_view description) {
  return LeftJustify(vendor, 31) + LeftJustify(invoice, 11) + RightJustify(FormatHundredths(cost), 11) +
         RightJustify(FormatHundredths(price), 12) + LeftJustify(description, 64);
}

void AddOrders(Random& random, SampleShop& shop) {
  std::int32_t number = kFirstOrder;
  for (const OrderEntry& entry : kOrders) {
    const std::string invoice = fmt::format("{:05}", random.Between(10000, 99999));
    const std::string fileName = fmt::format("P{:07}.tqp", number);
    PoTag& tag = shop.orders.emplace_back();
    tag.Put(potag::Number, number++);
    tag.Put(potag::VendorName, entry.vendor);
    tag.Put(potag::VendorInvoice, invoice);
    tag.Put(potag::Status, random.Chance(50) ? kOrderClosed : kOrderOnAccount);
    tag.Put(potag::FileName, fileName);
    const auto price = static_cast<Cents>(DivideHalfEven(static_cast<std::int64_t>(entry.cost) * 130, 100));
    shop.orderTexts.emplace_back(
        fileName, "[Purchase Order]\r\nVendor=" + std::string(entry.vendor) + "\r\n\r\n[Sublets]\r\n" +
                      SubletLine(entry.vendor, invoice, entry.cost, price, entry.description) + "\r\n[Credits]\r\n");
  }
}

// A recommendation for every fortieth vehicle, dated around the day of the shop.
void AddFollowups(Random& random, SampleShop& shop, const SampleOptions& options) {
  const Cents rate = shop.system.Get(sysrec::shop_rate);
  for (std::size_t i = 0; i < shop.vehicles.size(); i += 40) {
    const VehicleRecord& record = shop.vehicles[i];
    const Hundredths hours = random.Between(5, 40) * 10;
    FollowupRecord& followup = shop.followups.emplace_back();
    followup.Put(followup::Active, random.Chance(80) ? 1 : 0);
    followup.Put(followup::CustomerNumber, record.Get(vehicle::Number));
    followup.Put(followup::VIN, record.Get(vehicle::VIN));
    followup.Put(followup::LicenseNumber, record.Get(vehicle::LicenseNumber));
    followup.Put(followup::WorkorderNumber, random.Between(9000, 11999));
    followup.Put(followup::FollowupDate, ToFileDate(options.date + random.Between(-60, 60)));
    followup.Put(followup::Days, 180);
    followup.Put(followup::Description, random.Pick(kRecommendations));
    followup.Put(followup::Mechanic, shop.technicians.empty() ? 0 : random.Pick(shop.technicians));
    followup.Put(followup::Hours, hours);
    followup.Put(followup::Rate, rate);
    followup.Put(followup::Total, static_cast<Cents>(DivideHalfEven(static_cast<std::int64_t>(hours) * rate, 100)));
  }
}

}  // namespace

std::int32_t KitCount(const SampleOptions& options) {
  return options.parts < kLeastPartsForKits ? 0 : static_cast<std::int32_t>(std::size(kKits));
}

void ImagineKits(SampleShop& shop, const SampleOptions& options) {
  if (KitCount(options) == 0) return;
  const PartShelf shelf(shop);
  for (const KitEntry& entry : kKits) AddKit(shop, shelf, entry);
}

void ImagineLists(SampleShop& shop, const SampleOptions& options) {
  Random random(options.seed, kListStream);
  AddCannedLabor(shop);
  AddCannedNotes(shop);
  shop.checklist = kChecklist;
  AddOrders(random, shop);
  AddFollowups(random, shop, options);
}

}  // namespace lantos::sample
