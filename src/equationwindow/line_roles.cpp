#include "equationwindow/line_roles.h"

#include <algorithm>

#include "engine/comments.h"

namespace sumlet {

std::vector<LineRole> LineRoles(std::string_view text, std::optional<Int32> errorLine) {
  std::vector<LineRole> roles;
  while (!text.empty()) {
    const std::size_t length = std::min(text.find_first_of("\r\n"), text.size());
    const bool failed = errorLine && static_cast<std::size_t>(*errorLine) == roles.size();
    const LineRole uncommented = failed ? LineRole::Error : LineRole::Ordinary;
    roles.push_back(IsComment(text.substr(0, length)) ? LineRole::Comment : uncommented);
    text.remove_prefix(std::min(length + 1, text.size()));
  }
  return roles;
}

}  // namespace sumlet
