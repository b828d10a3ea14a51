// Save overwrites the settings file in place, so a power failure or a kill during the write can tear it. It replaces
// the recovery file atomically. Each step has reached the disk before a step that relies on it begins:
//
//   1. write and flush recovery.new, rename it to recovery, flush the folder
//   2. overwrite preferences, flush it and the folder
//   3. delete recovery
//
// preferences may be torn between 1 and 3. A start that finds recovery therefore does not read it.
//
// A flush takes up to a tenth of a second. A thread for each write keeps the event thread free. The thread owns copies
// of the path and the content, and shares no data with the program.
#include "persistence/recovery.h"

#include <chrono>
#include <filesystem>
#include <future>
#include <system_error>
#include <utility>

#include "framework/file/file_content.h"
#include "persistence/key_list.h"

namespace sumlet::Recovery {
namespace {

// Constructed before main, and so destroyed after the exit handlers have run, one of which saves.
std::future<void> background;

FolderItem RecoveryFile(const FolderItem& settings) { return FolderItem(settings.Path().parent_path() / "recovery"); }

template <typename Job>
void RunInBackground(Job job) {
  Wait();
  background = std::async(std::launch::async, std::move(job));
}

// A list is whole if encoding it again yields the same bytes.
bool IsWhole(const String& content) {
  if (content.empty() || (content[0] != 1 && content[0] != 2 && content[0] != 4)) return false;
  KeyList list;
  list.BinaryFormat = list.OptimizeBinaryLengthData = true;
  list.AddData(content);
  return list.ItemCount() > 0 && list.GetData() == content;
}

}  // namespace

std::optional<String> Read(const FolderItem& settings) {
  Wait();
  const FolderItem file = RecoveryFile(settings);
  std::optional<String> content = file.ReadBinaryFile();
  if (!content || IsWhole(*content)) return content;
  std::error_code error;
  std::filesystem::rename(file.Path(), file.Path().string() + ".damaged", error);
  return {};
}

bool Exists(const FolderItem& settings) { return RecoveryFile(settings).Exists(); }

bool IsBusy() {
  return background.valid() && background.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

void Wait() {
  if (background.valid()) background.wait();
}

void Write(const FolderItem& settings, String content) {
  RunInBackground([settings, content = std::move(content)] {
    if (!Exists(settings) && settings.ReadBinaryFile() == content) return;  // saved in the meantime
    (void)ReplaceFile(RecoveryFile(settings).Path(), content);              // the next change tries again
  });
}

// At most saves the recovery file is up to date, because it was written when typing paused.
void Save(const FolderItem& settings, const String& content) {
  Wait();
  const FolderItem recovery = RecoveryFile(settings);
  if (recovery.ReadBinaryFile() != content) (void)ReplaceFile(recovery.Path(), content);
  if (!settings.WriteBinaryFile(content)) return;
  RunInBackground([settings, recovery] {
    if (!FlushFile(settings.Path())) return;
    recovery.Delete();
    FolderItem(recovery.Path().string() + ".new").Delete();
  });
}

}  // namespace sumlet::Recovery
