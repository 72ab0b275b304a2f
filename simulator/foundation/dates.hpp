// NSDate by the phone's clock: its "now" moves with the phone's time and stands still between two turns.
// The time zone is the phone's too, Greenwich.
#pragma once

namespace simulator {

// Once for each process.
void installDates();

}  // namespace simulator
