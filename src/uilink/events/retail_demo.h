#pragma once

namespace tessaview {

// A machine in a shop gets its panel and its UI back after whoever played with it has gone.

/// After a display change: a duplicated desktop is extended again in three minutes; on an extended one the UI is
/// launched. Only while the service "RetailDemo" runs. Main thread.
void FollowDisplaysInRetailDemo();

/// The five minutes after the panel was switched off are over: it comes back. Main thread; can take seconds.
void OnRetailDemoTimer();

/// The three minutes of a duplicated desktop are over: it is extended. Main thread; blocks for 2 seconds.
void OnRetailDemoCloneTimer();

}  // namespace tessaview
