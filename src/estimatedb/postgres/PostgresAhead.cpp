#include "estimatedb/postgres/PostgresEngine.h"
#include "estimatedb/postgres/PostgresRequests.h"
#include "estimatedb/postgres/PostgresRows.h"

// What is asked for ahead, in one go.
namespace lantos {

std::vector<PostgresRequest> PostgresEngine::RequestsFor(const std::vector<Question>& questions) {
  std::vector<PostgresRequest> requests;
  for (const Question& question : questions) {
    Append(requests, lantos::RequestsOf(StatementOf(question.statement).texts, question.values));
  }
  return requests;
}

void PostgresEngine::Keep(const std::vector<Question>& questions, const std::vector<PostgresResult>& results,
                          std::size_t from) {
  std::unordered_map<std::string_view, AnswersOfOne> answers;
  for (std::size_t i = 0; i < questions.size(); ++i) {
    const Question& question = questions[i];
    foreseen_.Keep(question.statement, question.values, answers[question.statement].RowsOf(*results[from + i]));
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
    const std::vector<PostgresResult> results = OrWithNewPlans([&] {
      const std::vector<PostgresRequest> each = all;
      all.insert(all.begin(), PostgresRequest{"ROLLBACK"});  // of what a second try finds begun
      return Exchange(each);
    });
    Keep(questions, results, results.size() - 1 - questions.size());
  } catch (const PostgresFailure& failure) {
    Forget(questions.front().statement, KindOfState(failure.State()));
    Undo();
  }
}

// One round trip; where one of them fails, they are asked one by one, and the one that fails fails then.
void PostgresEngine::Foresee(const std::vector<Question>& questions) {
  if (questions.empty() || transaction_ == Transaction::None || transaction_ == Transaction::Lost) return;
  try {
    Keep(questions, AskInTransaction(RequestsFor(questions)), 0);
  } catch (const PostgresFailure& failure) {
    Forget(questions.front().statement, KindOfState(failure.State()));
    if (transaction_ == Transaction::Lost) Rethrow(failure, questions.front().statement, {}, Fate::NotStored);
  }
}

}  // namespace lantos
