// A feed's design, changed on its behalf: under the store's lock, in its place, and not entered into the history, where
// a person's own steps are. A design that wouldn't change isn't written.
#pragma once

#include "feeds/feed.h"
#include "feeds/feed_output.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel {

/// Writes what the output names, and brings back the line that `sayNoNews` replaced. A design that isn't there is made,
/// behind the others; but one that was there and has been removed since is a failure.
Outcome<Done> updateDesign(const Feed& feed, const FeedOutput& output, const Platform& platform);

/// Lets the design say since when there is no news: in its second line, or behind its title where the card has no such
/// line. A person who changes that text meanwhile keeps the change.
Outcome<Done> sayNoNews(const Feed& feed, Date since, const Platform& platform);

/// Brings back the line, if it is replaced: for a feed that ends.
Outcome<Done> takeNoNewsBack(const Feed& feed, const Platform& platform);

}  // namespace orvel
