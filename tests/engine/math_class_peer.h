// Operations of MathClass that tests call one by one. Those that fail leave the details in `math`.
#pragma once

#include "engine/math_class.h"

namespace sumlet {

class MathClassPeer {
 public:
  static String DoOperation(MathClass& math, std::string_view left, std::string_view right, std::string_view op) {
    return math.DoOperation(left, right, op);
  }
  static String DoFunction(MathClass& math, std::string_view first, std::string_view second, std::string_view name) {
    return math.DoFunction(first, second, name);
  }
  static String FractionToDecimal(std::string_view text) { return MathClass::FractionToDecimal(text); }
};

}  // namespace sumlet
