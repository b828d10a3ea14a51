// KeyList: reads any bytes, in any pieces, and then looks up items, writes the list and reads it back.
//
// The last bytes of the input choose how to read and divide the list. The bytes in front of them are the list.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "check.h"
#include "framework/text/numbers.h"
#include "framework/text/text.h"
#include "persistence/stored_bytes.h"

namespace sumlet {
namespace {

// Takes choices from the end of the input and bytes from its start.
class Input {
 public:
  explicit Input(std::string_view bytes) : bytes_(bytes) {}
  [[nodiscard]] std::uint8_t Choice() {
    if (bytes_.empty()) return 0;
    const char last = bytes_.back();
    bytes_.remove_suffix(1);
    return static_cast<std::uint8_t>(last);
  }
  [[nodiscard]] bool Flag() { return Choice() % 2 == 1; }
  [[nodiscard]] std::string_view Take(std::size_t length) {
    const std::string_view taken = bytes_.substr(0, length);
    bytes_.remove_prefix(taken.size());
    return taken;
  }
  [[nodiscard]] std::string_view Rest() const { return bytes_; }

 private:
  std::string_view bytes_;
};

void Read(KeyList& list, Input& input) {
  list.BinaryFormat = input.Flag();
  list.RemoveItemsAsFound = input.Flag();
  const bool reduces = input.Flag();
  for (int pieces = input.Choice() % 4; pieces > 0; --pieces) {
    list.AddData(input.Take(input.Choice()));
    if (reduces) list.ReduceBuffer();
  }
  list.AddData(input.Rest());
}

// Reads the bytes of `list` in two pieces. The results can differ for a damaged list that ends in a single extra byte:
// before that byte arrives, the list accepts an item that it drops afterwards.
void CheckPieces(std::string_view list, std::size_t cut) {
  if (list.empty()) return;
  cut = cut % list.size() + 1;
  const Items whole = ItemsOf(ReadList({list}));
  Items pieces = ItemsOf(ReadList({list.substr(0, cut), "", list.substr(cut)}));
  if (pieces.size() == whole.size() + 1) pieces.pop_back();
  Check(pieces == whole, "a list in pieces has the items of the whole");
}

// The number of complete items in the first `length` bytes of a list whose lengths have `width` bytes. An item followed
// by a single byte is not complete.
std::size_t WholeItems(const Items& items, std::size_t width, std::size_t length) {
  std::size_t end = 1;
  std::size_t count = 0;
  for (; count < items.size(); ++count) {
    end += 1 + items[count].first.size() + width + items[count].second.size();
    if (end > length || end + 1 == length) break;
  }
  return count;
}

// `cut` is the offset at which the written bytes are divided.
void CheckRoundTrip(const Items& items, bool optimized, std::size_t cut) {
  const String bytes = Bytes(items, optimized);
  cut = cut % bytes.size() + 1;
  Check(ItemsOf(ReadList({bytes})) == items, "each item comes back");
  Check(ItemsOf(ReadList({bytes.substr(0, cut), bytes.substr(cut)})) == items, "each item comes back in pieces");
  const Items left = ItemsOf(ReadList({bytes.substr(0, cut)}));
  Check(left.size() == WholeItems(items, static_cast<unsigned char>(bytes.front()), cut), "whole items are kept");
  Check(std::equal(left.begin(), left.end(), items.begin()), "items that are kept are unchanged");
}

// Long lists have an index of their keys. Look-ups must give the same results as a linear search.
void CheckLookUps(KeyList& list, Input& choices) {
  Items plain = ItemsOf(list);
  for (int step = choices.Choice(); step > 0; --step) {
    const int action = choices.Choice() % 8;
    const std::uint8_t number = choices.Choice();
    const bool isListed = action % 2 == 0 && !plain.empty();
    const String key = isListed ? plain[number % plain.size()].first : (number % 2 == 0 ? "é" : "É") + Str(number / 8);
    const auto hasKey = [&key](const auto& item) { return SameText(item.first, key); };
    const auto item = std::find_if(plain.begin(), plain.end(), hasKey);
    if (action < 3) {
      plain.emplace_back(key, Str(step));
      list.AddItem(key, plain.back().second);
    } else if (action < 7) {
      const String value = item == plain.end() ? "" : item->second;
      bool found = false;
      Check(list.GetItem(key, found) == value, "the first item of a key is found");
      Check(found == (item != plain.end()), "a key is found when it is listed");
      if (found && list.RemoveItemsAsFound) plain.erase(item);
    } else {
      list.RemoveItem(key);
      std::erase_if(plain, hasKey);
      Check(ItemsOf(list) == plain, "the items left are those of a plain list");
    }
  }
  for (const auto& [key, value] : plain) Check(list.HasItem(key), "a key that is listed is there");
}

void CheckTags(KeyList& list) {
  for (const char* key : {"", "a", "name", "RunCount", "b>"}) {
    bool found = false;
    const String value = list.GetItem(key, found);
    Check(found ? list.HasItem(key) : value.empty(), "what is found is there, and what is not has no value");
    Check(value.find("</" + String(key) + ">") == String::npos, "a value ends at the first closing tag");
  }
}

}  // namespace

void CheckInput(std::string_view input) {
  KeyList list;
  Input choices(input);
  Read(list, choices);
  CheckPieces(input, input.size() * 5);
  if (!list.BinaryFormat) {
    CheckTags(list);
    return;
  }
  for (const bool optimized : {true, false}) CheckRoundTrip(ItemsOf(list), optimized, input.size() * 7);
  CheckLookUps(list, choices);
}

}  // namespace sumlet
