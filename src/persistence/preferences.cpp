#include "persistence/preferences.h"

#include <utility>
#include <variant>
#include <vector>

#include "framework/fault.h"
#include "framework/text/variant.h"
#include "persistence/key_list.h"
#include "persistence/record.h"
#include "persistence/recovery.h"
#include "plist/plist.h"
#include "plist/plist_dict.h"

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
  using Value = std::variant<Int32, bool>;
  [[nodiscard]] Value Current() const {
    return std::visit([](const auto* value) { return Value(*value); }, variable);
  }
  [[nodiscard]] bool IsDefault() const { return Current() == fallback; }
  void Load(const Record& record) const {
    if (auto* const* number = std::get_if<Int32*>(&variable))
      **number = record.GetInteger(key, std::get<Int32>(fallback));
    else
      *std::get<bool*>(variable) = record.GetBoolean(key, std::get<bool>(fallback));
  }
  void Store(KeyList& list) const {
    list.AddItem(key, std::visit([](auto value) { return Variant(Variant::Value(value)); }, Current()));
  }

  std::string_view key;
  std::variant<Int32*, bool*> variable;
  bool isOptional = false;  // written only while it differs from its default
  Value fallback = Current();
};

// In the order of the file.
const Setting settings[] = {
    {"TemplatesOpen", &TemplatesOpen},         {"TextSize", &TextSize},
    {"RememberEquations", &RememberEquations}, {"ShownReviewDialog", &ShownReviewDialog},
    {"ShowLineValues", &ShowLineValues, true},
};

void LoadSettings(const Record& record) {
  RunCount = record.GetInteger(runCountKey, 0);
  for (const Setting& setting : settings) setting.Load(record);
}

// Encodes the settings file. Does not change RunCount, so that all saves of one run write the same count.
String Content() {
  KeyList list = NewStoredList();
  list.AddItem(runCountKey, DoubleToVariant(RunCount + 1.0));  // a damaged file may have the largest Int32
  for (const Setting& setting : settings)
    if (!setting.isOptional || !setting.IsDefault()) setting.Store(list);
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
  LoadSettings(PropertyListRecord(pref->root()));
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
  const KeyListRecord record(list);
  LoadSettings(record);
  for (const Section& section : Sections()) section.Load(record.GetString(section.key, {}));
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
