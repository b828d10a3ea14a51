// Saves settings until a test kills it. The settings have one section, whose letter and length change with each save.
// Prints the 0-based number of each save before it begins.
#include <cstddef>
#include <iostream>
#include <string_view>

#include "persistence/preferences.h"

int main() {
  using namespace sumlet;
  std::size_t saves = 0;
  Preferences::RegisterSection({"TemplateList",
                                [&saves] {
                                  constexpr std::size_t lengths[] = {3'000'000, 10, 300'000, 70'000};
                                  return String(lengths[saves % 4], static_cast<char>('a' + saves % 26));
                                },
                                [](std::string_view) {}, [](plistDict&) {}});
  for (;; ++saves) {
    std::cout << saves << std::endl;
    Preferences::Save();
  }
}
