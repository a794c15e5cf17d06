#include "estimatedb/postgres/PostgresRequests.h"

#include <iterator>

#include "estimatedb/postgres/PostgresValues.h"
#include "frame/Text.h"

namespace lantos {

std::vector<PostgresRequest> RequestsOf(const std::vector<std::string>& texts, const std::vector<Value>& parameters,
                                        PostgresRequest::Use often) {
  std::vector<PostgresRequest> requests;
  const auto use = parameters.empty() ? PostgresRequest::Use::Once : often;
  for (const std::string& text : texts) requests.push_back({.text = ToUtf8(text), .use = use});
  for (const Value& value : parameters) AddValue(requests.back(), value);
  return requests;
}

void Append(std::vector<PostgresRequest>& all, std::vector<PostgresRequest> more) {
  all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

}  // namespace lantos
