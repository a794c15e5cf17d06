#include <utility>

#include "estimatedb/postgres/PostgresEngine.h"
#include "estimatedb/postgres/PostgresRequests.h"
#include "estimatedb/postgres/PostgresRows.h"

// What is asked for ahead, in one go.
namespace lantos {

namespace {

// The rows of the answers to several questions, made while the server is at the next one.
class RowsOfSeveral {
 public:
  explicit RowsOfSeveral(const std::vector<Question>& questions) : questions_(questions), rows_(questions.size()) {}

  // The first answer begins anew: whoever asks twice has other columns then.
  bool Look(std::size_t place, const pg_result& answer) {
    if (place == 0) answers_.clear();
    rows_[place] = answers_[questions_[place].statement].RowsOf(answer);
    return true;
  }
  std::vector<Recordset> Take() { return std::move(rows_); }

 private:
  const std::vector<Question>& questions_;
  std::unordered_map<std::string_view, AnswersOfOne> answers_;
  std::vector<Recordset> rows_;
};

}  // namespace

std::vector<PostgresRequest> PostgresEngine::RequestsFor(const std::vector<Question>& questions) {
  std::vector<PostgresRequest> requests;
  for (const Question& question : questions) {
    Append(requests, lantos::RequestsOf(StatementOf(question.statement).texts, question.values));
  }
  return requests;
}

void PostgresEngine::Keep(const std::vector<Question>& questions, std::vector<Recordset> answers) {
  for (std::size_t i = 0; i < questions.size(); ++i) {
    foreseen_.Keep(questions[i].statement, questions[i].values, std::move(answers[i]));
  }
}

void PostgresEngine::ReadAhead(const std::vector<Question>& questions, const std::function<void()>& work) {
  if (transaction_ != Transaction::None || isReadingAhead_ || questions.empty()) return work();
  AskAhead(questions);
  isReadingAhead_ = true;
  try {
    work();
  } catch (...) {
    EndReadingAhead();
    throw;
  }
  EndReadingAhead();
}

void PostgresEngine::EndReadingAhead() {
  isReadingAhead_ = false;
  foreseen_.Forget();
}

void PostgresEngine::AskAhead(const std::vector<Question>& questions) {
  if (!connection_ || !connection_->Stands()) Connect();
  try {
    std::vector<PostgresRequest> all{{std::string(kBeginReading)}};
    Append(all, RequestsFor(questions));
    all.push_back({"COMMIT"});
    RowsOfSeveral rows(questions);
    std::size_t ahead = 1;
    const auto look = [&](std::size_t place, const pg_result& answer) {
      return place >= ahead && place < ahead + questions.size() && rows.Look(place - ahead, answer);
    };
    bool isSecondTry = false;
    OrWithNewPlans([&] {
      if (std::exchange(isSecondTry, true)) {
        all.insert(all.begin(), PostgresRequest{"ROLLBACK"});  // of what the first has begun
        ++ahead;
      }
      return Exchange(all, look);
    });
    Keep(questions, rows.Take());
  } catch (const PostgresFailure& failure) {
    Forget(questions.front().statement, KindOfState(failure.State()));
    Undo();
  }
}

// One round trip; where one of them fails, they are asked one by one, and the one that fails fails then.
void PostgresEngine::Foresee(const std::vector<Question>& questions) {
  if (questions.empty() || transaction_ == Transaction::None || transaction_ == Transaction::Lost) return;
  try {
    RowsOfSeveral rows(questions);
    AskInTransaction(RequestsFor(questions),
                     [&](std::size_t place, const pg_result& answer) { return rows.Look(place, answer); });
    Keep(questions, rows.Take());
  } catch (const PostgresFailure& failure) {
    Forget(questions.front().statement, KindOfState(failure.State()));
    if (transaction_ == Transaction::Lost) Rethrow(failure, questions.front().statement, {}, Fate::NotStored);
  }
}

}  // namespace lantos
