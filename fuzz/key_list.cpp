// KeyList: any bytes, arriving in any pieces, make a list that can be asked, written and read back.
//
// The last bytes of the input say how the list is read and cut; what stands in front of them is the list.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>

#include "check.h"
#include "persistence/key_list.h"

namespace sumlet {
namespace {

constexpr Int32 mostAsked = 200;  // items of one list that are looked at one by one

void Read(KeyList& list, FuzzedDataProvider& input) {
  list.BinaryFormat = input.ConsumeBool();
  list.RemoveItemsAsFound = input.ConsumeBool();
  const bool reduces = input.ConsumeBool();
  for (Int32 pieces = input.ConsumeIntegralInRange<Int32>(0, 3); pieces > 0; --pieces) {
    list.AddData(input.ConsumeBytesAsString(input.ConsumeIntegral<std::uint8_t>()));
    if (reduces) list.ReduceBuffer();
  }
  list.AddData(input.ConsumeRemainingBytesAsString());
}

void CopyItems(const KeyList& from, KeyList& to) {
  for (Int32 i = 0; i <= from.BinUbound(); ++i) {
    String key;
    String value;
    from.BinGetItem(i, key, value);
    to.AddItem(key, StringToVariant(value));
  }
}

void CheckSameItems(const KeyList& a, const KeyList& b) {
  Check(a.ItemCount() == b.ItemCount(), "as many items come back");
  for (Int32 i = 0; i < a.ItemCount(); ++i) {
    String keys[2];
    String values[2];
    a.BinGetItem(i, keys[0], values[0]);
    b.BinGetItem(i, keys[1], values[1]);
    Check(keys[0] == keys[1] && values[0] == values[1], "each item comes back");
  }
}

// `cut` is a place in the written bytes at which they are divided.
void CheckRoundTrip(const KeyList& list, bool optimized, std::size_t cut) {
  KeyList writer;
  writer.BinaryFormat = true;
  writer.OptimizeBinaryLengthData = optimized;
  CopyItems(list, writer);
  const String bytes = writer.GetData();
  KeyList reader;
  reader.BinaryFormat = true;
  reader.AddData(bytes);
  CheckSameItems(list, reader);

  KeyList inPieces;
  inPieces.BinaryFormat = true;
  cut %= bytes.size();
  if (cut > 0) inPieces.AddData(std::string_view(bytes).substr(0, cut));
  inPieces.AddData(std::string_view(bytes).substr(cut));
  CheckSameItems(list, inPieces);
}

void CheckAnswers(KeyList& list) {
  for (Int32 i = 0; i < std::min(list.ItemCount(), mostAsked); ++i) {
    const Int32 count = list.ItemCount();
    const String key = list.GetItemKey(i);
    Check(list.HasItem(key), "a key that is listed is there");
    bool found = false;
    const String value = list.GetItem(key, found);
    Check(found, "a key that is listed is found");
    Check(list.ItemCount() == count - (list.RemoveItemsAsFound ? 1 : 0), "an item goes when it is found, or stays");
    Check(list.RemoveItemsAsFound || VariantToString(list.GetItemV(key)) == value, "both ways of asking agree");
  }
}

void CheckTags(KeyList& list) {
  for (const char* key : {"", "a", "name", "RunCount", "b>"}) {
    bool found = false;
    const String value = list.GetItem(key, found);
    Check(found || value.empty(), "what is not found has no value");
    Check(!found || list.HasItem(key), "what is found is there");
    Check(value.find("</" + String(key) + ">") == String::npos, "a value ends at the first closing tag");
  }
}

void CheckRemoval(KeyList& list) {
  if (list.ItemCount() == 0) return;
  const String key = list.GetItemKey(list.BinUbound());
  list.RemoveItem(key);
  for (Int32 i = 0; i < std::min(list.ItemCount(), mostAsked); ++i)
    Check(!SameText(list.GetItemKey(i), key), "no item with a removed key is left");
  list.RemoveAllItems();
  Check(list.BinUbound() == -1, "a list can be emptied");
}

}  // namespace
}  // namespace sumlet

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace sumlet;
  FuzzedDataProvider input(data, size);
  KeyList list;
  Read(list, input);
  if (list.BinaryFormat) {
    CheckRoundTrip(list, true, size * 7);
    CheckRoundTrip(list, false, size * 3);
    CheckAnswers(list);
    CheckRemoval(list);
  } else {
    CheckTags(list);
  }
  return 0;
}
