#include "output/comment.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "types/elements.h"
#include "types/text.h"

namespace mdktoidl {

void WriteComments(mdk::IMdeEntity* element, Writer& out) {
  for (mdk::IMdeEntity* comment : Elements(element, properties::comment)) {
    const std::string text = comment->GetValue(properties::text, 0);
    std::string_view rest = text;
    while (!rest.empty()) {
      const std::string_view line = rest.substr(0, rest.find('\n'));
      newline(out);
      out << "// " << TrimEndOfString(line);
      rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
  }
}

}  // namespace mdktoidl
