// The settings file is overwritten in place, so a power failure, or a kill in the middle of a write, can tear it. The
// recovery file is replaced as a whole. Each step is on the disk before the next one begins that relies on it:
//
//   1. recovery.new is written and flushed, renamed to recovery, and the folder is flushed
//   2. preferences is overwritten, and flushed together with the folder
//   3. recovery is deleted
//
// A start that finds recovery does not read preferences, which may be torn between 1 and 3.
//
// Flushing takes a disk up to a tenth of a second. A thread of its own for each write leaves the event thread free. It
// shares nothing with the program: it owns its copies of the path and the content.
#include "persistence/recovery.h"

#include <chrono>
#include <future>
#include <utility>

#include "framework/file/file_content.h"
#include "persistence/key_list.h"

namespace sumlet::Recovery {
namespace {

// Made before main and so still there when the handlers of exit run, one of which saves.
std::future<void> background;

FolderItem RecoveryFile(const FolderItem& settings) { return FolderItem(settings.Path().parent_path() / "recovery"); }

template <typename Job>
void RunInBackground(Job job) {
  Wait();
  background = std::async(std::launch::async, std::move(job));
}

// A whole list is written again as it was read.
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
    if (!Exists(settings) && settings.ReadBinaryFile() == content) return;  // saved meanwhile
    (void)ReplaceFile(RecoveryFile(settings).Path(), content);              // the next change tries again
  });
}

// Most saves find the recovery file as it has to be: it was written when typing paused.
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
