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

struct PartKindEntry {
  PartKind kind;
  std::string_view prefix, description, department;
  std::int32_t lowCost, highCost;  // Cents
  bool core;                       // sold against return of the old one
  bool waste;                      // what it replaces costs a disposal fee
  bool fits;                       // made for one make, named in the description
};

inline constexpr PartKindEntry kPartKinds[] = {
    {PartKind::OilFilter, "OF", "OIL FILTER", "FILTERS", 190, 620, false, true, true},
    {PartKind::AirFilter, "AF", "AIR FILTER", "FILTERS", 450, 1600, false, false, true},
    {PartKind::Oil, "OIL", "MOTOR OIL QT", "FLUIDS", 95, 420, false, true, false},
    {PartKind::Coolant, "CLT", "COOLANT GAL", "FLUIDS", 520, 1350, false, true, false},
    {PartKind::BrakePads, "BP", "BRAKE PAD SET", "BRAKES", 1450, 4900, false, false, true},
    {PartKind::BrakeShoes, "BS", "BRAKE SHOE SET", "BRAKES", 1200, 3600, true, false, true},
    {PartKind::Rotor, "RT", "BRAKE ROTOR", "BRAKES", 1900, 7400, false, false, true},
    {PartKind::WiperBlade, "WB", "WIPER BLADE", "ACCESSORIES", 280, 1250, false, false, false},
    {PartKind::SparkPlug, "SP", "SPARK PLUG", "IGNITION", 140, 980, false, false, true},
    {PartKind::Battery, "BAT", "BATTERY", "ELECTRICAL", 3600, 8900, true, false, false},
    {PartKind::Alternator, "ALT", "ALTERNATOR REMAN", "ELECTRICAL", 6900, 21500, true, false, true},
    {PartKind::Starter, "ST", "STARTER REMAN", "ELECTRICAL", 5800, 18200, true, false, true},
    {PartKind::Belt, "BLT", "SERPENTINE BELT", "COOLING", 1100, 4200, false, false, true},
    {PartKind::Hose, "HS", "RADIATOR HOSE", "COOLING", 700, 2600, false, false, true},
    {PartKind::Thermostat, "TH", "THERMOSTAT", "COOLING", 420, 1900, false, false, true},
    {PartKind::WaterPump, "WP", "WATER PUMP", "COOLING", 2400, 9800, true, false, true},
    {PartKind::FuelFilter, "FF", "FUEL FILTER", "FILTERS", 560, 3200, false, false, true},
    {PartKind::Strut, "SR", "STRUT ASSY", "SUSPENSION", 4400, 15800, false, false, true},
    {PartKind::TieRod, "TR", "TIE ROD END", "SUSPENSION", 1600, 5400, false, false, true},
    {PartKind::BallJoint, "BJ", "BALL JOINT", "SUSPENSION", 1900, 6200, false, false, true},
    {PartKind::Muffler, "MF", "MUFFLER", "EXHAUST", 3100, 11800, false, false, true},
    {PartKind::OxygenSensor, "OX", "OXYGEN SENSOR", "IGNITION", 2800, 10400, false, false, true},
    {PartKind::Bulb, "BLB", "HEADLAMP BULB", "ELECTRICAL", 380, 2900, false, false, false},
    {PartKind::Gasket, "GS", "VALVE COVER GASKET", "GASKETS", 900, 4700, false, false, true},
    {PartKind::AxleShaft, "AX", "AXLE SHAFT REMAN", "DRIVELINE", 5200, 14600, true, false, true},
    {PartKind::Tire, "TI", "TIRE", "TIRES", 3900, 13900, false, true, false},
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

struct ExtraEntry {
  std::string_view vendor, lines[2];
  std::int32_t cost, price;  // Cents
  bool taxable;
};
inline de::Extra ExtraLine(const ExtraEntry& entry, std::string invoice) {
  de::Extra line;
  line.VendorName = entry.vendor;
  line.VendorInvoice = std::move(invoice);
  line.Cost = entry.cost;
  line.Price = entry.price;
  line.Desc1 = entry.lines[0];
  line.Desc2 = entry.lines[1];
  line.Taxable = entry.taxable ? "Yes" : "No";
  return line;
}
inline constexpr ExtraEntry kSublets[] = {
    {"TRI-COUNTY TOWING", {"TOW VEHICLE TO SHOP", ""}, 6500, 8500, false},
    {"MILLBROOK MACHINE", {"RESURFACE CYLINDER HEAD", "CHECK FOR CRACKS"}, 9000, 12600, true},
    {"CLEARVIEW GLASS", {"REPAIR WINDSHIELD CHIP", ""}, 3500, 4900, true},
    {"VALLEY UPHOLSTERY", {"REPAIR DRIVER SEAT", ""}, 7800, 10900, true},
    {"LAKEMONT RADIATOR", {"ROD OUT AND RESEAL RADIATOR", ""}, 8500, 11900, true},
};
inline constexpr ExtraEntry kWastes[] = {
    {"RECLAIM SERVICE", {"USED OIL AND FILTER DISPOSAL", ""}, 100, 250, true},
    {"RECLAIM SERVICE", {"COOLANT DISPOSAL", ""}, 150, 400, true},
    {"COUNTY TRANSFER", {"TIRE DISPOSAL FEE", "STATE FEE, 4 TIRES"}, 800, 1000, false},
};

inline constexpr std::string_view kNotes[][3] = {
    {"CUSTOMER STATES NOISE ONLY WHEN COLD.", "PARK OUTSIDE OVERNIGHT BEFORE THE TEST DRIVE.", ""},
    {"REAR TIRES AT 3/32, ADVISED.", "", ""},
    {"PARTS ORDERED, ARRIVE NEXT MORNING.", "CALL CUSTOMER WHEN THEY ARE IN.", ""},
    {"DECLINED FLUSH THIS VISIT.", "OFFER AGAIN AT THE NEXT OIL CHANGE.", "QUOTED 89.95."},
};

}  // namespace lantos::sample
