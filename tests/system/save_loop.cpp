// Saves settings without end, for a test that kills it: each time one section of one letter, of another letter and
// length than the time before. Ahead of each save it tells its number, from 0 on, in a line.
#include <cstddef>
#include <iostream>

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
