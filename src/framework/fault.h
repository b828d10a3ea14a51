// Fault: the one exception of the program, for what its logic never means to do: an index out of range, a key that is
// not there, a stream that was never opened. Accessors of the framework and of property lists throw it; the boundary of
// an event catches it, and whoever reads a damaged file. Every failure that is to be expected is a value instead.
#pragma once

#include <stdexcept>

namespace sumlet {

class Fault : public std::runtime_error {
 public:
  // `what` completes the sentence "This could not be done because of ...".
  using std::runtime_error::runtime_error;
};

}  // namespace sumlet
