#pragma once

#include <string_view>

// The words that sample people and places are made of.
namespace lantos::sample {

inline constexpr std::string_view kLastnames[] = {
    "Abbott",   "Adler",    "Alvarez",    "Andersen", "Archer",   "Baker",    "Barlow",  "Becker",    "Bennett",
    "Bergman",  "Bishop",   "Boyd",       "Bradford", "Brennan",  "Bruno",    "Burke",   "Calloway",  "Cardenas",
    "Carver",   "Chandler", "Chen",       "Cole",     "Conway",   "Cooper",   "Costa",   "Cruz",      "Dalton",
    "Davies",   "Dawson",   "Delgado",    "Dixon",    "Donovan",  "Dunn",     "Eastman", "Ellis",     "Erickson",
    "Farrell",  "Fischer",  "Fletcher",   "Flores",   "Foster",   "Fowler",   "Garza",   "Gibson",    "Goodwin",
    "Grant",    "Greer",    "Guzman",     "Hahn",     "Hanson",   "Harlow",   "Hayes",   "Henning",   "Herrera",
    "Hobbs",    "Holloway", "Hughes",     "Ingram",   "Ivers",    "Jacobs",   "Jensen",  "Jordan",    "Kane",
    "Keller",   "Kim",      "Kowalski",   "Lambert",  "Larsen",   "Lawson",   "Leblanc", "Lindgren",  "Lowe",
    "Maddox",   "Marsh",    "Martinez",   "McBride",  "McKinney", "Medina",   "Mercer",  "Mills",     "Montoya",
    "Moreno",   "Murphy",   "Nakamura",   "Nash",     "Nguyen",   "Norris",   "O'Brien", "O'Neill",   "Olsen",
    "Ortega",   "Owens",    "Palmer",     "Park",     "Patel",    "Pearson",  "Perkins", "Porter",    "Quinn",
    "Ramirez",  "Reeves",   "Reyes",      "Rhodes",   "Rivera",   "Robbins",  "Romero",  "Rossi",     "Russo",
    "Salazar",  "Sanders",  "Schaefer",   "Schmidt",  "Shaw",     "Sheridan", "Silva",   "Sloan",     "Snyder",
    "Stafford", "Stokes",   "Sullivan",   "Sutton",   "Tanaka",   "Thornton", "Torres",  "Tucker",    "Underwood",
    "Vargas",   "Vaughn",   "Villanueva", "Wagner",   "Walsh",    "Warner",   "Weaver",  "Whitaker",  "Wilder",
    "Winslow",  "Wong",     "Yates",      "Yoder",    "Young",    "Zamora",   "Ziegler", "Zimmerman",
};

inline constexpr std::string_view kFirstnames[] = {
    "Aaron",  "Alice",   "Amanda",  "Andrea",  "Anita",  "Arthur",  "Barbara", "Beth",    "Brian",   "Bruce",
    "Carla",  "Carol",   "Cesar",   "Charles", "Cheryl", "Craig",   "Cynthia", "Daniel",  "Darlene", "David",
    "Dennis", "Diane",   "Donna",   "Douglas", "Edward", "Elena",   "Ellen",   "Eric",    "Esther",  "Frank",
    "Gail",   "George",  "Gloria",  "Gordon",  "Grace",  "Gregory", "Hank",    "Harold",  "Heather", "Henry",
    "Irene",  "Isabel",  "Jack",    "James",   "Janet",  "Jason",   "Jean",    "Jeffrey", "Jill",    "Joan",
    "Jorge",  "Joseph",  "Joyce",   "Judith",  "Julia",  "Karen",   "Keith",   "Kenneth", "Kim",     "Larry",
    "Laura",  "Lee",     "Leonard", "Linda",   "Lois",   "Lucia",   "Luis",    "Lynn",    "Marcus",  "Maria",
    "Marie",  "Martin",  "Mary",    "Maureen", "Megan",  "Michael", "Monica",  "Nancy",   "Neil",    "Norma",
    "Oscar",  "Pamela",  "Patrick", "Paul",    "Peggy",  "Peter",   "Philip",  "Rachel",  "Ralph",   "Raymond",
    "Regina", "Rita",    "Robert",  "Roger",   "Rosa",   "Ruth",    "Samuel",  "Sandra",  "Scott",   "Sharon",
    "Sheila", "Stephen", "Susan",   "Teresa",  "Thomas", "Tina",    "Victor",  "Walter",  "Wanda",   "William",
};

inline constexpr std::string_view kBusinessNames[] = {
    "Ridgeline", "Mill Creek", "Cedar Street", "Valley",      "Three Rivers", "Northgate",  "Summit",
    "Lakeside",  "Pioneer",    "Old Town",     "Stonebridge", "Eastside",     "Blue Heron", "Fairview",
    "Juniper",   "Orchard",    "Harbor",       "Prairie",     "Silver Fork",  "Meadow",
};
// With the name in front they fit a last name's 20 characters.
inline constexpr std::string_view kBusinessKinds[] = {
    "Plumbing", "Roofing", "Florist", "Couriers", "Dental", "Schools", "Bakery", "Nursery", "Electric", "Foods",
};

inline constexpr std::string_view kStreets[] = {
    "Alder St",    "Aspen Way",    "Birch Ln",  "Bluff Rd",   "Bridge St",    "Canyon Rd",   "Cedar St",  "Cherry Ave",
    "Church St",   "Clark St",     "Depot Ave", "Elm St",     "Fern Ct",      "Fifth Ave",   "First St",  "Grove St",
    "Hawthorn Dr", "Highland Ave", "Hill St",   "Juniper Ct", "Lake Rd",      "Linden Ln",   "Main St",   "Maple Ave",
    "Market St",   "Meadow Dr",    "Mill Rd",   "Oak St",     "Old Ferry Rd", "Orchard Dr",  "Park Ave",  "Pine St",
    "Quarry Rd",   "Railroad Ave", "River Rd",  "Second St",  "Spruce St",    "Sunset Blvd", "Third Ave", "Walnut St",
};

struct Town {
  std::string_view city, state, zip, areaCode;
};
inline constexpr Town kTowns[] = {
    {"Millbrook", "OR", "97331", "541"},
    {"Ashford Falls", "OR", "97338", "541"},
    {"Harlan", "OR", "97343", "541"},
    {"Stonebridge", "OR", "97352", "541"},
    {"Pine Hollow", "OR", "97361", "503"},
    {"Lakemont", "OR", "97374", "503"},
    {"Fairview Junction", "WA", "98651", "509"},
};

inline constexpr std::string_view kCustomerComments[] = {
    "Call work number first", "Prefers mornings",           "Wants old parts back", "Pays by check",
    "Call before extra work", "Drops off the night before", "Needs a ride to work", "Ask for referral card",
};

inline constexpr std::string_view kTaxIdPrefixes[] = {"EX", "RS", "GOV"};

}  // namespace lantos::sample
