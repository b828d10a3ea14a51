// The values are parts of one text, and a line is known by the hash of its text: a calculation of 10,000 lines then
// allocates two blocks of memory for them and not 20,000.
#include "equationwindow/line_values.h"

#include <QScopeGuard>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <functional>

#include "engine/math_class.h"
#include "framework/ui/qt_text.h"

namespace sumlet {
namespace {

constexpr std::size_t mostBytes = std::size_t{64} << 20;

std::size_t HashOf(std::string_view text) { return std::hash<std::string_view>()(text); }

}  // namespace

LineValues::LineValues(MathClass& math) {
  math.LineObserver = [this](Int32 line, std::string_view value) { Take(line, value); };
  const auto unobserve = qScopeGuard([&math] { math.LineObserver = nullptr; });
  const std::string_view text = math.equationText;
  lines_.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1);
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    lines_.push_back({.text = HashOf(text.substr(begin, end - begin))});
    begin = end + 1;
  }
  math.Evaluate();
}

void LineValues::Take(Int32 line, std::string_view value) {
  const auto index = static_cast<std::size_t>(line);
  if (index >= lines_.size() || value.size() > mostBytes - values_.size()) return;
  lines_[index].begin = static_cast<std::uint32_t>(values_.size());
  lines_[index].length = static_cast<std::uint32_t>(value.size());
  values_ += value;
}

std::string_view LineValues::ValueOf(Int32 line) const {
  if (line < 0 || static_cast<std::size_t>(line) >= lines_.size()) return {};
  const Line& found = lines_[static_cast<std::size_t>(line)];
  return std::string_view(values_).substr(found.begin, found.length);
}

bool LineValues::IsUnchanged(const Line& line, const QTextBlock& block) {
  return line.text == HashOf(FromQString(block.text()));
}

// The change replaced some lines by others. Lines at either end of the change that are equal keep their values, such as
// the line at whose end the user typed a line end.
void LineValues::UpdateForEdit(const QTextDocument& document, int position, int added) {
  if (lines_.empty()) return;
  const QTextBlock firstBlock = document.findBlock(position);
  const QTextBlock foundLast = document.findBlock(position + added);
  const QTextBlock lastBlock = foundLast.isValid() ? foundLast : document.lastBlock();
  const int first = firstBlock.blockNumber();
  const int count = lastBlock.blockNumber() - first + 1;
  const int countBefore = count + static_cast<int>(lines_.size()) - document.blockCount();
  if (first < 0 || count < 1 || countBefore < 1) {
    lines_.clear();
    return;
  }
  const auto begin = lines_.begin() + first;
  const auto end = begin + countBefore;
  std::vector<Line> changed(static_cast<std::size_t>(count));
  const int most = std::min(count, countBefore);
  int kept = 0;
  for (QTextBlock block = firstBlock; kept < most && IsUnchanged(begin[kept], block); block = block.next(), ++kept)
    changed[static_cast<std::size_t>(kept)] = begin[kept];
  int keptAtEnd = 0;
  for (QTextBlock block = lastBlock; kept + keptAtEnd < most && IsUnchanged(end[-keptAtEnd - 1], block);
       block = block.previous(), ++keptAtEnd)
    changed[static_cast<std::size_t>(count - keptAtEnd - 1)] = end[-keptAtEnd - 1];
  lines_.insert(lines_.erase(begin, end), changed.begin(), changed.end());
}

}  // namespace sumlet
