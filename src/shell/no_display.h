// NoDisplayEndsProgram: a start without a display ends with a plain message and status 1.
#pragma once

#include <qlogging.h>

namespace sumlet {

// While it lives, a fatal message of the toolkit ends the process at once, without a core dump. So it lives while the
// application object is made, before there is anything to lose.
class NoDisplayEndsProgram {
 public:
  NoDisplayEndsProgram();
  NoDisplayEndsProgram(const NoDisplayEndsProgram&) = delete;
  NoDisplayEndsProgram& operator=(const NoDisplayEndsProgram&) = delete;
  ~NoDisplayEndsProgram();
};

}  // namespace sumlet
