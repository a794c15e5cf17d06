#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "estimatedb/engine/Recordset.h"
#include "ui/Desktop.h"

namespace lantos {

// All that the database holds of a line: each value under the name that its editor has for it, as it reads there.
struct LineValue {
  std::string name;
  std::string text;
  bool operator==(const LineValue&) const = default;
};
using LineValues = std::vector<LineValue>;
// The texts of a line, each a value of its own: "Description 1" and so on.
template <class Texts>
void AddTexts(LineValues& values, const std::string& name, const Texts& texts) {
  for (std::size_t i = 0; i < texts.size(); ++i) values.push_back({name + " " + std::to_string(i + 1), texts[i]});
}

// A line that is to be changed or removed as it was listed. Another workstation may have changed or removed it since,
// and its number may be another line's by then: nothing is written until the person knows.
class ListedLine {
 public:
  explicit ListedLine(LineValues listed) : expected_(std::move(listed)) {}

  // In the transaction that writes, ahead of what it writes, with the line that has the number by then. Ends the
  // transaction where that is neither the line as it was listed nor as the person has been shown it since; whoever runs
  // it lets that pass to Store or Remove.
  void Expect(std::optional<LineValues> stored);

  // How lines are written: the transaction, and how their list is read again where it was ended.
  struct Writing {
    std::function<void()> transaction;
    std::function<void()> reload;
  };
  // Puts ours in place of the line, and asks for as long as what is stored is another one. False when that is kept.
  // OkCancelForm::BackToScreen when the person goes back to the editor.
  [[nodiscard]] bool Store(ui::Desktop& desktop, const std::string& title, const LineValues& ours,
                           const Writing& writing);

 private:
  ui::Answer Ask(ui::Desktop& desktop, const std::string& title, const LineValues& ours) const;

  std::optional<LineValues> expected_;
  std::optional<LineValues> found_;
};

// Removes lines in a transaction that expects each as it is listed. False when none was removed, which has been told.
// What names them: "The note \"CALL\" was".
[[nodiscard]] bool RemoveAsListed(ui::Desktop& desktop, const std::string& title, const std::string& what,
                                  const ListedLine::Writing& writing);

// The values of the row that isIt says yes to; none where there is no such row. Closes the recordset.
template <class IsIt, class ValuesOf>
std::optional<LineValues> StoredValues(Recordset& rows, const IsIt& isIt, const ValuesOf& valuesOf) {
  std::optional<LineValues> values;
  for (; !rows.Eof() && !values; rows.MoveNext()) {
    if (isIt(rows)) values = valuesOf(rows);
  }
  rows.Close();
  return values;
}

}  // namespace lantos
