#pragma once

#include <functional>
#include <optional>
#include <string>

#include "board/Board.h"
#include "masters/customers/MasterScreens.h"

namespace lantos {

// A new estimate for a customer chosen first and a vehicle chosen after that, and their change on the estimate on show.
class Booking {
 public:
  Booking(const BoardParts& parts, Board& board, MasterScreens& masters)
      : parts_(parts), board_(board), masters_(masters) {}

  // On the day of the last load, which the board then stands on.
  void NewEstimate();
  void EditCustomer();
  void EditVehicle();

 private:
  bool AskForPastDate(DaySerial day);
  // The number of an estimate for the customer that the person chooses; nothing when none is chosen.
  std::optional<std::int32_t> Create(DaySerial day, Status status);
  void TrySetCustomer(std::int32_t number);
  void ShowPrevious();
  void Book(std::int32_t number);
  void PrepareWorkorder(std::int32_t number, DaySerial day);
  void ShowBooked(std::int32_t number);
  void AttachCustomer();
  void AttachVehicle();
  void StoreChoice(const std::string& what, const std::function<void()>& store);
  de& Data() { return parts_.database.lantosData; }
  Estimate& Current() { return parts_.database.estimates.CurrentEstimate; }

  BoardParts parts_;
  Board& board_;
  MasterScreens& masters_;
};

}  // namespace lantos
