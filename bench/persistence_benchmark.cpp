// Storing and loading templates and the windows of a session. "per_item" is the time for one template or window and
// "bytes_per_item" the maximum of the memory in use for it. Both must be the same for all numbers of items.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <string>
#include <vector>

#include "framework/text/bytes.h"
#include "framework/text/numbers.h"
#include "framework/text/text.h"
#include "persistence/key_list.h"
#include "persistence/my_window_manager.h"
#include "persistence/preferences.h"
#include "plist/plist_dict.h"
#include "templates/templates_manager.h"

namespace {

std::size_t heldBytes = 0;
std::size_t mostHeldBytes = 0;

}  // namespace

void* operator new(std::size_t size) {
  void* memory = std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  heldBytes += malloc_usable_size(memory);
  mostHeldBytes = std::max(mostHeldBytes, heldBytes);
  return memory;
}

void operator delete(void* memory) noexcept {
  heldBytes -= malloc_usable_size(memory);
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

namespace sumlet {
namespace {

template <typename Operation>
void Measure(benchmark::State& state, Operation operation) {
  const std::size_t heldBefore = heldBytes;
  mostHeldBytes = heldBytes;
  for (auto _ : state) operation();
  const auto items = static_cast<double>(state.range(0));
  state.counters["per_item"] =
      benchmark::Counter(items, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.counters["bytes_per_item"] = static_cast<double>(mostHeldBytes - heldBefore) / items;
}

String FormulaLines(Int32 count) {
  String text;
  for (Int32 i = 0; i < count; ++i) text += "sum = (price + " + Str(i) + ") * 1.19 # with tax\n";
  return text;
}

String ManyTemplates(std::int64_t count) {
  TemplatesManager::Key.Redim(-1);
  TemplatesManager::EquationText.Redim(-1);
  for (std::int64_t i = 0; i < count; ++i) {
    TemplatesManager::Key.Append("Template " + std::to_string(i));
    TemplatesManager::EquationText.Append(FormulaLines(4));
  }
  return TemplatesManager::Store();
}

void StoreTemplates(benchmark::State& state) {
  ManyTemplates(state.range(0));
  Measure(state, [] { benchmark::DoNotOptimize(TemplatesManager::Store()); });
}
BENCHMARK(StoreTemplates)->RangeMultiplier(10)->Range(100, 100'000)->Unit(benchmark::kMillisecond);

void LoadTemplates(benchmark::State& state) {
  const String data = ManyTemplates(state.range(0));
  Preferences::RunCount = 1;
  TemplatesManager::Load("\x01");
  Measure(state, [&data] { TemplatesManager::Load(data); });
  if (TemplatesManager::Key.Ubound() + 1 != state.range(0)) state.SkipWithError("templates are missing");
}
BENCHMARK(LoadTemplates)->RangeMultiplier(10)->Range(100, 100'000)->Unit(benchmark::kMillisecond);

// A window of 100 lines that is not on a screen.
class Window final : public MyWindowManager::StoredWindow {
 public:
  Window() = default;
  Window(const Window&) = default;
  virtual ~Window() = default;
  explicit Window(const MyWindowManager::Record& record)
      : text_(DecodeURLComponent(record.GetString("equation", {}))), left_(record.GetInteger("left", 20)) {}
  void StoreRecord(KeyList& record) const override {
    record.AddItem("size", Int32ToVariant(13));
    record.AddItem("name", "");
    record.AddItem("equation", EncodeURLComponent(text_));
    record.AddItem("fullscreen", BooleanToVariant(false));
    for (const char* bound : {"left", "top", "width", "height"}) record.AddItem(bound, Int32ToVariant(left_));
  }

 private:
  String text_ = FormulaLines(100);
  Int32 left_ = 20;
};

std::vector<Window> openWindows;

String ManyWindows(std::int64_t count) {
  openWindows.assign(static_cast<std::size_t>(count), Window());
  const auto windows = MyWindowManager::WindowList.Set([] {
    std::vector<const MyWindowManager::StoredWindow*> list;
    list.reserve(openWindows.size());
    for (const Window& window : openWindows) list.push_back(&window);
    return list;
  });
  return MyWindowManager::Store();
}

void StoreSession(benchmark::State& state) {
  ManyWindows(state.range(0));
  Measure(state, [] { benchmark::DoNotOptimize(MyWindowManager::Store()); });
}
BENCHMARK(StoreSession)->RangeMultiplier(10)->Range(10, 1000)->Unit(benchmark::kMillisecond);

void LoadSession(benchmark::State& state) {
  const String data = ManyWindows(state.range(0));
  MyWindowManager::RegisterRestorer(
      {"equation", [](const MyWindowManager::Record& record) { openWindows.emplace_back(record); }});
  openWindows = {};
  Measure(state, [&data] {
    openWindows = {};
    MyWindowManager::Load(data);
  });
  if (openWindows.size() != static_cast<std::size_t>(state.range(0))) state.SkipWithError("windows are missing");
}
BENCHMARK(LoadSession)->RangeMultiplier(10)->Range(10, 1000)->Unit(benchmark::kMillisecond);

// The older settings: templates, each a dictionary of two values, read and looked up one by one.
void LoadOlderTemplates(benchmark::State& state) {
  String lines;
  for (std::int64_t i = 0; i < state.range(0); ++i) {
    lines += "\t<key>" + std::to_string(i) + "</key>\n\t<dict>\n\t\t<key>name</key>\n\t\t<string>n</string>\n" +
             "\t\t<key>equation</key>\n\t\t<string>1%2B1</string>\n\t</dict>\n";
  }
  Preferences::RunCount = 1;
  Measure(state, [&lines] {
    plistDict dict;
    TextInputStream stream(lines);
    dict.Load(&stream, "root", false, nullptr, nullptr, true);
    TemplatesManager::Load(dict);
  });
  if (TemplatesManager::Key.Ubound() + 1 != state.range(0)) state.SkipWithError("templates are missing");
}
BENCHMARK(LoadOlderTemplates)->RangeMultiplier(10)->Range(100, 100'000)->Unit(benchmark::kMillisecond);

// One dictionary with range(0) plain keys.
void ReadPropertyList(benchmark::State& state) {
  String lines;
  for (std::int64_t i = 0; i < state.range(0); ++i)
    lines += "\t<key>key " + std::to_string(i) + "</key>\n\t<string>value</string>\n";
  Measure(state, [&lines] {
    plistDict dict;
    TextInputStream stream(lines);
    dict.Load(&stream, "root", false, nullptr, nullptr, true);
  });
}
BENCHMARK(ReadPropertyList)->RangeMultiplier(10)->Range(100, 100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sumlet
