// KeyList: an ordered list of keys and values, encoded as a byte string. The settings file and everything in it are
// such byte strings.
//
// A value may itself be an encoded list, which is how lists nest. KeyList writes the binary form and also reads the
// text form; docs/settings-format.md describes both.
//
// Keys and values are bytes: lengths and positions count bytes, positions are 1-based. Look-ups ignore case in the
// binary form and are exact in the text form. They find the first of several items with the same key.
//
// Reports bad input by MsgBox and continues as far as it can. Parsing terminates for any input.
#pragma once

#include <cstdint>
#include <set>
#include <string_view>
#include <vector>

#include "framework/desktop.h"
#include "framework/hook.h"
#include "framework/text/array.h"
#include "framework/text/text.h"
#include "framework/text/variant.h"
#include "persistence/key_list_items.h"

namespace sumlet {

class KeyList {
 public:
  KeyList() = default;
  virtual ~KeyList() = default;

  // Whether the list uses the binary form. Set it before writing. If it is False when reading, the first bytes decide.
  bool BinaryFormat = false;
  // Binary form: GetItem removes the item that it finds.
  bool RemoveItemsAsFound = false;
  // Writing: store lengths in the fewest bytes that the longest value needs, and begin each output with the format
  // byte. Otherwise lengths take four bytes and only the first output begins with the format byte.
  bool OptimizeBinaryLengthData = false;
  // Has no effect: every value is stored as plain text.
  bool InVariantMode = false;

  // Appends bytes and parses all complete items. Data may arrive in pieces of any size. If the first byte is not a
  // known format, shows a message, and the list stays empty.
  virtual void AddData(std::string_view data);

  // Returns the value of `key`. Sets `found` to False and returns an empty text if there is none.
  [[nodiscard]] virtual String GetItem(std::string_view key, bool& found);
  [[nodiscard]] virtual String GetItem(std::string_view key);

  // Discards the bytes that have been parsed. Use it when reading a long stream.
  virtual void ReduceBuffer();

  // Encodes all items as one byte string.
  [[nodiscard]] virtual String GetData();

  // Appends an item, even if the key exists. Stores numbers as StrLong does, and Booleans as "True" and "False". Keys
  // can have at most 255 bytes.
  virtual void AddItem(std::string_view key, const Variant& value);

  // In the binary form also finds the key of a trailing item whose value is incomplete.
  [[nodiscard]] virtual bool HasItem(std::string_view key);
  [[nodiscard]] virtual Variant GetItemV(std::string_view key);

  // By 0-based index; throws a Fault if it is out of range. Items of the text form have no index.
  virtual void BinGetItem(Int32 index, String& key, String& value) const;
  // The highest index, or -1 if the list is empty.
  [[nodiscard]] virtual Int32 BinUbound() const;
  virtual void RemoveAllItems();
  [[nodiscard]] virtual Int32 ItemCount() const;
  // Returns whether `key` exists, and sets `value` to its text, or to an empty text.
  [[nodiscard]] virtual bool GetItem(std::string_view key, Variant& value);
  [[nodiscard]] virtual String GetItemKey(Int32 index) const;
  [[nodiscard]] virtual String GetItem(Int32 index);  // not const, which would make GetItem(0) ambiguous
  // Removes every item with this key.
  virtual void RemoveItem(std::string_view key);

  // `n` without exponent and with up to 25 decimal places. Val restores magnitudes from about 1e-9 exactly.
  [[nodiscard]] virtual String StrLong(double n) const;

 private:
  class RecordReader;

  [[nodiscard]] Int32 ParseBinaryData();
  [[nodiscard]] bool TakeRecord(RecordReader& reader);
  [[nodiscard]] String ToString(const Array<String>& keys, const Array<String>& values, bool binary);
  [[nodiscard]] String ToText(const Array<String>& keys, const Array<String>& values) const;
  void DetermineInputFormat();
  [[nodiscard]] bool LooksLikeText() const;
  [[nodiscard]] String FindTagged(std::string_view key, bool& found);

  KeyListItems items_;
  String sDataBuffer;
  Int32 iFarthestBufferPosition = 1;  // of the first byte not yet parsed
  Int32 iFormatType = 0;              // 0 undecided, -1 binary, -2 text, else the bytes per length
  bool bDidSaveHeader = false;
  std::vector<bool> begun_;      // by position in the buffer: whether a parsed record begins there
  std::int64_t bytesTaken_ = 0;  // by those records in total
  std::int64_t itemsTaken_ = 0;
};

// Suppresses repeated alerts during its lifetime. A damaged list can contain thousands of damaged lists and would show
// the same alert for each.
class RepeatedAlerts {
 public:
  // Does not show the alerts in `shown`, and adds those that it shows.
  explicit RepeatedAlerts(std::set<String>& shown)
      : handler_(MsgBox.Set([show = MsgBox.Current(), &shown](std::string_view text) {
          if (shown.emplace(text).second && show) show(text);
        })) {}
  RepeatedAlerts(const RepeatedAlerts&) = delete;
  RepeatedAlerts& operator=(const RepeatedAlerts&) = delete;

 private:
  HookGuard handler_;
};

// Returns an empty list with the format of the settings file: binary form, lengths in the fewest bytes.
[[nodiscard]] KeyList NewStoredList();

}  // namespace sumlet
