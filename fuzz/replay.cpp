// Runs a fuzz target on the files of a folder, so that its seeds are tests with any compiler.
//
//   replay_NAME FOLDER [--damage|--random ROUNDS]
//
// With --damage also on each file cut at every length and with each byte changed, with --random on each file followed
// by random bytes. Ends after ten failures.
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "check.h"

namespace {

int failures = 0;

void Try(const std::string& description, const std::string& input) {
  try {
    sumlet::CheckInput(input);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "  by %s (%s)\n", description.c_str(), error.what());
    if (++failures == 10) std::exit(1);
  }
}

void TryDamaged(const std::string& name, const std::string& content) {
  for (std::size_t place = 0; place < content.size(); ++place) {
    Try(name + " cut to " + std::to_string(place) + " bytes", content.substr(0, place));
    std::string changed = content;
    changed[place] = static_cast<char>(changed[place] ^ (1 << place % 8));
    Try(name + " with a changed byte " + std::to_string(place), changed);
  }
}

void TryRandom(const std::string& name, const std::string& content, int rounds) {
  std::mt19937 random(1);
  for (int round = 0; round < rounds; ++round) {
    std::string input = content;
    for (unsigned length = random() % 200; length > 0; --length) input += static_cast<char>(random());
    Try(name + " with random bytes, round " + std::to_string(round), input);
  }
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2) return 2;
  const std::string option = count > 2 ? arguments[2] : "";
  const int rounds = count > 3 ? std::atoi(arguments[3]) : 0;
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(arguments[1])) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string content(std::istreambuf_iterator<char>(file), {});
    const std::string name = entry.path().filename().string();
    Try(name, content);
    if (option == "--damage") TryDamaged(name, content);
    if (option == "--random") TryRandom(name, content, rounds);
    ++files;
  }
  std::printf("%d files, %d failures\n", files, failures);
  return files > 0 && failures == 0 ? 0 : 1;
}
