// KeyList: an ordered list of keys and values, and the byte strings that everything is stored as.
//
// A value may itself be the byte string of a list, so nesting is just a long value. The binary form is what is written;
// the text form is still read. docs/settings-format.md tells both byte by byte.
//
// Keys and values are bytes: lengths and positions count bytes, positions are 1-based. Keys are looked up without
// regard to case in the binary form, exactly in the text form. The first of several items with one key is the one
// found.
//
// Bad input is told by MsgBox, and the operation goes on as far as it can. Whatever the bytes, reading them ends.
#pragma once

#include <cstdint>
#include <vector>

#include "framework/text/array.h"
#include "framework/text/text.h"
#include "framework/text/variant.h"
#include "persistence/key_list_items.h"

namespace sumlet {

class KeyList {
 public:
  KeyList() = default;
  virtual ~KeyList() = default;

  // The binary form. A writer sets it; a reader that leaves it False has the form detected from the first bytes.
  bool BinaryFormat = false;
  // Binary form: a GetItem that finds a key also removes the item.
  bool RemoveItemsAsFound = false;
  // Writing: lengths take the fewest bytes that the longest value needs, and each output is complete. Without it they
  // take four bytes, and only the first output begins with the format byte.
  bool OptimizeBinaryLengthData = false;
  // Kept for callers that set it; every value is stored as plain text either way.
  bool InVariantMode = false;

  // Appends bytes and takes as many whole items from them as there are. Data may come in any pieces. A first byte that
  // is no format gives a message, and the list stays empty.
  virtual void AddData(std::string_view data);

  // The value of `key`; empty, with `found` False, when there is none.
  [[nodiscard]] virtual String GetItem(std::string_view key, bool& found);
  [[nodiscard]] virtual String GetItem(std::string_view key);

  // Forgets the bytes that have been taken already, for a list that reads a long stream.
  virtual void ReduceBuffer();

  // All items as one byte string. The list is unchanged.
  [[nodiscard]] virtual String GetData();

  // Appends an item, also when the key is there already. Numbers are written as by StrLong, Booleans as "True" and
  // "False". A key longer than 255 bytes cannot be stored.
  virtual void AddItem(std::string_view key, const Variant& value);

  // In the binary form a key counts as present as soon as it has arrived, even if its value has not.
  [[nodiscard]] virtual bool HasItem(std::string_view key);
  [[nodiscard]] virtual Variant GetItemV(std::string_view key);

  // By 0-based index; a Fault when there is no such item. Items of the text form have no index.
  virtual void BinGetItem(Int32 index, String& key, String& value) const;
  // The highest index, -1 for none.
  [[nodiscard]] virtual Int32 BinUbound() const;
  virtual void RemoveAllItems();
  [[nodiscard]] virtual Int32 ItemCount() const;
  // Says whether `key` is there and sets `value` to its text, empty when it is not.
  [[nodiscard]] virtual bool GetItem(std::string_view key, Variant& value);
  [[nodiscard]] virtual String GetItemKey(Int32 index) const;
  [[nodiscard]] virtual String GetItem(Int32 index);  // not const, which would make GetItem(0) ambiguous
  // Removes every item with this key.
  virtual void RemoveItem(std::string_view key);

  // A number without exponent, up to 25 places: Val reads it back as the same number from about 1e-9 on.
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
  Int32 iFarthestBufferPosition = 1;  // of the first byte not yet taken
  Int32 iFormatType = 0;              // 0 undecided, -1 binary, -2 text, else the bytes of a value's length
  bool bDidSaveHeader = false;
  std::vector<bool> begun_;      // by position in the buffer: whether a record that was taken begins there
  std::int64_t bytesTaken_ = 0;  // by those records together
  std::int64_t itemsTaken_ = 0;
};

// An empty list that is written as all of the settings file is: in the binary form, lengths in the fewest bytes.
[[nodiscard]] KeyList NewStoredList();

}  // namespace sumlet
