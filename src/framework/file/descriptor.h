// Descriptor: owns an open file descriptor and closes it.
#pragma once

#include <utility>

#if !defined(_WIN32)
#include <unistd.h>
#endif

namespace sumlet {

class Descriptor {
 public:
  Descriptor() = default;
  // Takes ownership of `number`; a negative one means no file.
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() { Close(); }

  [[nodiscard]] int Number() const { return number_; }
  [[nodiscard]] bool IsOpen() const { return number_ >= 0; }
  void Close() {
#if !defined(_WIN32)
    if (number_ >= 0) close(number_);
#endif
    number_ = -1;
  }

 private:
  int number_ = -1;
};

}  // namespace sumlet
