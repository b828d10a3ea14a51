// The settings file: whatever its content, loading it ends with settings, templates and windows, and what is stored of
// them then comes back the same.
//
// The windows are the fields of an equation window's record. The file is a real one, since that is the only way in.
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <utility>
#include <vector>

#include "check.h"
#include "framework/file/descriptor.h"
#include "framework/message.h"
#include "framework/text/bytes.h"
#include "persistence/my_window_manager.h"
#include "persistence/preferences.h"
#include "templates/templates_manager.h"

namespace sumlet {
namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 5> numberKeys{"size", "left", "top", "width", "height"};

struct Fields {
  std::array<Int32, numberKeys.size()> numbers{};
  String name;
  String equation;
  bool isFullScreen = false;
  bool isChooser = false;
  [[nodiscard]] bool operator==(const Fields&) const = default;
};

class FakeWindow final : public MyWindowManager::StoredWindow {
 public:
  explicit FakeWindow(Fields fields) : fields_(std::move(fields)) {}
  [[nodiscard]] bool operator==(const FakeWindow& other) const { return fields_ == other.fields_; }
  void StoreRecord(KeyList& record) const override {
    if (fields_.isChooser) {
      record.AddItem("template", BooleanToVariant(true));
      return;
    }
    for (std::size_t i = 0; i < numberKeys.size(); ++i)
      record.AddItem(numberKeys[i], Int32ToVariant(fields_.numbers[i]));
    record.AddItem("name", StringToVariant(fields_.name));
    record.AddItem("equation", StringToVariant(EncodeURLComponent(fields_.equation)));
    record.AddItem("fullscreen", BooleanToVariant(fields_.isFullScreen));
  }

 private:
  Fields fields_;
};

std::vector<FakeWindow> windows;  // back to front
int alerts = 0;

void RestoreEquation(const MyWindowManager::Record& record) {
  Fields fields;
  for (std::size_t i = 0; i < numberKeys.size(); ++i)
    fields.numbers[i] = VariantToInt32(record.LoadItem(numberKeys[i], Int32ToVariant(20)));
  fields.name = VariantToString(record.LoadItem("name", StringToVariant({})));
  fields.equation = DecodeURLComponent(VariantToString(record.LoadItem("equation", StringToVariant({}))));
  fields.isFullScreen = VariantToBoolean(record.LoadItem("fullscreen", BooleanToVariant(false)));
  windows.emplace_back(std::move(fields));
}

void RestoreChooser(const MyWindowManager::Record& /*record*/) {
  Fields fields;
  fields.isChooser = true;
  windows.emplace_back(std::move(fields));
}

std::vector<const MyWindowManager::StoredWindow*> StoredWindows() {
  std::vector<const MyWindowManager::StoredWindow*> stored;
  for (auto window = windows.rbegin(); window != windows.rend(); ++window) stored.push_back(&*window);
  return stored;
}

// A folder of this process alone, taken away at its end.
class SettingsFile {
 public:
  SettingsFile() {
    String name = (fs::temp_directory_path() / "fuzz-settings-XXXXXX").string();
    Check(mkdtemp(name.data()) != nullptr, "there is room for a file");
    folder_ = name;
    setenv("XDG_DATA_HOME", folder_.c_str(), 1);
    const fs::path path = Preferences::GetPrefFile(true).value().Path();
    file_ = Descriptor(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
  }
  SettingsFile(const SettingsFile&) = delete;
  SettingsFile& operator=(const SettingsFile&) = delete;
  ~SettingsFile() {
    std::error_code error;
    fs::remove_all(folder_, error);
  }
  void Fill(std::string_view content) const {
    const bool isCut = ftruncate(file_.Number(), 0) == 0;
    const ssize_t written = pwrite(file_.Number(), content.data(), content.size(), 0);
    Check(isCut && written == static_cast<ssize_t>(content.size()), "the file can be written");
  }

 private:
  fs::path folder_;
  Descriptor file_;
};

void Connect() {
  TemplatesManager::RegisterSection();
  MyWindowManager::RegisterSection();
  MyWindowManager::SetWindowList(StoredWindows);
  MyWindowManager::RegisterRestorer({"template", RestoreChooser});
  MyWindowManager::RegisterRestorer({"equation", RestoreEquation});
  SetMessageHandler([](std::string_view) { ++alerts; });
}

// A list whose first bytes look like a tag is taken for the text form, which is known and bears no reading back.
bool MayLookLikeText(std::string_view list) {
  return list.find('<') != std::string_view::npos && list.find('>') != std::string_view::npos;
}

void CheckTemplatesComeBack() {
  Check(TemplatesManager::Key.Ubound() == TemplatesManager::EquationText.Ubound(), "each template has a text");
  const String stored = TemplatesManager::Store();
  if (MayLookLikeText(stored)) return;
  Preferences::RunCount = 1;  // no examples are added
  const Array<String> keys = TemplatesManager::Key;
  const Array<String> texts = TemplatesManager::EquationText;
  TemplatesManager::Load(stored);
  Check(TemplatesManager::Key == keys && TemplatesManager::EquationText == texts, "the templates come back");
}

void CheckWindowsComeBack() {
  if (!Preferences::RememberEquations) Check(windows.empty(), "no window opens that was not asked for");
  Preferences::RememberEquations = true;
  const String stored = MyWindowManager::Store();
  if (MayLookLikeText(stored)) return;
  const std::vector<FakeWindow> before = std::move(windows);
  windows.clear();
  MyWindowManager::Load(stored);
  Check(windows == before, "the windows come back");
}

}  // namespace
}  // namespace sumlet

extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*arguments*/) {
  sumlet::Connect();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace sumlet;
  static const SettingsFile file;
  file.Fill(Input(data, size));
  windows.clear();
  alerts = 0;
  Preferences::Load();
  // One for the file's own list, and of the templates and the windows one for the whole and one for each kind of
  // damage.
  Check(alerts <= 1 + 2 * 256, "no damage is told again and again");
  CheckTemplatesComeBack();
  CheckWindowsComeBack();
  return 0;
}
