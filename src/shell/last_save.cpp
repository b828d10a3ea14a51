// The display may be lost because its server has crashed, a remote connection has broken or a session was ended in
// haste. No signal needs to come with it, and watching the connection beside the toolkit would be a race with it for
// who notices first.
//
// Behind the save, exit would go on to destroy what the toolkit's threads are still working with. The process ends
// without that.
#include "shell/last_save.h"

#include <cstdlib>
#include <exception>
#include <utility>

namespace sumlet {
namespace {

std::function<void()>& Save() {
  static std::function<void()> save;
  return save;
}

void SaveAndEnd() {
  const std::function<void()> save = std::exchange(Save(), nullptr);
  if (!save) return;
  try {
    save();
  } catch (const std::exception&) {
    // Nobody is there to be told.
  }
  std::_Exit(EXIT_FAILURE);
}

}  // namespace

LastSave::LastSave(std::function<void()> save) {
  Save() = std::move(save);
  static const bool registered = std::atexit(SaveAndEnd) == 0;
  (void)registered;
}

LastSave::~LastSave() { Save() = nullptr; }

}  // namespace sumlet
