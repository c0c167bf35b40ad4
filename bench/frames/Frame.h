#pragma once

namespace tolva::bench {

// What the frame probe says about one pass of a program's main thread, from the end of its pause (SDL_Delay) to the end
// of SDL_Flip. Times are in seconds of CLOCK_MONOTONIC. probe.py reads the same nine numbers.
struct Frame {
  double begin = 0;
  double flip = 0;  // the begin of SDL_Flip
  double end = 0;
  double workCpu = 0;  // CPU time before SDL_Flip
  double flipCpu = 0;  // and in it
  double lockWait = 0;
  double pictures = 0;  // decoded
  double texts = 0;     // rendered
  double view = 0;      // a sum over the middle of the window, which changes when the view moves
};

}  // namespace tolva::bench
