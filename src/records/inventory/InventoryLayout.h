#pragma once

#include <string_view>

#include "records/Record.h"

namespace lantos {

// TQINVTAG.DAT: the index of the parts, with what lists and estimates need of each.
namespace inventorytag {
inline constexpr TextField StockNumber{0, 21};  // the key; blank on a deleted part
inline constexpr TextField Description{StockNumber.End(), 39};
inline constexpr LongField Pricing[4] = {  // Cost, Wholesale, Resale, Retail; Cents
    {Description.End()},
    {Description.End() + 4},
    {Description.End() + 8},
    {Description.End() + 12}};
inline constexpr IntegerField InStock{Pricing[3].End()};  // copy of QtyInStock
inline constexpr LongField Tag{InStock.End()};            // FileLink of the master in TQINVENT.DAT
inline constexpr ByteField IsStocked{Tag.End()};
inline constexpr TextField Dummy{IsStocked.End(), 45};  // kept blank
static_assert(Dummy.End() == 128);
}  // namespace inventorytag
using InventoryTag = Record<inventorytag::Dummy.End()>;

// TQINVENT.DAT: the full record.
namespace inventory {
inline constexpr TextField StockNumber{0, 21};
inline constexpr TextField AltNumber[4] = {
    {StockNumber.End(), 21}, {StockNumber.End() + 21, 21}, {StockNumber.End() + 42, 21}, {StockNumber.End() + 63, 21}};
inline constexpr TextField Description{AltNumber[3].End(), 39};
inline constexpr TextField Department{Description.End(), 21};
inline constexpr TextField Manufacturer{Department.End(), 21};
inline constexpr TextField Comment{Manufacturer.End(), 79};
inline constexpr LongField Pricing[4] = {
    {Comment.End()}, {Comment.End() + 4}, {Comment.End() + 8}, {Comment.End() + 12}};
inline constexpr LongField MarkupPercent[4] = {  // of each level on cost; Millionths
    {Pricing[3].End()},
    {Pricing[3].End() + 4},
    {Pricing[3].End() + 8},
    {Pricing[3].End() + 12}};
inline constexpr ByteField IsStocked{MarkupPercent[3].End()};
inline constexpr TextField Location{IsStocked.End(), 21};  // "KIT:" at its beginning marks a kit
inline constexpr ByteField HasACore{Location.End()};
inline constexpr LongField CoreCost{HasACore.End()};  // Cents
inline constexpr ByteField HasWaste{CoreCost.End()};
inline constexpr LongField DisposalFee{HasWaste.End()};  // Cents
inline constexpr IntegerField ReorderLevel{DisposalFee.End()};
inline constexpr IntegerField QtyInStock{ReorderLevel.End()};
inline constexpr IntegerField IdealLevel{QtyInStock.End()};
inline constexpr ByteField Deleted{IdealLevel.End()};  // 1 on a deleted part
inline constexpr LongField UsageLink{Deleted.End()};   // FileLink of the newest record in TQUSEHST.DAT
inline constexpr LongField ReceivingLink{UsageLink.End()};
static_assert(ReceivingLink.End() == 344);
}  // namespace inventory
using InventoryRecord = Record<inventory::ReceivingLink.End()>;

inline constexpr std::string_view kInventoryTagFile = "TQINVTAG.DAT";
inline constexpr std::string_view kInventoryFile = "TQINVENT.DAT";
inline constexpr std::string_view kDepartmentFile = "TQDEPART.DAT";
inline constexpr std::string_view kManufacturerFile = "TQMANUFA.DAT";
// Departments and manufacturers: one line of text, a column of this width for each name.
inline constexpr std::size_t kNameColumn = 20;

}  // namespace lantos
