#include "output/comment.h"

#include <algorithm>
#include <string>

#include "output/layout.h"
#include "types/elements.h"
#include "types/properties.h"
#include "types/text.h"

namespace mdktoidl {

void WriteComments(mdk::IMdeEntity* element, std::ofstream& out) {
  for (mdk::IMdeEntity* comment : Elements(element, properties::comment)) {
    const std::string text = comment->GetValue(properties::text, 0);
    std::size_t end;
    for (std::size_t begin = 0; begin < text.size(); begin = end + 1) {
      end = std::min(text.find('\n', begin), text.size());
      newline(out);
      Write(out, {"// ", TrimEndOfString(text.substr(begin, end - begin))});
    }
  }
}

}  // namespace mdktoidl
