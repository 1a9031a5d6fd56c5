#include "tree/interface_members.h"

#include "tree/attribute.h"
#include "tree/boxed_value.h"
#include "tree/constant.h"
#include "tree/enumeration.h"
#include "tree/exception.h"
#include "tree/operation.h"
#include "tree/sequence.h"
#include "tree/struct.h"
#include "tree/typedef.h"
#include "tree/union.h"
#include "types/markings.h"

namespace mdktoidl {

Classification WithNestedDeclarations(ClassificationRow attributes) {
  return {
      std::move(attributes),
      {"DataType", {{Carries<markings::corbaEnum>, Make<Enumeration>}}},
      {"Class",
       {{Carries<markings::corbaStruct>, Make<Struct>},
        {Carries<markings::corbaUnion>, Make<Union>},
        {Carries<markings::corbaException>, Make<Exception>},
        {Carries<markings::corbaTypedef>, Make<Typedef>},
        {Carries<markings::corbaSequence>, Make<Sequence>}}},
      {"Operation", {{isPublic, Make<Operation>}}},
      {"Signal", {{isPublic, Make<Operation>}}},
      {"Syntype",
       {{Carries<markings::corbaTypedef>, Make<Typedef>},
        {Carries<markings::corbaBoxedValue>, Make<BoxedValue>}}},
  };
}

const Classification& InterfaceMembers() {
  static const Classification table = WithNestedDeclarations(
      {"Attribute", {{isPublicConstant, Make<Constant>}, {isPublic, Make<Attribute>}}});
  return table;
}

}  // namespace mdktoidl
