// Fault: the program's only exception type, for programming errors: an index out of range, an absent key, a stream that
// was never opened. Accessors of the framework and of property lists throw it. The event loop catches it, and so does
// code that reads a damaged file. Expected failures are return values.
#pragma once

#include <stdexcept>

namespace sumlet {

class Fault : public std::runtime_error {
 public:
  // `what` completes the sentence "This could not be done because of ...".
  using std::runtime_error::runtime_error;
};

}  // namespace sumlet
