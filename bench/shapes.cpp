#include "bench/shapes.h"

#include <algorithm>
#include <array>

namespace bench {

namespace {

constexpr std::string_view oneFile = "ONE_FILE";

constexpr std::array shapes = {
    Shape{"mix", WriteMix, oneFile},
    Shape{"mix_flat_files", WriteMix, "MODULE_FLAT"},
    Shape{"mix_structured_files", WriteMix, "MODULE_STRUCTURED"},
    Shape{"flat", WriteFlat, oneFile},
    Shape{"chain", WriteChain, oneFile},
    Shape{"cycle", WriteCycle, oneFile},
    Shape{"hub", WriteHub, oneFile},
    Shape{"deep", WriteDeep, oneFile},
    Shape{"wide", WriteWide, oneFile},
    Shape{"faulty", WriteFaulty, oneFile},
};

}  // namespace

std::span<const Shape> Shapes() { return shapes; }

const Shape* FindShape(std::string_view name) {
  const auto found = std::find_if(shapes.begin(), shapes.end(),
                                  [&](const Shape& shape) { return shape.name == name; });
  return found == shapes.end() ? nullptr : &*found;
}

void WriteModel(const Shape& shape, std::size_t members, std::ostream& out) {
  XmiWriter writer(out);
  writer.Finish(shape.write(writer, members), shape.mapping);
}

}  // namespace bench
