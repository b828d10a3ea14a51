// KeyList: any bytes, arriving in any pieces, make a list that can be asked, written and read back.
//
// The last bytes of the input say how the list is read and cut; what stands in front of them is the list.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>

#include "check.h"
#include "persistence/stored_bytes.h"

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

// `cut` is a place in the written bytes at which they are divided.
void CheckRoundTrip(const Items& items, bool optimized, std::size_t cut) {
  const String bytes = Bytes(items, optimized);
  cut = cut % bytes.size() + 1;
  Check(ItemsOf(ReadList({bytes})) == items, "each item comes back");
  Check(ItemsOf(ReadList({bytes.substr(0, cut), bytes.substr(cut)})) == items, "each item comes back in pieces");
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
    Check(found ? list.HasItem(key) : value.empty(), "what is found is there, and what is not has no value");
    Check(value.find("</" + String(key) + ">") == String::npos, "a value ends at the first closing tag");
  }
}

}  // namespace

void CheckInput(std::string_view input) {
  FuzzedDataProvider provider(reinterpret_cast<const unsigned char*>(input.data()), input.size());
  KeyList list;
  Read(list, provider);
  if (!list.BinaryFormat) {
    CheckTags(list);
    return;
  }
  for (const bool optimized : {true, false}) CheckRoundTrip(ItemsOf(list), optimized, input.size() * 7);
  CheckAnswers(list);
}

}  // namespace sumlet
