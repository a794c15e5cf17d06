#include "records/inventory/InventoryLayout.h"

#include <gtest/gtest.h>

namespace lantos {
namespace {

TEST(InventoryLayout, ThePartTagHasItsFieldsWhereTheFileHasThem) {
  EXPECT_EQ(inventorytag::StockNumber.offset, 0u);
  EXPECT_EQ(inventorytag::Description.offset, 21u);
  EXPECT_EQ(inventorytag::Pricing[0].offset, 60u);
  EXPECT_EQ(inventorytag::Pricing[3].offset, 72u);
  EXPECT_EQ(inventorytag::InStock.offset, 76u);
  EXPECT_EQ(inventorytag::Tag.offset, 78u);
  EXPECT_EQ(inventorytag::IsStocked.offset, 82u);
  EXPECT_EQ(inventorytag::Dummy.offset, 83u);
  EXPECT_EQ(InventoryTag::kLength, 128u);
}

TEST(InventoryLayout, ThePartMasterHasItsFieldsWhereTheFileHasThem) {
  EXPECT_EQ(inventory::AltNumber[0].offset, 21u);
  EXPECT_EQ(inventory::AltNumber[3].offset, 84u);
  EXPECT_EQ(inventory::Description.offset, 105u);
  EXPECT_EQ(inventory::Department.offset, 144u);
  EXPECT_EQ(inventory::Manufacturer.offset, 165u);
  EXPECT_EQ(inventory::Comment.offset, 186u);
  EXPECT_EQ(inventory::Pricing[0].offset, 265u);
  EXPECT_EQ(inventory::MarkupPercent[0].offset, 281u);
  EXPECT_EQ(inventory::IsStocked.offset, 297u);
  EXPECT_EQ(inventory::Location.offset, 298u);
  EXPECT_EQ(inventory::HasACore.offset, 319u);
  EXPECT_EQ(inventory::CoreCost.offset, 320u);
  EXPECT_EQ(inventory::HasWaste.offset, 324u);
  EXPECT_EQ(inventory::DisposalFee.offset, 325u);
  EXPECT_EQ(inventory::ReorderLevel.offset, 329u);
  EXPECT_EQ(inventory::QtyInStock.offset, 331u);
  EXPECT_EQ(inventory::IdealLevel.offset, 333u);
  EXPECT_EQ(inventory::Deleted.offset, 335u);
  EXPECT_EQ(inventory::UsageLink.offset, 336u);
  EXPECT_EQ(inventory::ReceivingLink.offset, 340u);
  EXPECT_EQ(InventoryRecord::kLength, 344u);
}

}  // namespace
}  // namespace lantos
