#include "tree/use.h"

#include "tree/node.h"

namespace mdktoidl {

namespace {

void WriteScope(const Definition* scope, Writer& out) {
  if (scope == nullptr) return;
  WriteScope(scope->Scope(), out);
  out << scope->Name() << "::";
}

}  // namespace

std::string_view Use::Name() const {
  return name == nullptr ? used->Name() : std::string_view(name, nameSize);
}

// An enumerator is called as its user's model calls it, also behind its scope.
Writer& operator<<(Writer& out, const Use& use) {
  if (use.spelling == Spelling::simple) return out << use.Name();
  WriteScope(use.used->NameScope(), out);
  return out << (use.used->isEnumerator() ? use.Name() : use.used->Name());
}

const Use* Uses::First(UseRole role) const {
  for (const Use& use : *this) {
    if (use.role == role) return &use;
  }
  return nullptr;
}

void Uses::Write(UseRole role, Writer& out) const {
  std::string_view separator;
  for (const Use& use : *this) {
    if (use.role != role) continue;
    out << separator << use;
    separator = ", ";
  }
}

void Uses::Append(Use& use) {
  use.next = last_ == nullptr ? &use : last_->next;
  if (last_ != nullptr) last_->next = &use;
  last_ = &use;
}

}  // namespace mdktoidl
