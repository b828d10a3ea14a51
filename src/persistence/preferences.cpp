#include "persistence/preferences.h"

#include <utility>
#include <variant>
#include <vector>

#include "framework/fault.h"
#include "persistence/recovery.h"
#include "persistence/registry.h"
#include "plist/plist.h"

namespace sumlet::Preferences {

Int32 RunCount = 0;
bool TemplatesOpen = true;
Int32 TextSize = defaultTextSize;
bool RememberEquations = true;
bool ShownReviewDialog = false;
bool ShowLineValues = false;
std::unique_ptr<plist> pref;

namespace {

std::vector<Section>& Sections() {
  static std::vector<Section> sections;
  return sections;
}

// The folder `name` in `parent`. Creates it if it does not exist and `create` is set.
std::optional<FolderItem> FolderIn(const FolderItem& parent, std::string_view name, bool create) {
  const FolderItem folder = parent.Child(name);
  if (create && !folder.Directory()) folder.CreateAsFolder();
  if (!folder.Directory()) return {};
  return folder;
}

constexpr std::string_view runCountKey = "RunCount";

// A setting of the file. The initial value of its variable is the default.
struct Setting {
  [[nodiscard]] Variant Value() const {
    const auto* number = std::get_if<Int32*>(&variable);
    return number != nullptr ? Int32ToVariant(**number) : BooleanToVariant(*std::get<bool*>(variable));
  }
  void Take(const Variant& value) const {
    if (const auto* number = std::get_if<Int32*>(&variable)) {
      **number = VariantToInt32(value);
    } else {
      *std::get<bool*>(variable) = VariantToBoolean(value);
    }
  }

  std::string_view key;
  std::variant<Int32*, bool*> variable;
  bool isOptional = false;  // written only while it differs from its default
  Variant fallback = Value();
  [[nodiscard]] bool IsDefault() const { return VariantToString(Value()) == VariantToString(fallback); }
};

// In the order of the file.
const Setting settings[] = {
    {"TemplatesOpen", &TemplatesOpen},         {"TextSize", &TextSize},
    {"RememberEquations", &RememberEquations}, {"ShownReviewDialog", &ShownReviewDialog},
    {"ShowLineValues", &ShowLineValues, true},
};

// `source` is the list of a settings file or the dictionary of an older one.
template <typename Source>
void LoadSettings(Source& source) {
  RunCount = VariantToInt32(LoadItem(source, runCountKey, Int32ToVariant(0)));
  for (const Setting& setting : settings) setting.Take(LoadItem(source, setting.key, setting.fallback));
}

// Encodes the settings file. Does not change RunCount, so that all saves of one run write the same count.
String Content() {
  KeyList list = NewStoredList();
  list.AddItem(runCountKey, DoubleToVariant(RunCount + 1.0));  // a damaged file may have the largest Int32
  for (const Setting& setting : settings)
    if (!setting.isOptional || !setting.IsDefault()) list.AddItem(setting.key, setting.Value());
  for (const Section& section : Sections()) list.AddItem(section.key, StringToVariant(section.Store()));
  return list.GetData();
}

// The dictionary of a section; nullptr if the key holds something else.
plistDict* OlderSection(plistDict& root, std::string_view key) {
  try {
    return &root.child(key);
  } catch (const Fault&) {
    return nullptr;
  }
}

// Returns false if a value in the section has the wrong type. Keeps what was read before.
bool LoadOlderSection(const Section& section, plistDict& dict) {
  try {
    section.LoadOlder(dict);
    return true;
  } catch (const Fault&) {
    return false;
  }
}

// A missing file results in the defaults, as on a first start. Reading stops at the first value of a wrong type, and
// the remaining sections take their defaults.
void PLIST_Load() {
  const std::optional<FolderItem> folder = SpecialFolder::Preferences();
  pref = std::make_unique<plist>(folder ? folder->Child("com.fernhill.sumlet.plist") : FolderItem({}));
  LoadSettings(pref->root());
  bool intact = true;
  for (const Section& section : Sections()) {
    plistDict nothing;
    plistDict* dict = intact ? OlderSection(pref->root(), section.key) : nullptr;
    intact = LoadOlderSection(section, dict != nullptr ? *dict : nothing) && dict != nullptr;
  }
}

}  // namespace

void RegisterSection(Section section) { RegisterByKey(Sections(), std::move(section)); }

std::optional<FolderItem> GetPrefFile(bool create) {
  const std::optional<FolderItem> library = SpecialFolder::UserLibrary();
  if (!library) return {};
  const std::optional<FolderItem> support = FolderIn(*library, "Application Support", create);
  if (!support) return {};
  const std::optional<FolderItem> folder = FolderIn(*support, "com.fernhill.sumlet", create);
  if (!folder) return {};
  return folder->Child("preferences");
}

// A truncated value counts as missing, although HasItem finds its key.
Variant LoadItem(KeyList& list, std::string_view key, const Variant& fallback) {
  bool found = false;
  String value = list.GetItem(key, found);
  return found ? StringToVariant(std::move(value)) : fallback;
}

Variant LoadItem(plistDict& dict, std::string_view key, const Variant& fallback) {
  switch (VarType(fallback)) {
    case VariantType::Integer:
      return Int32ToVariant(dict.GetInteger(key, VariantToInt32(fallback)));
    case VariantType::Boolean:
      return BooleanToVariant(dict.GetBoolean(key, VariantToBoolean(fallback)));
    default:
      return StringToVariant(dict.GetString(key, VariantToString(fallback)));
  }
}

// The settings come first, because the sections use them.
void Load() {
  const std::optional<FolderItem> file = GetPrefFile(false);
  std::optional<String> content = file ? Recovery::Read(*file) : std::nullopt;
  if (file && !content) content = file->ReadBinaryFile();
  if (!content) {
    PLIST_Load();
    return;
  }
  KeyList list;
  list.BinaryFormat = true;
  if (!content->empty()) list.AddData(*content);
  LoadSettings(list);
  for (const Section& section : Sections()) {
    section.Load(VariantToString(LoadItem(list, section.key, StringToVariant({}))));
  }
}

void Save() {
  const String content = Content();
  if (const std::optional<FolderItem> file = GetPrefFile(true)) Recovery::Save(*file, content);
}

bool SaveRecovery() {
  if (Recovery::IsBusy()) return false;
  String content = Content();
  if (const std::optional<FolderItem> file = GetPrefFile(true)) Recovery::Write(*file, std::move(content));
  return true;
}

bool HasRecovery() {
  const std::optional<FolderItem> file = GetPrefFile(false);
  return file && Recovery::Exists(*file);
}

void FinishSaving() { Recovery::Wait(); }

}  // namespace sumlet::Preferences
