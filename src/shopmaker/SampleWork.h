#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "estimatedb/de.h"

// What the sample shops sell: kinds of parts, and jobs that take them.
namespace lantos::sample {

enum class PartKind : std::uint8_t {
  OilFilter,
  AirFilter,
  Oil,
  Coolant,
  BrakePads,
  BrakeShoes,
  Rotor,
  WiperBlade,
  SparkPlug,
  Battery,
  Alternator,
  Starter,
  Belt,
  Hose,
  Thermostat,
  WaterPump,
  FuelFilter,
  Strut,
  TieRod,
  BallJoint,
  Muffler,
  OxygenSensor,
  Bulb,
  Gasket,
  AxleShaft,
  Tire,
  None,
};
inline constexpr std::size_t kPartKindCount = static_cast<std::size_t>(PartKind::None);

enum PartTrait : unsigned {
  kPlain = 0,
  kCore = 1,   // sold against return of the old one
  kWaste = 2,  // what it replaces costs a disposal fee
  kFits = 4,   // made for one make, named in the description
};
struct PartKindEntry {
  PartKind kind;
  std::string_view prefix, description, department;
  std::int32_t lowCost, highCost;  // Cents
  unsigned traits;

  constexpr bool Has(PartTrait trait) const { return (traits & trait) != 0; }
};

inline constexpr PartKindEntry kPartKinds[] = {
    {PartKind::OilFilter, "OF", "OIL FILTER", "FILTERS", 190, 620, kWaste | kFits},
    {PartKind::AirFilter, "AF", "AIR FILTER", "FILTERS", 450, 1600, kFits},
    {PartKind::Oil, "OIL", "MOTOR OIL QT", "FLUIDS", 95, 420, kWaste},
    {PartKind::Coolant, "CLT", "COOLANT GAL", "FLUIDS", 520, 1350, kWaste},
    {PartKind::BrakePads, "BP", "BRAKE PAD SET", "BRAKES", 1450, 4900, kFits},
    {PartKind::BrakeShoes, "BS", "BRAKE SHOE SET", "BRAKES", 1200, 3600, kCore | kFits},
    {PartKind::Rotor, "RT", "BRAKE ROTOR", "BRAKES", 1900, 7400, kFits},
    {PartKind::WiperBlade, "WB", "WIPER BLADE", "ACCESSORIES", 280, 1250, kPlain},
    {PartKind::SparkPlug, "SP", "SPARK PLUG", "IGNITION", 140, 980, kFits},
    {PartKind::Battery, "BAT", "BATTERY", "ELECTRICAL", 3600, 8900, kCore},
    {PartKind::Alternator, "ALT", "ALTERNATOR REMAN", "ELECTRICAL", 6900, 21500, kCore | kFits},
    {PartKind::Starter, "ST", "STARTER REMAN", "ELECTRICAL", 5800, 18200, kCore | kFits},
    {PartKind::Belt, "BLT", "SERPENTINE BELT", "COOLING", 1100, 4200, kFits},
    {PartKind::Hose, "HS", "RADIATOR HOSE", "COOLING", 700, 2600, kFits},
    {PartKind::Thermostat, "TH", "THERMOSTAT", "COOLING", 420, 1900, kFits},
    {PartKind::WaterPump, "WP", "WATER PUMP", "COOLING", 2400, 9800, kCore | kFits},
    {PartKind::FuelFilter, "FF", "FUEL FILTER", "FILTERS", 560, 3200, kFits},
    {PartKind::Strut, "SR", "STRUT ASSY", "SUSPENSION", 4400, 15800, kFits},
    {PartKind::TieRod, "TR", "TIE ROD END", "SUSPENSION", 1600, 5400, kFits},
    {PartKind::BallJoint, "BJ", "BALL JOINT", "SUSPENSION", 1900, 6200, kFits},
    {PartKind::Muffler, "MF", "MUFFLER", "EXHAUST", 3100, 11800, kFits},
    {PartKind::OxygenSensor, "OX", "OXYGEN SENSOR", "IGNITION", 2800, 10400, kFits},
    {PartKind::Bulb, "BLB", "HEADLAMP BULB", "ELECTRICAL", 380, 2900, kPlain},
    {PartKind::Gasket, "GS", "VALVE COVER GASKET", "GASKETS", 900, 4700, kFits},
    {PartKind::AxleShaft, "AX", "AXLE SHAFT REMAN", "DRIVELINE", 5200, 14600, kCore | kFits},
    {PartKind::Tire, "TI", "TIRE", "TIRES", 3900, 13900, kWaste},
};
static_assert(sizeof(kPartKinds) / sizeof(kPartKinds[0]) == kPartKindCount);

inline constexpr std::string_view kManufacturers[] = {
    "ALLIED PARTS", "BRIGHTON", "CASTELL", "DURAWAY",   "EAGLE REMAN",
    "FIRMSTOP",     "GRAYLINE", "HOLT",    "NORTHSTAR", "PROFIT",
};

struct JobPart {
  PartKind kind;
  int quantity;
};
struct JobEntry {
  std::string_view lines[3];  // what stands on the estimate
  std::int32_t hours;         // Hundredths
  JobPart parts[2];
};

inline constexpr JobEntry kJobs[] = {
    {{"LUBE, OIL AND FILTER", "CHECK ALL FLUIDS AND TIRE PRESSURE", ""},
     50,
     {{PartKind::OilFilter, 1}, {PartKind::Oil, 5}}},
    {{"REPLACE FRONT BRAKE PADS", "RESURFACE ROTORS, LUBRICATE SLIDES", "ROAD TEST"},
     140,
     {{PartKind::BrakePads, 1}, {PartKind::None, 0}}},
    {{"REPLACE FRONT PADS AND ROTORS", "BLEED HYDRAULIC SYSTEM", "ROAD TEST"},
     190,
     {{PartKind::BrakePads, 1}, {PartKind::Rotor, 2}}},
    {{"REPLACE REAR BRAKE SHOES", "CLEAN AND ADJUST PARKING BRAKE", ""},
     180,
     {{PartKind::BrakeShoes, 1}, {PartKind::None, 0}}},
    {{"CHECK ENGINE LAMP ON", "SCAN CODES AND DIAGNOSE", "ADVISE BEFORE REPAIR"},
     100,
     {{PartKind::None, 0}, {PartKind::None, 0}}},
    {{"REPLACE OXYGEN SENSOR BANK 1", "CLEAR CODES, VERIFY REPAIR", ""},
     90,
     {{PartKind::OxygenSensor, 1}, {PartKind::None, 0}}},
    {{"REPLACE ALTERNATOR", "TEST CHARGING SYSTEM", ""}, 150, {{PartKind::Alternator, 1}, {PartKind::Belt, 1}}},
    {{"REPLACE STARTER", "NO CRANK, CLICKS ONLY", ""}, 160, {{PartKind::Starter, 1}, {PartKind::None, 0}}},
    {{"REPLACE BATTERY", "CLEAN TERMINALS AND TRAY", ""}, 40, {{PartKind::Battery, 1}, {PartKind::None, 0}}},
    {{"COOLING SYSTEM SERVICE", "PRESSURE TEST, FLUSH AND FILL", ""},
     120,
     {{PartKind::Coolant, 2}, {PartKind::Thermostat, 1}}},
    {{"REPLACE WATER PUMP", "COOLANT LEAK AT FRONT OF ENGINE", "REFILL AND BLEED"},
     280,
     {{PartKind::WaterPump, 1}, {PartKind::Coolant, 1}}},
    {{"REPLACE RADIATOR HOSES", "UPPER AND LOWER", ""}, 110, {{PartKind::Hose, 2}, {PartKind::Coolant, 1}}},
    {{"TUNE UP", "REPLACE PLUGS, CHECK WIRES AND TIMING", ""},
     170,
     {{PartKind::SparkPlug, 6}, {PartKind::AirFilter, 1}}},
    {{"REPLACE FUEL FILTER", "", ""}, 60, {{PartKind::FuelFilter, 1}, {PartKind::None, 0}}},
    {{"REPLACE FRONT STRUTS", "CLUNK OVER BUMPS", "ALIGNMENT NEEDED AFTER"},
     310,
     {{PartKind::Strut, 2}, {PartKind::None, 0}}},
    {{"REPLACE OUTER TIE ROD END", "LOOSE ON INSPECTION", ""}, 100, {{PartKind::TieRod, 1}, {PartKind::None, 0}}},
    {{"REPLACE LOWER BALL JOINT", "SET TOE", ""}, 200, {{PartKind::BallJoint, 1}, {PartKind::None, 0}}},
    {{"FOUR WHEEL ALIGNMENT", "PULLS TO THE RIGHT", ""}, 120, {{PartKind::None, 0}, {PartKind::None, 0}}},
    {{"REPLACE MUFFLER", "RUSTED THROUGH AT SEAM", ""}, 110, {{PartKind::Muffler, 1}, {PartKind::None, 0}}},
    {{"REPLACE VALVE COVER GASKETS", "OIL LEAK ONTO EXHAUST", "RECHECK AFTER 500 MILES"},
     220,
     {{PartKind::Gasket, 2}, {PartKind::None, 0}}},
    {{"REPLACE AXLE SHAFT", "CLICKS ON TURNS, TORN BOOT", ""}, 180, {{PartKind::AxleShaft, 1}, {PartKind::None, 0}}},
    {{"MOUNT AND BALANCE TIRES", "ROTATE, SET PRESSURES", ""}, 100, {{PartKind::Tire, 4}, {PartKind::None, 0}}},
    {{"REPLACE HEADLAMP BULB", "AIM HEADLAMPS", ""}, 30, {{PartKind::Bulb, 1}, {PartKind::None, 0}}},
    {{"REPLACE WIPER BLADES", "", ""}, 20, {{PartKind::WiperBlade, 2}, {PartKind::None, 0}}},
    {{"SAFETY INSPECTION", "BRAKES, STEERING, LIGHTS, TIRES", ""}, 80, {{PartKind::None, 0}, {PartKind::None, 0}}},
    {{"TRANSMISSION SERVICE", "DRAIN, REPLACE FILTER, REFILL", ""}, 150, {{PartKind::None, 0}, {PartKind::None, 0}}},
};

inline constexpr std::string_view kEstimateComments[] = {
    "Customer is waiting",   "Key in the drop box",        "Call with a price before starting",
    "Needs it back by 3:00", "Second visit for the noise", "Leaving on a trip Friday",
    "Shuttle home please",   "Tow-in, keys with driver",   "Check the warranty on the last repair",
};

enum class Taxed { Yes, No };
struct ExtraEntry {
  std::string_view vendor, lines[2];
  std::int32_t cost, price;  // Cents
  Taxed taxed;
};
inline de::Extra ExtraLine(const ExtraEntry& entry, std::string invoice) {
  de::Extra line;
  line.VendorName = entry.vendor;
  line.VendorInvoice = std::move(invoice);
  line.Cost = entry.cost;
  line.Price = entry.price;
  line.Desc1 = entry.lines[0];
  line.Desc2 = entry.lines[1];
  line.Taxable = entry.taxed == Taxed::Yes ? "Yes" : "No";
  return line;
}
inline constexpr ExtraEntry kSublets[] = {
    {"TRI-COUNTY TOWING", {"TOW VEHICLE TO SHOP", ""}, 6500, 8500, Taxed::No},
    {"MILLBROOK MACHINE", {"RESURFACE CYLINDER HEAD", "CHECK FOR CRACKS"}, 9000, 12600, Taxed::Yes},
    {"CLEARVIEW GLASS", {"REPAIR WINDSHIELD CHIP", ""}, 3500, 4900, Taxed::Yes},
    {"VALLEY UPHOLSTERY", {"REPAIR DRIVER SEAT", ""}, 7800, 10900, Taxed::Yes},
    {"LAKEMONT RADIATOR", {"ROD OUT AND RESEAL RADIATOR", ""}, 8500, 11900, Taxed::Yes},
};
inline constexpr ExtraEntry kWastes[] = {
    {"RECLAIM SERVICE", {"USED OIL AND FILTER DISPOSAL", ""}, 100, 250, Taxed::Yes},
    {"RECLAIM SERVICE", {"COOLANT DISPOSAL", ""}, 150, 400, Taxed::Yes},
    {"COUNTY TRANSFER", {"TIRE DISPOSAL FEE", "STATE FEE, 4 TIRES"}, 800, 1000, Taxed::No},
};

inline constexpr std::string_view kNotes[][3] = {
    {"CUSTOMER STATES NOISE ONLY WHEN COLD.", "PARK OUTSIDE OVERNIGHT BEFORE THE TEST DRIVE.", ""},
    {"REAR TIRES AT 3/32, ADVISED.", "", ""},
    {"PARTS ORDERED, ARRIVE NEXT MORNING.", "CALL CUSTOMER WHEN THEY ARE IN.", ""},
    {"DECLINED FLUSH THIS VISIT.", "OFFER AGAIN AT THE NEXT OIL CHANGE.", "QUOTED 89.95."},
};

}  // namespace lantos::sample
