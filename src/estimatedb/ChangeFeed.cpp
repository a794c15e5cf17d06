#include "estimatedb/ChangeFeed.h"

#include <iterator>
#include <utility>

#include "estimatedb/de.h"

namespace lantos {

void ChangeNews::Add(ChangeNews more) {
  isAll = isAll || more.isAll;
  std::move(more.changes.begin(), more.changes.end(), std::back_inserter(changes));
}

ChangeFeed::ChangeFeed(de& database, const WatchTimes& times) : watch_(database.Connection().Watch(times)) {}

ChangeNews ChangeFeed::Ask() {
  if (!watch_) return {};
  ForeignRows rows = watch_->Ask();
  ChangeNews news{rows.isAll, {}};
  if (!rows.trail.IsOpen()) return news;
  for (; !rows.trail.Eof(); rows.trail.MoveNext()) news.changes.push_back(TrailEntryOf(rows.trail));
  return news;
}

WatchContact ChangeFeed::Contact() const { return watch_ ? watch_->Contact() : WatchContact{}; }

std::chrono::milliseconds ChangeFeed::Pace() const { return watch_ ? watch_->Pace() : std::chrono::milliseconds(1000); }

}  // namespace lantos
