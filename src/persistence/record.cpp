#include "persistence/record.h"

#include <utility>

#include "framework/text/variant.h"
#include "plist/plist_dict.h"

namespace sumlet {
namespace {

// A truncated value counts as missing, although HasItem finds its key.
Variant LoadItem(KeyList& list, std::string_view key, const Variant& fallback) {
  bool found = false;
  String value = list.GetItem(key, found);
  return found ? StringToVariant(std::move(value)) : fallback;
}

}  // namespace

bool KeyListRecord::HasItem(std::string_view key) const { return list_.HasItem(key); }

String KeyListRecord::GetString(std::string_view key, std::string_view fallback) const {
  return VariantToString(LoadItem(list_, key, StringToVariant(String(fallback))));
}

Int32 KeyListRecord::GetInteger(std::string_view key, Int32 fallback) const {
  return VariantToInt32(LoadItem(list_, key, Int32ToVariant(fallback)));
}

bool KeyListRecord::GetBoolean(std::string_view key, bool fallback) const {
  return VariantToBoolean(LoadItem(list_, key, BooleanToVariant(fallback)));
}

bool PropertyListRecord::HasItem(std::string_view key) const { return dict_.Exists(key); }

String PropertyListRecord::GetString(std::string_view key, std::string_view fallback) const {
  return dict_.GetString(key, fallback);
}

Int32 PropertyListRecord::GetInteger(std::string_view key, Int32 fallback) const {
  return dict_.GetInteger(key, fallback);
}

bool PropertyListRecord::GetBoolean(std::string_view key, bool fallback) const {
  return dict_.GetBoolean(key, fallback);
}

}  // namespace sumlet
