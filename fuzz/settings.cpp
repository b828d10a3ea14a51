// The settings and the recovery file: loads any content as settings, templates and windows. Storing and loading these
// again changes nothing. A complete recovery file replaces the settings file, a damaged one does not.
//
// The windows are the fields of an equation window's record. Uses real files, because the program reads nothing else.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "check.h"
#include "framework/text/numbers.h"
#include "framework/text/text.h"
#include "persistence/recovery.h"
#include "persistence/stored_bytes.h"
#include "temporary_folder.h"

namespace sumlet {
namespace {

std::vector<FakeWindow> windows;  // back to front

void ListFields(const MyWindowManager::Record& record) {
  Items fields;
  for (const char* key : {"size", "left", "top", "width", "height", "name", "equation", "fullscreen"})
    fields.emplace_back(key, record.GetString(key, "none"));
  windows.emplace_back(std::move(fields));
}

void ListChooser(const MyWindowManager::Record& /*record*/) { windows.emplace_back(Items{{"template", "True"}}); }

std::vector<const MyWindowManager::StoredWindow*> StoredWindows() {
  std::vector<const MyWindowManager::StoredWindow*> stored;
  for (auto window = windows.rbegin(); window != windows.rend(); ++window) stored.push_back(&*window);
  return stored;
}

// The settings file in a folder of this process. The folder is in memory if the system has such folders, because
// renaming a file on a disk is slow.
std::filesystem::path PreparedFile() {
  if (std::filesystem::is_directory("/dev/shm")) setenv("TMPDIR", "/dev/shm", 0);
  static const TemporaryFolder folder;
  setenv("XDG_DATA_HOME", folder.Path().c_str(), 1);
  setenv("XDG_CONFIG_HOME", folder.Path().c_str(), 1);
  RegisterStores();
  static const HookGuard list = MyWindowManager::WindowList.Set(StoredWindows);
  MyWindowManager::RegisterRestorer({"template", ListChooser});
  MyWindowManager::RegisterRestorer({"equation", ListFields});
  return Preferences::GetPrefFile(true).value().Path();
}

void Write(const std::filesystem::path& path, std::string_view content) {
  std::ofstream(path, std::ios::binary) << content;
}

// The state that a start with the present files loads.
struct Loaded {
  [[nodiscard]] bool operator==(const Loaded&) const = default;
  std::vector<String> settings;
  String templates;
  std::vector<FakeWindow> openWindows;
};

Loaded LoadFiles() {
  windows.clear();
  const std::vector<String> alerts = AlertsOf(Preferences::Load);
  // One for the file's own list, and for the templates and for the windows one each and one for each kind of damage.
  Check(alerts.size() <= 1 + 2 * 256, "each kind of damage is reported once");
  const bool flags[] = {Preferences::TemplatesOpen, Preferences::RememberEquations, Preferences::ShownReviewDialog};
  std::vector<String> settings = {Str(Preferences::RunCount), Str(Preferences::TextSize)};
  for (const bool flag : flags) settings.emplace_back(flag ? "True" : "False");
  return {std::move(settings), Templates(), windows};
}

// Whether the reader may mistake `list` for the text form. Such a list is not read back, which is a known limit.
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

// Loads `input` as the recovery file beside the present settings file, and deletes it. `without` is the state that a
// start without a recovery file loads, `replaced` the state with `input` as the settings file.
void CheckRecovery(const FolderItem& settings, std::string_view input, const Loaded& without, const Loaded& replaced) {
  const FolderItem recovery(settings.Path().parent_path() / "recovery");
  const FolderItem damaged(settings.Path().parent_path() / "recovery.damaged");
  Write(recovery.Path(), input);
  const Loaded loaded = LoadFiles();
  if (Preferences::HasRecovery()) {
    Check(loaded == replaced, "a whole recovery file is loaded in place of the settings file");
    Check(recovery.ReadBinaryFile() == input, "loading leaves a whole recovery file as it is");
    recovery.Delete();
  } else {
    Check(loaded == without, "a damaged recovery file is ignored");
    Check(damaged.ReadBinaryFile() == input, "a damaged recovery file is kept under another name");
    damaged.Delete();
  }
}

// `whole` is the content of a recovery file. Adding or removing one byte damages it.
void CheckDamageIsSeen(const FolderItem& settings, const String& whole) {
  const std::filesystem::path recovery = settings.Path().parent_path() / "recovery";
  for (const String& content : {whole.substr(0, whole.size() - 1), whole + '\0'}) {
    Write(recovery, content);
    Check(!Recovery::Read(settings), "a recovery file that is cut or has trailing data is damaged");
  }
}

void CheckSavedRecovery(const FolderItem& settings) {
  Check(Preferences::SaveRecovery(), "nothing else writes the recovery file");
  Preferences::FinishSaving();
  const FolderItem recovery(settings.Path().parent_path() / "recovery");
  const std::optional<String> content = recovery.ReadBinaryFile();
  Check(content && Recovery::Read(settings) == content, "a recovery file that is written is whole");
  CheckDamageIsSeen(settings, *content);
}

}  // namespace

void CheckInput(std::string_view input) {
  static const FolderItem file(PreparedFile());
  static const String other = Bytes({{"RunCount", "3"}, {"TextSize", "20"}});
  static const Loaded defaults = LoadFiles();
  Write(file.Path(), other);
  static const Loaded others = LoadFiles();
  Write(file.Path(), input);
  const Loaded loaded = LoadFiles();
  AlertsOf(CheckTemplatesComeBack);
  AlertsOf(CheckWindowsComeBack);

  if (input.size() % 2 == 0) {
    Write(file.Path(), other);
    CheckRecovery(file, input, others, loaded);
  } else {
    file.Delete();
    CheckRecovery(file, input, defaults, loaded);
  }
  if (input.size() % 32 == 0) CheckSavedRecovery(file);  // waits for a thread, which is slow
}

}  // namespace sumlet
