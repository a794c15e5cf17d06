#pragma once

#include <map>
#include <optional>

#include "contents/Workbench.h"
#include "records/Record.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// What the screens of sublets and waste have in common: the list of an estimate's lines, and their adding, changing and
// removing. Every change is in the database at once.
class ExtraLinesForm : public SizedForm {
 protected:
  struct Words {
    const char* form;
    const char* noun;           // "Sublet": of captions and messages
    const char* editorCaption;  // "Estimate Sublet"
    LongField taxRate;
  };
  ExtraLinesForm(Workbench& bench, const Words& words);

  // Of the tables: one each.
  virtual Recordset& StoredLines() = 0;
  virtual Recordset& StoredLine(std::int32_t number) = 0;
  virtual void AddLine(std::int32_t number, const de::Extra& line) = 0;
  virtual void DeleteLine(std::int32_t number) = 0;
  virtual std::string_view NumberColumn() const = 0;
  // Where a new line begins; nothing when the person takes none.
  virtual std::optional<ExtraLine> NewLine() = 0;

  void UseList(ui::ListBox& list);
  void UseCommands(ui::Button& add, ui::Button& change, ui::Button& remove, ui::Button& close);
  void ShowHeader(ui::Label& number, ui::Label& name);

  void OnLoad() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override { Hide(); }

  std::string DefaultTax() const { return DefaultTaxable(bench_.System().Get(words_.taxRate)); }

  Workbench& bench_;

 private:
  void Add();
  void Change();
  void Remove();
  void Store(std::int32_t number, const ExtraLine& line);
  void ShowLines(std::int32_t selected);
  int SelectedNumberRow() const;  // -1 when no row is selected

  Words words_;
  ui::ListBox* list_ = nullptr;
  std::map<std::int32_t, ExtraLine> lines_;  // behind the rows, by number
  std::int32_t lastLineNumber_ = 0;
};

}  // namespace lantos
