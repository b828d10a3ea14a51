// What the tests of the stored forms share: alerts that are listed instead of shown, and lists in short.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "framework/message.h"
#include "persistence/key_list.h"

namespace sumlet {

// Keeps every alert shown while it lives.
class AlertLog {
 public:
  AlertLog() {
    previous_ = SetMessageHandler([this](std::string_view text) { texts_.emplace_back(text); });
  }
  AlertLog(const AlertLog&) = delete;
  AlertLog& operator=(const AlertLog&) = delete;
  ~AlertLog() { SetMessageHandler(std::move(previous_)); }
  [[nodiscard]] const std::vector<String>& Texts() const { return texts_; }

 private:
  MessageHandler previous_;
  std::vector<String> texts_;
};

inline std::vector<String> UnknownFormats(std::initializer_list<const char*> numbers) {
  std::vector<String> texts;
  for (const char* number : numbers) texts.push_back(String("Critical err: Input Format unknown: ") + number);
  return texts;
}

using Items = std::vector<std::pair<String, String>>;

inline String Bytes(const Items& items, bool optimized = true) {
  KeyList list;
  list.BinaryFormat = true;
  list.OptimizeBinaryLengthData = optimized;
  for (const auto& [key, value] : items) list.AddItem(key, value);
  return list.GetData();
}

inline Items ItemsOf(const KeyList& list) {
  Items items(static_cast<std::size_t>(list.ItemCount()));
  for (Int32 i = 0; i < list.ItemCount(); ++i) {
    auto& [key, value] = items[static_cast<std::size_t>(i)];
    list.BinGetItem(i, key, value);
  }
  return items;
}

// The bytes of the hexadecimal block of the format's page that stands behind `heading`.
String PageBytes(std::string_view heading);

}  // namespace sumlet
