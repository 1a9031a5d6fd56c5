#include "tree/include.h"

#include "agent/idl_exception.h"
#include "output/layout.h"
#include "types/properties.h"

namespace mdktoidl {

std::string Include::ExtractFile() const {
  mdk::IMdeEntity* value = Entity()->EvalExpression("IDLFile (. file .)", 0);
  if (value == nullptr) throw IDLException("Failed to find value for IDLFile::file.");
  return value->GetValue(properties::valueString, 0);
}

void Include::EvaluateTypes(NodeList&) { fileName = ExtractFile(); }

void Include::Unparse(std::ofstream& out) {
  newline(out);
  out << "#include \"" << fileName << '"';
}

}  // namespace mdktoidl
