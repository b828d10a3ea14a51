// Record: typed read access to keys and values, in a list of the settings file or in a dictionary of the older one. The
// two files are read by the same code.
#pragma once

#include <string_view>

#include "framework/text/text.h"
#include "persistence/key_list.h"

namespace sumlet {

class plistDict;

class Record {
 public:
  virtual ~Record() = default;
  [[nodiscard]] virtual bool HasItem(std::string_view key) const = 0;
  // Return the stored value, or `fallback` if it is missing or truncated.
  [[nodiscard]] virtual String GetString(std::string_view key, std::string_view fallback) const = 0;
  [[nodiscard]] virtual Int32 GetInteger(std::string_view key, Int32 fallback) const = 0;
  [[nodiscard]] virtual bool GetBoolean(std::string_view key, bool fallback) const = 0;
};

// Converts the texts of the list as a Variant does. Refers to the list, which has to outlive it.
class KeyListRecord final : public Record {
 public:
  explicit KeyListRecord(KeyList& list) : list_(list) {}
  [[nodiscard]] bool HasItem(std::string_view key) const override;
  [[nodiscard]] String GetString(std::string_view key, std::string_view fallback) const override;
  [[nodiscard]] Int32 GetInteger(std::string_view key, Int32 fallback) const override;
  [[nodiscard]] bool GetBoolean(std::string_view key, bool fallback) const override;

 private:
  KeyList& list_;
};

// Adds missing keys to the dictionary. Refers to the dictionary, which has to outlive it.
class PropertyListRecord final : public Record {
 public:
  explicit PropertyListRecord(plistDict& dict) : dict_(dict) {}
  [[nodiscard]] bool HasItem(std::string_view key) const override;
  [[nodiscard]] String GetString(std::string_view key, std::string_view fallback) const override;
  [[nodiscard]] Int32 GetInteger(std::string_view key, Int32 fallback) const override;
  [[nodiscard]] bool GetBoolean(std::string_view key, bool fallback) const override;

 private:
  plistDict& dict_;
};

}  // namespace sumlet
