// The entry point that libFuzzer calls.
#include <cstddef>

#include "check.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  sumlet::CheckInput({reinterpret_cast<const char*>(data), size});
  return 0;
}
