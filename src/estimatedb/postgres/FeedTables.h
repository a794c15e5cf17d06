#pragma once

#include <string_view>

namespace lantos {

// What a shop's schema has so that changes can be followed: TrailCount, whose one row a transaction counts up as its
// last step, so that the numbers come in the order of the commits; TrailFeed, which has a row a change under that
// number; and a trigger on the trail that does it and gives notice, for whoever writes to the trail. Where it is
// refused, the change is made without.

// Given the schema, whether it is there and may be read.
extern const std::string_view kAskForFeed;
// Several statements, which are one transaction; in the session's schema.
extern const std::string_view kMakeFeed;
// Given a number, the highest number and whatever has come behind the given one, with its row of the trail.
extern const std::string_view kAskForNews;
// Given a number of the trail, of the rows behind it those that the feed doesn't have, since their trigger wasn't there
// or failed: from which number to look the next time, how many there are behind the given one, and behind that. The
// feed has every row of the last thousand numbers that its trigger told of.
extern const std::string_view kAskForUntold;

}  // namespace lantos
