#include "tree/interface_members.h"

#include "tree/enumeration.h"
#include "tree/exception.h"
#include "tree/operation.h"
#include "tree/struct.h"
#include "types/markings.h"

namespace mdktoidl {

Classification WithNestedDeclarations(ClassificationRow attributes) {
  return {
      std::move(attributes),
      {"DataType", {{Carries<markings::corbaEnum>, Make<Enumeration>}}},
      {"Class",
       {{Carries<markings::corbaStruct>, Make<Struct>},
        {Carries<markings::corbaException>, Make<Exception>}}},
      {"Operation", {{isPublic, Make<Operation>}}},
      {"Signal", {{isPublic, Make<Operation>}}},
  };
}

}  // namespace mdktoidl
