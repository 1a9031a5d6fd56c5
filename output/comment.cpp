#include "output/comment.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "output/layout.h"
#include "types/elements.h"
#include "types/properties.h"
#include "types/text.h"

namespace mdktoidl {

void WriteComments(mdk::IMdeEntity* element, std::ofstream& out) {
  for (mdk::IMdeEntity* comment : Elements(element, properties::comment)) {
    const std::string text = comment->GetValue(properties::text, 0);
    std::string_view rest = text;
    while (!rest.empty()) {
      const std::string_view line = rest.substr(0, rest.find('\n'));
      Line written(out);
      newline(written);
      Write(written, {"// ", TrimEndOfString(line)});
      rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
  }
}

}  // namespace mdktoidl
