#pragma once

#include "estimatedb/EstimateDatabase.h"
#include "masters/inventory/frmInvList.h"
#include "records/Customers.h"
#include "records/modSystem.h"
#include "shop/Shop.h"
#include "workorders/Workorder.h"

namespace lantos {

// What the line editors ask of the board they work for.
class EstimateOnShow {
 public:
  virtual ~EstimateOnShow() = default;
  virtual std::int32_t DisplayedEstimate() const = 0;  // 0: none
  virtual const CustomerRecord& Customer() const = 0;  // of the displayed estimate
  virtual ui::ListBox& LaborList() = 0;
  virtual ui::ListBox& PartList() = 0;
  // Adds to the hours scheduled on the estimate's day, when its status counts toward it.
  virtual void AddScheduledHours(Hundredths hours) = 0;
  // The hours and the colour of that day.
  virtual void RefreshDay() = 0;
  virtual void RefreshTotals() = 0;
  virtual std::string CommentsOnShow() const = 0;
  // As they were last read or written, trimmed: what is on show beyond that was typed and isn't saved yet.
  virtual std::string CommentsAsStored() const = 0;
  // Comments that the database has already.
  virtual void ShowComments(const std::string& comments) = 0;
  // Into the comments' field and into the database.
  virtual void StoreComments(const std::string& comments) = 0;
};

// What every line editor is handed.
struct Workbench {
  Shop& shop;
  EstimateDatabase& database;
  frmInvList& inventoryList;
  Workorder& workorder;
  EstimateOnShow& estimate;

  de& Data() const { return database.lantosData; }
  std::int32_t Number() const { return estimate.DisplayedEstimate(); }
  const SystemRecord& System() const { return shop.records.system.SysRec; }
};

// A rate below 1 taxes nothing.
inline std::string DefaultTaxable(Millionths taxRate) { return taxRate >= 1 ? "Yes" : "No"; }

}  // namespace lantos
