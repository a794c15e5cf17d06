#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "admin/TestShop.h"
#include "estimatedb/EstimateDatabase.h"
#include "faults/ShopState.h"
#include "shop/HalfStored.h"

namespace lantos::test {

// A command of the program, on a shop of its own that is made anew for each run. The same command on the same shop
// makes the same calls, and leaves the same files.
class Deed {
 public:
  virtual ~Deed() = default;
  virtual TestShop& Shop() = 0;
  virtual EstimateDatabase* Database() { return nullptr; }
  // The person's hands, once. Forms that come up meanwhile are used as it is told below.
  virtual void Do() = 0;
  // For a deed with a journal, on a shop whose files another one has left in the middle: what the person makes of it at
  // the next start. Both end with the journal gone, and all done or nothing.
  enum class Settling { Finish, Undo };
  virtual bool HasJournal() const { return false; }
  virtual void Settle(Settling) {}
  // It came to its end without what the person was asked to go on without, and all else is whole.
  virtual bool IsWholeButForGivenUp(const ShopState&, const ShopState& /*before*/, const ShopState& /*after*/) {
    return false;
  }

  std::map<std::string, std::function<void(ui::Form&)>> forms;  // by name
  // For a form that comes up again behind what was done from it, and is left then.
  void Once(const std::string& form, std::function<void(ui::Form&)> use) {
    forms[form] = [this, use = std::move(use)](ui::Form& shown) {
      if (used.insert(shown.Name()).second) use(shown);
    };
  }
  std::set<std::string> used;                 // since the deed was begun
  std::map<std::string, ui::Answer> answers;  // to boxes that belong to it, by how their texts begin
  // What may be left changed when the rest isn't: a number that was taken, and nobody's row of it.
  std::vector<std::string> gaps;
  // The first number that it takes. Behind one that was skipped, the same is stored under the next.
  std::int32_t firstNumber = 0;
  // A text that is stored whole or not at all, where another try stores it under another number.
  std::string mark;
  // What lies in several files is written one after the other: files of which the first may have been written when the
  // next can't be. The person is told.
  std::vector<std::string> inTurn;
  // What is refused leaves what was written before it, a process that ends leaves all or nothing.
  bool isWholeWhenKilled = false;
  // The same behind the next start, by a journal.
  bool isJournaledWhenKilled = false;
};

// What the next start makes of the journals of records.
inline void FinishRecords(TestShop& shop) {
  shop.desktop.otherwise = [](const ui::Box&) { return ui::Answer::Ok; };
  SettleRecords(shop.environment, shop.desktop, shop.environment.files.List("AR*.J*"));
}

struct NamedDeed {
  std::string name;
  std::function<std::unique_ptr<Deed>()> make;
};

std::vector<NamedDeed> DeedsOnEstimates();
std::vector<NamedDeed> DeedsOnLines();
std::vector<NamedDeed> DeedsOnMasters();
std::vector<NamedDeed> DeedsOnStock();

// On a bench of the unit tests.
template <class Bench>
class DeedOn : public Bench, public Deed {
 public:
  TestShop& Shop() override { return *this; }
};
// On one that is a test of its own.
template <class Bench>
class DeedOnTest : public DeedOn<Bench> {
 public:
  void TestBody() override {}
};

}  // namespace lantos::test
