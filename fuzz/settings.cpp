// The settings file: whatever its content, loading it ends with settings, templates and windows, and what is stored of
// them then comes back the same.
//
// The windows are the fields of an equation window's record. The file is a real one, since that is the only way in.
#include <cstdlib>
#include <fstream>
#include <utility>

#include "check.h"
#include "persistence/stored_bytes.h"
#include "temporary_folder.h"

namespace sumlet {
namespace {

std::vector<FakeWindow> windows;  // back to front

void RestoreEquation(const MyWindowManager::Record& record) {
  Items fields;
  for (const char* key : {"size", "left", "top", "width", "height", "name", "equation", "fullscreen"})
    fields.emplace_back(key, VariantToString(record.LoadItem(key, "none")));
  windows.emplace_back(std::move(fields));
}

void RestoreChooser(const MyWindowManager::Record& /*record*/) { windows.emplace_back(Items{{"template", "True"}}); }

std::vector<const MyWindowManager::StoredWindow*> StoredWindows() {
  std::vector<const MyWindowManager::StoredWindow*> stored;
  for (auto window = windows.rbegin(); window != windows.rend(); ++window) stored.push_back(&*window);
  return stored;
}

std::filesystem::path PreparedFile() {
  static const TemporaryFolder folder;
  setenv("XDG_DATA_HOME", folder.Path().c_str(), 1);
  RegisterStores();
  MyWindowManager::SetWindowList(StoredWindows);
  MyWindowManager::RegisterRestorer({"template", RestoreChooser});
  MyWindowManager::RegisterRestorer({"equation", RestoreEquation});
  return Preferences::GetPrefFile(true).value().Path();
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
  const String templates = Templates();
  TemplatesManager::Load(stored);
  Check(Templates() == templates, "the templates come back");
}

void CheckWindowsComeBack() {
  if (!Preferences::RememberEquations) Check(windows.empty(), "no window opens that was not asked for");
  Preferences::RememberEquations = true;
  const String stored = MyWindowManager::Store();
  if (MayLookLikeText(stored)) return;
  const std::vector<FakeWindow> before = std::exchange(windows, {});
  MyWindowManager::Load(stored);
  Check(windows == before, "the windows come back");
}

}  // namespace

void CheckInput(std::string_view input) {
  static const std::filesystem::path file = PreparedFile();
  std::ofstream(file, std::ios::binary) << input;
  windows.clear();
  const std::vector<String> alerts = AlertsOf(Preferences::Load);
  // One for the file's own list, and of the templates and the windows one for the whole and one for each kind of
  // damage.
  Check(alerts.size() <= 1 + 2 * 256, "no damage is told again and again");
  AlertsOf(CheckTemplatesComeBack);
  AlertsOf(CheckWindowsComeBack);

  // The same as a recovery file, which is loaded when it is whole, and else renamed.
  const std::filesystem::path recovery = file.parent_path() / "recovery";
  std::ofstream(recovery, std::ios::binary) << input;
  windows.clear();
  AlertsOf(Preferences::Load);
  std::filesystem::remove(recovery);
}

}  // namespace sumlet
