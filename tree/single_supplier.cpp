#include "tree/single_supplier.h"

#include "agent/diagnostics.h"
#include "types/elements.h"

namespace mdktoidl {

Node* SingleSupplier(const Node& client, const std::string& stereotype, Message more) {
  const std::list<mdk::IMdeEntity*> suppliers = Suppliers(client.Entity(), stereotype);
  if (suppliers.empty()) return nullptr;
  if (suppliers.size() > 1) Report(more, {client.ScopedName("::")});
  return Node::GetNodeRef(suppliers.front());
}

}  // namespace mdktoidl
