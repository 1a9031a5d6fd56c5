#include "tree/use.h"

#include "tree/node.h"

namespace mdktoidl {

namespace {

/// Takes the pieces of text that make up a name.
class TextOfPieces {
 public:
  TextOfPieces& operator<<(std::string_view piece) {
    text += piece;
    return *this;
  }
  TextOfPieces& operator<<(const Identifier& identifier) {
    return *this << (identifier.isEscaped ? "_" : "") << identifier.name;
  }

  std::string text;
};

template <typename Sink>
void WriteScope(const Definition* scope, Sink& out) {
  if (scope == nullptr) return;
  WriteScope(scope->Scope(), out);
  out << scope->AsUsed() << "::";
}

// An enumerator is called as its user's model calls it, also behind its scope.
template <typename Sink>
void Write(const Use& use, Sink& out) {
  const bool isSimple = use.spelling == Spelling::simple;
  if (use.spelling == Spelling::absolute) out << "::";
  if (!isSimple) WriteScope(use.used->NameScope(), out);
  const bool isRenamed = use.name != nullptr && (isSimple || use.used->isEnumerator());
  if (isRenamed) {
    out << use.Name();
  } else {
    out << use.used->AsUsed();
  }
}

}  // namespace

std::string_view Use::Name() const {
  return name == nullptr ? used->Name() : std::string_view(name, nameSize);
}

std::string TextOf(const Use& use) {
  TextOfPieces pieces;
  Write(use, pieces);
  return pieces.text;
}

Writer& operator<<(Writer& out, const Use& use) {
  Write(use, out);
  return out;
}

Writer& operator<<(Writer& out, const Identifier& identifier) {
  return out << (identifier.isEscaped ? "_" : "") << identifier.name;
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

void Uses::BringForward(Use& use) {
  Use* before = last_;
  while (before->next != &use) before = before->next;
  if (before == last_) return;
  before->next = use.next;
  if (last_ == &use) last_ = before;
  use.next = last_->next;
  last_->next = &use;
}

void Uses::Append(Use& use) {
  use.next = last_ == nullptr ? &use : last_->next;
  if (last_ != nullptr) last_->next = &use;
  last_ = &use;
}

}  // namespace mdktoidl
