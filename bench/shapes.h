// The models that speed is measured with: each shape is one way in which a model can be large.
//
// A shape has one size, the number of its members: fields, literals, attributes, operations and
// parameters. Models of one shape and size are always the same, byte for byte.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "bench/xmi_writer.h"

namespace bench {

struct Shape {
  std::string_view name;
  /// Writes the packages of a model with about so many members; returns the ids of the top ones.
  std::vector<std::string> (*write)(XmiWriter& writer, std::size_t members);
  /// The file mapping of the export.
  std::string_view mapping;
};

/// All shapes.
std::span<const Shape> Shapes();
/// The shape of that name; null when there is none.
const Shape* FindShape(std::string_view name);

/// Writes the file of a model.
void WriteModel(const Shape& shape, std::size_t members, std::ostream& out);

// What the shapes write.
std::vector<std::string> WriteMix(XmiWriter& writer, std::size_t members);
std::vector<std::string> WriteFlat(XmiWriter& writer, std::size_t members);
std::vector<std::string> WriteChain(XmiWriter& writer, std::size_t members);
std::vector<std::string> WriteCycle(XmiWriter& writer, std::size_t members);
std::vector<std::string> WriteHub(XmiWriter& writer, std::size_t members);
std::vector<std::string> WriteDeep(XmiWriter& writer, std::size_t members);
std::vector<std::string> WriteWide(XmiWriter& writer, std::size_t members);
std::vector<std::string> WriteFaulty(XmiWriter& writer, std::size_t members);

}  // namespace bench
