// Each equation is kept as the record that the session would store.
#include "equationwindow/closed_equations.h"

#include <cstddef>
#include <deque>

#include "equationwindow/win_sumlet.h"
#include "framework/text/text.h"
#include "framework/ui/window.h"
#include "persistence/key_list.h"
#include "persistence/my_window_manager.h"

namespace sumlet::ClosedEquations {
namespace {

constexpr std::size_t mostEquations = 20;
constexpr std::size_t mostBytes = std::size_t{64} << 20;

std::deque<String> closed;  // most recent first

bool IsTooMuch() {
  std::size_t bytes = 0;
  for (const String& record : closed) bytes += record.size();
  return closed.size() > mostEquations || (closed.size() > 1 && bytes > mostBytes);
}

}  // namespace

void Add(const winSumlet& window) {
  if (Trim(window.textInput().Text()).empty()) return;
  KeyList record = NewStoredList();
  window.StoreRecord(record);
  record.RemoveItem("size");  // the text size may change before the window opens again
  closed.push_front(record.GetData());
  while (IsTooMuch()) closed.pop_back();
}

bool IsEmpty() { return closed.empty(); }

void Reopen() {
  if (closed.empty()) return;
  KeyList record;
  record.BinaryFormat = true;
  record.AddData(closed.front());
  closed.pop_front();
  MyWindowManager::Restore(record);
  WindowAt(0).Show();
}

}  // namespace sumlet::ClosedEquations
