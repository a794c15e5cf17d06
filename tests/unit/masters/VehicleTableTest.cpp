#include "masters/vehicles/VehicleTable.h"
#include "records/MakesModels.h"

#include <gtest/gtest.h>

namespace lantos {
namespace {

VehicleRow Row(const std::string& make, const std::string& vin, std::int32_t mileage, FileLink link,
               std::int32_t deleted = kVehicleLive) {
  return {"1999", make, "Model", "LIC", vin, mileage, link, deleted};
}

std::vector<FileLink> Links(const std::vector<const VehicleRow*>& rows) {
  std::vector<FileLink> links;
  for (const VehicleRow* row : rows) links.push_back(row->VLink);
  return links;
}

TEST(VehicleTable, AFilterAsksForTheBeginningWithoutRegardToCase) {
  VehicleFilter filter;
  filter.Make = "hon";
  EXPECT_TRUE(filter.Passes(Row("HONDA", "1", 0, 0)));
  EXPECT_FALSE(filter.Passes(Row("AHONDA", "1", 0, 0)));
  EXPECT_FALSE(filter.Passes(Row("HO", "1", 0, 0)));
}

TEST(VehicleTable, FiltersAreJoinedByAnd) {
  VehicleFilter filter;
  filter.Make = "H";
  filter.VIN = "2";
  EXPECT_FALSE(filter.Passes(Row("HONDA", "1", 0, 0)));
  EXPECT_TRUE(filter.Passes(Row("HONDA", "2", 0, 0)));
}

TEST(VehicleTable, WildCardsStandForAnything) {
  VehicleFilter filter;
  for (const char* text : {"*ND", "%ND", "H*A", "H%D*", "HONDA*", "HONDA%", "*"}) {
    filter.Make = text;
    EXPECT_TRUE(filter.Passes(Row("HONDA", "1", 0, 0))) << text;
  }
  filter.Make = "*X";
  EXPECT_FALSE(filter.Passes(Row("HONDA", "1", 0, 0)));
}

TEST(VehicleTable, ABlankFilterPassesEveryRow) {
  VehicleFilter filter;
  filter.Make = "  ";
  EXPECT_TRUE(filter.Passes(Row("HONDA", "1", -5, 0)));
}

TEST(VehicleTable, DeletedVehiclesPassOnlyWhenTheyAreToBeShown) {
  VehicleFilter filter;
  EXPECT_FALSE(filter.Passes(Row("HONDA", "1", 0, 0, kVehicleDeleted)));
  EXPECT_TRUE(filter.Passes(Row("HONDA", "1", 0, 0, 0)));
  filter.showDeleted = true;
  EXPECT_TRUE(filter.Passes(Row("HONDA", "1", -1, 0, kVehicleDeleted)));
}

TEST(VehicleTable, RowsAreSortedByTheirColumnAndEqualOnesKeepTheChainsOrder) {
  const std::vector<VehicleRow> rows = {Row("b", "1", 900, 0), Row("A", "2", 1000, 397), Row("B", "3", 20, 794)};
  const VehicleFilter filter;
  EXPECT_EQ(Links(Arrange(rows, filter, {VehicleColumn::Make, false})), (std::vector<FileLink>{397, 0, 794}));
  EXPECT_EQ(Links(Arrange(rows, filter, {VehicleColumn::Make, true})), (std::vector<FileLink>{0, 794, 397}));
  EXPECT_EQ(Links(Arrange(rows, filter, {VehicleColumn::Mileage, false})), (std::vector<FileLink>{794, 0, 397}));
}

TEST(VehicleTable, AStoredSortReadsForEitherKindOfShop) {
  EXPECT_EQ(VehicleSort::Parse("License").Text(true), "Unit");
  EXPECT_EQ(VehicleSort::Parse("License Desc").Text(true), "Unit Desc");
  EXPECT_EQ(VehicleSort::Parse("Unit").Text(false), "License");
  EXPECT_EQ(VehicleSort::Parse("Unit Desc").Text(false), "License Desc");
  EXPECT_EQ(VehicleSort::Parse("Mileage Desc").Text(false), "Mileage Desc");
  EXPECT_EQ(VehicleSort::Parse("Nonsense Desc").Text(false), "VIN");
  EXPECT_EQ(VehicleSort::Parse("").Text(false), "VIN");
}

TEST(VehicleTable, AnXMarksADeletedVehicle) {
  EXPECT_EQ(CellOf(Row("H", "1", 0, 0, kVehicleDeleted), VehicleColumn::X), "X");
  EXPECT_EQ(CellOf(Row("H", "1", 0, 0), VehicleColumn::X), " ");
}

}  // namespace
}  // namespace lantos
