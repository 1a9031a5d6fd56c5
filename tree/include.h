// An include of an IDL file that is not part of the export.
#pragma once

#include <string>

#include "tree/container.h"

namespace mdktoidl {

class Include : public Node {
 public:
  /// For an artifact that stands for an IDL file; at the top of the tree when `parent` is null.
  Include(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) { CreateNodeRef(); }

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;

 private:
  /// The file name that the artifact gives. Throws `IDLException` when it gives none.
  std::string ExtractFile() const;

  std::string fileName;
};

}  // namespace mdktoidl
