#include "output/comment.h"

#include <sstream>
#include <string>

#include "output/layout.h"
#include "types/elements.h"
#include "types/text.h"

namespace mdktoidl {

void WriteComments(mdk::IMdeEntity* element, std::ofstream& out) {
  for (mdk::IMdeEntity* comment : Elements(element, "Comment")) {
    std::istringstream text(comment->GetValue("Text", 0));
    for (std::string line; std::getline(text, line);) {
      newline(out);
      out << "// " << TrimEndOfString(line);
    }
  }
}

}  // namespace mdktoidl
