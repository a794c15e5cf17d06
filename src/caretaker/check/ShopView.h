#pragma once

#include <optional>

#include "caretaker/check/EstimateRows.h"
#include "caretaker/check/FlatFiles.h"
#include "frame/FileIO.h"

namespace lantos {

// A shop as the kinds look at it: everything read once, when the first of them asks.
class ShopView {
 public:
  explicit ShopView(FileIO& shopFiles) : files(shopFiles), flat(shopFiles) {}

  const EstimateRows& Estimates() {
    if (!estimates_) estimates_ = ReadEstimateRows(files);
    return *estimates_;
  }
  // From the disk again.
  void Forget() {
    flat.Forget();
    estimates_.reset();
  }

  FileIO& files;
  FlatFiles flat;

 private:
  std::optional<EstimateRows> estimates_;
};

}  // namespace lantos
