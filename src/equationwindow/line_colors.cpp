#include "equationwindow/line_colors.h"

#include <algorithm>
#include <cstddef>

#include "engine/language.h"

namespace sumlet {

std::vector<QColor> LineColors(std::string_view text, std::optional<Int32> errorLine) {
  std::vector<QColor> colors;
  while (!text.empty()) {
    const std::size_t length = std::min(text.find_first_of("\r\n"), text.size());
    const bool hasFailed = errorLine && static_cast<std::size_t>(*errorLine) == colors.size();
    const QColor uncommented = hasFailed ? ErrorColor : QColor();
    colors.push_back(IsComment(text.substr(0, length)) ? CommentColor : uncommented);
    text.remove_prefix(std::min(length + 1, text.size()));
  }
  return colors;
}

}  // namespace sumlet
