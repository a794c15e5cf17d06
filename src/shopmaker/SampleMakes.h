#pragma once

#include <string_view>

// The cars of the sample shops, and the years each was sold.
namespace lantos::sample {

struct ModelEntry {
  std::string_view make, model;
  int firstYear, lastYear;
  std::string_view engines[2];
};

inline constexpr int kStillSold = 9999;

inline constexpr ModelEntry kModels[] = {
    {"Buick", "Century", 1982, 2005, {"3.1L V6", "2.2L L4"}},
    {"Buick", "LeSabre", 1980, 2005, {"3.8L V6", "3.8L V6"}},
    {"Buick", "Enclave", 2008, kStillSold, {"3.6L V6", "3.6L V6"}},
    {"Chevrolet", "Cavalier", 1982, 2005, {"2.2L L4", "2.4L L4"}},
    {"Chevrolet", "Impala", 1994, 2020, {"3.4L V6", "3.8L V6"}},
    {"Chevrolet", "Malibu", 1997, 2024, {"3.1L V6", "2.4L L4"}},
    {"Chevrolet", "S10", 1982, 2004, {"4.3L V6", "2.2L L4"}},
    {"Chevrolet", "Silverado", 1999, kStillSold, {"5.3L V8", "4.8L V8"}},
    {"Chevrolet", "Tahoe", 1995, kStillSold, {"5.7L V8", "5.3L V8"}},
    {"Chrysler", "Town & Country", 1990, 2016, {"3.3L V6", "3.8L V6"}},
    {"Dodge", "Caravan", 1984, 2020, {"3.0L V6", "3.3L V6"}},
    {"Dodge", "Dakota", 1987, 2011, {"3.9L V6", "4.7L V8"}},
    {"Dodge", "Neon", 1995, 2005, {"2.0L L4", "2.0L L4"}},
    {"Dodge", "Ram 1500", 1994, kStillSold, {"5.2L V8", "5.7L V8"}},
    {"Ford", "Crown Victoria", 1983, 2011, {"4.6L V8", "4.6L V8"}},
    {"Ford", "E150", 1983, 2014, {"4.6L V8", "5.4L V8"}},
    {"Ford", "Escape", 2001, kStillSold, {"3.0L V6", "2.0L L4"}},
    {"Ford", "Escort", 1981, 2003, {"1.9L L4", "2.0L L4"}},
    {"Ford", "Explorer", 1991, kStillSold, {"4.0L V6", "4.6L V8"}},
    {"Ford", "F150", 1980, kStillSold, {"4.6L V8", "5.4L V8"}},
    {"Ford", "Focus", 2000, 2018, {"2.0L L4", "2.3L L4"}},
    {"Ford", "Ranger", 1983, 2011, {"3.0L V6", "2.3L L4"}},
    {"Ford", "Taurus", 1986, 2019, {"3.0L V6", "3.8L V6"}},
    {"GMC", "Sierra", 1988, kStillSold, {"5.3L V8", "5.7L V8"}},
    {"GMC", "Yukon", 1992, kStillSold, {"5.3L V8", "6.0L V8"}},
    {"Honda", "Accord", 1980, kStillSold, {"2.3L L4", "3.0L V6"}},
    {"Honda", "Civic", 1980, kStillSold, {"1.6L L4", "1.7L L4"}},
    {"Honda", "CR-V", 1997, kStillSold, {"2.0L L4", "2.4L L4"}},
    {"Honda", "Odyssey", 1995, kStillSold, {"3.5L V6", "3.5L V6"}},
    {"Hyundai", "Elantra", 1992, kStillSold, {"1.8L L4", "2.0L L4"}},
    {"Hyundai", "Sonata", 1989, kStillSold, {"2.4L L4", "2.5L V6"}},
    {"Jeep", "Cherokee", 1984, 2023, {"4.0L L6", "2.5L L4"}},
    {"Jeep", "Grand Cherokee", 1993, kStillSold, {"4.0L L6", "4.7L V8"}},
    {"Jeep", "Wrangler", 1987, kStillSold, {"4.0L L6", "3.6L V6"}},
    {"Mazda", "626", 1980, 2002, {"2.0L L4", "2.5L V6"}},
    {"Mazda", "Protege", 1990, 2003, {"1.6L L4", "2.0L L4"}},
    {"Mazda", "CX-5", 2013, kStillSold, {"2.0L L4", "2.5L L4"}},
    {"Nissan", "Altima", 1993, kStillSold, {"2.4L L4", "2.5L L4"}},
    {"Nissan", "Maxima", 1982, 2023, {"3.0L V6", "3.5L V6"}},
    {"Nissan", "Pathfinder", 1986, kStillSold, {"3.3L V6", "3.5L V6"}},
    {"Nissan", "Sentra", 1982, kStillSold, {"1.6L L4", "1.8L L4"}},
    {"Oldsmobile", "Cutlass Ciera", 1982, 1996, {"3.1L V6", "2.2L L4"}},
    {"Pontiac", "Grand Am", 1985, 2005, {"2.4L L4", "3.4L V6"}},
    {"Pontiac", "Grand Prix", 1980, 2008, {"3.1L V6", "3.8L V6"}},
    {"Saturn", "SL2", 1991, 2002, {"1.9L L4", "1.9L L4"}},
    {"Subaru", "Forester", 1998, kStillSold, {"2.5L H4", "2.5L H4"}},
    {"Subaru", "Legacy", 1989, kStillSold, {"2.2L H4", "2.5L H4"}},
    {"Subaru", "Outback", 1995, kStillSold, {"2.5L H4", "3.0L H6"}},
    {"Toyota", "4Runner", 1984, kStillSold, {"3.0L V6", "3.4L V6"}},
    {"Toyota", "Camry", 1983, kStillSold, {"2.2L L4", "3.0L V6"}},
    {"Toyota", "Corolla", 1980, kStillSold, {"1.8L L4", "1.6L L4"}},
    {"Toyota", "RAV4", 1996, kStillSold, {"2.0L L4", "2.5L L4"}},
    {"Toyota", "Sienna", 1998, kStillSold, {"3.0L V6", "3.5L V6"}},
    {"Toyota", "Tacoma", 1995, kStillSold, {"2.7L L4", "3.4L V6"}},
    {"Volkswagen", "Golf", 1980, 2021, {"2.0L L4", "1.8L L4"}},
    {"Volkswagen", "Jetta", 1980, kStillSold, {"2.0L L4", "2.5L L5"}},
    {"Volvo", "240", 1980, 1993, {"2.3L L4", "2.3L L4"}},
    {"Volvo", "850", 1993, 1997, {"2.4L L5", "2.3L L5"}},
    {"Volvo", "S60", 2001, kStillSold, {"2.4L L5", "2.5L L5"}},
};

// The first three characters of the vehicle numbers of each make.
struct MakerCode {
  std::string_view make, code;
};
inline constexpr MakerCode kMakerCodes[] = {
    {"Buick", "1G4"},  {"Chevrolet", "1G1"},  {"Chrysler", "2C4"}, {"Dodge", "1B7"},  {"Ford", "1FA"},
    {"GMC", "1GT"},    {"Honda", "1HG"},      {"Hyundai", "KMH"},  {"Jeep", "1J4"},   {"Mazda", "JM1"},
    {"Nissan", "1N4"}, {"Oldsmobile", "1G3"}, {"Pontiac", "1G2"},  {"Saturn", "1G8"}, {"Subaru", "4S3"},
    {"Toyota", "4T1"}, {"Volkswagen", "3VW"}, {"Volvo", "YV1"},
};

inline constexpr std::string_view kAutomatics[] = {"4 Spd Auto", "Automatic", "5 Spd Auto"};
inline constexpr std::string_view kManuals[] = {"5 Spd Man", "6 Spd Man"};
inline constexpr std::string_view kColors[] = {"White", "Silver", "Dark blue", "Red", "Green", "Black", "Tan", "Gray"};
inline constexpr std::string_view kVehicleComments[] = {
    "Locking lug key in the glove box",
    "Aftermarket alarm, ask for the code",
    "Seeps oil at the valve cover, watch",
    "Windshield chip, left side",
    "Synthetic oil only",
    "Trailer hitch and brake controller",
};

}  // namespace lantos::sample
