// The comparisons that one step of the animation clock makes, shared by every element that
// has a time span or frames: which way the step goes decides what "past" and "nearer" mean.
#pragma once

namespace Grafel::detail {

/// Whether nothing in [begin, end] can follow `time` in the step's direction: forward when
/// `time` is at or after `end`, backward when `begin` is at or after `time`. Written so that a
/// NaN `time` passes and the walk goes on.
inline bool spanIsBehind(double time, bool backward, double begin, double end) {
    return backward ? begin >= time : time >= end;
}

/// Offers the time of one frame to `best`, the frames being met in rising time order. Forward,
/// the first frame after `time` is the one that counts; backward, the last one before it.
/// Answers whether the frames still to come can no longer count. A NaN `best` takes nothing.
inline bool offerFrame(double frame, double time, bool backward, double& best) {
    if (!backward) {
        if (!(frame > time)) return false;
        if (best > frame) best = frame;
        return true;
    }
    if (!(frame < time)) return true;
    if (frame > best) best = frame;
    return false;
}

} // namespace Grafel::detail
