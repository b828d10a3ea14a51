// KeyList: the bytes that it writes, damaged lists, the detection of the two forms, and look-ups.
#include "persistence/key_list.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <tuple>
#include "stored_bytes.h"

namespace sumlet {
namespace {

using namespace std::string_view_literals;

TEST(KeyList, WritesTheDocumentedBytes) {
  EXPECT_EQ(Bytes({{"name", "a"}, {"size", "13"}}), PageBytes("The items `name` = `a`"));
  EXPECT_EQ(Bytes({}), PageBytes("A list without items"));
  const std::pair<std::size_t, std::string_view> widths[] = {
      {255, "\x01\x01k\x01v\x04long\xFF"sv},
      {256, "\x02\x01k\x00\x01v\x04long\x01\x00"sv},
      {65535, "\x02\x01k\x00\x01v\x04long\xFF\xFF"sv},
      {65536, "\x04\x01k\x00\x00\x00\x01v\x04long\x00\x01\x00\x00"sv},
  };
  for (const auto& [longest, head] : widths) {
    const Items items = {{"k", "v"}, {"long", String(longest, '\xFE')}};
    EXPECT_EQ(Bytes(items), String(head) + items[1].second) << longest;
    EXPECT_EQ(ItemsOf(ReadList({Bytes(items)})), items) << longest;
  }
}

TEST(KeyList, FlagsDecideTheOutput) {
  KeyList list;
  list.BinaryFormat = true;
  list.AddItem("k", Int32ToVariant(-5));
  EXPECT_EQ(list.GetData(), "\x04\x01k\0\0\0\x02-5"sv);
  EXPECT_EQ(list.GetData(), "\x01k\0\0\0\x02-5"sv) << "without the format byte, which is written only once";
  list.OptimizeBinaryLengthData = true;
  for (int again = 0; again < 2; ++again) EXPECT_EQ(list.GetData(), "\x01\x01k\x02-5"sv);
  list.BinaryFormat = false;
  list.AddItem("Key", BooleanToVariant(true));
  EXPECT_EQ(list.GetData(), "<k>-5</k><key>True</key>");
  EXPECT_EQ(list.StrLong(1e21), "1000000000000000000000");
  EXPECT_EQ(list.StrLong(-0.5), "-0.5");
}

TEST(KeyList, DamagedListsEnd) {
  const std::tuple<const char*, std::string_view, Items> rows[] = {
      {"a key that is too long", "\x01\xFFk", {}},
      {"a single byte behind the item", "\x01\x01k\x01v\x05", {}},
      {"back to itself", "\x04\x01k\xFF\xFF\xFF\xFA"sv, {}},
      {"back to the previous item", "\x04\x01k\0\0\0\0\x01l\xFF\xFF\xFF\xF4"sv, {{"k", ""}}},
      {"far in front of the list", "\x04\x01k\0\0\0\0\x01l\x80\0\0\0"sv, {{"k", ""}}},
      {"back to a position where no item begins",
       "\x04\0\0\0\0\0\x01k\xFF\xFF\xFF\xF6"sv,
       {{"", ""}, {"k", ""}, {"", "k"}}},
  };
  for (const auto& [damage, bytes, items] : rows) EXPECT_EQ(ItemsOf(ReadList({bytes})), items) << damage;
  EXPECT_EQ(AlertsOf([] { ReadList({""}); }), UnknownFormats({"0"}));
  EXPECT_EQ(AlertsOf([] { ReadList({"\x03\x01k\x01v"}); }), UnknownFormats({"3"}));
  // truncated in a length that would lead back into the first value
  EXPECT_EQ(ReadList({Bytes({{"k", String(300, 'v')}}, false) + "\x01l\xFF\xFF\xFF"}).ItemCount(), 1);
}

// Records that lead back and forth between two halves of the list, each with half the list as its value; empty items.
TEST(KeyList, HostileListsDoNotFillMemory) {
  const Int32 hops = 2000;
  String bytes = "\x04";
  for (const Int32 length : {5 * (hops - 1), -5 * hops}) {
    String record(1, '\0');
    for (const int shift : {24, 16, 8, 0}) record += static_cast<char>(length >> shift);
    for (Int32 i = 0; i < hops; ++i) bytes += record;
  }
  std::size_t taken = 0;
  for (const auto& [key, value] : ItemsOf(ReadList({bytes}))) taken += value.size();
  EXPECT_TRUE(taken > bytes.size() && taken <= bytes.size() * 4) << taken;
  const std::size_t million = 1'000'000;
  EXPECT_EQ(ReadList({"\x01" + String(2 * million, '\0')}).ItemCount(), 1'000'000);
  EXPECT_LT(ReadList({"\x01" + String(20 * million, '\0')}).ItemCount(), 3'000'000);
}

TEST(KeyList, DetectsTheForm) {
  // Tags count when they begin and end within the first bytes: 30 and 33 of them.
  const String x(40, 'x');
  const std::pair<String, bool> isText[] = {
      {"<a>1</a>", true},
      {x.substr(12) + "<a></a>", true},
      {x.substr(11) + "<a></a>", false},
      {"<" + x.substr(9) + "></" + x.substr(10) + ">", true},
      {"<" + x.substr(8) + "></x>", false},
      {"<k>" + x + "</" + x.substr(10) + ">", true},
      {"<k>" + x + "</" + x.substr(9) + ">", false},
      {"<k></k", false},
      {"\x01\x01k\x05<x>ab", true},
  };
  for (const auto& [bytes, expected] : isText) {
    KeyList list;
    AlertsOf([&list, &data = bytes] { list.AddData(data); });
    EXPECT_EQ(list.BinaryFormat, !expected) << bytes;
  }
}

TEST(KeyList, ReadsTheTextFormFromTheBuffer) {
  KeyList list;
  list.RemoveItemsAsFound = true;
  list.AddData("<name>a<b>c</name><size>1");
  EXPECT_TRUE(!list.HasItem("Name") && list.GetItem("size").empty());
  for (int again = 0; again < 2; ++again) EXPECT_EQ(list.GetItem("name"), "a<b>c");
  list.AddData("3</size>");
  EXPECT_EQ(list.GetItem("size"), "13");
  list.ReduceBuffer();
  EXPECT_FALSE(list.HasItem("size"));
}

// Limits count the bytes in the buffer, so ReduceBuffer has to reset them.
TEST(KeyList, ReadsALongStreamInPieces) {
  const String record = Bytes({{"k", "value"}}, false).substr(1);
  const String piece = record.substr(3) + record.substr(0, 3);
  KeyList list = ReadList({"\x04" + record.substr(0, 3)});
  for (Int32 i = 1; i < 100; ++i) {
    list.AddData(i % 2 == 0 ? piece : piece + piece);
    list.ReduceBuffer();
    ASSERT_EQ(list.ItemCount(), i + (i + 1) / 2);
  }
}

}  // namespace
}  // namespace sumlet
