#include "tree/written_type.h"

#include <utility>

#include "tree/node_registry.h"

namespace mdktoidl {

void WrittenType::Set(TypeReference&& reference, const Use* named, const Use* bound) {
  kind_ = reference.kind;
  named_ = named;
  const std::string_view predefined =
      reference.bounded.empty() ? reference.predefined : nodeRegistry.Store(reference.bounded);
  predefined_ = predefined.data();
  predefinedSize_ = static_cast<std::uint32_t>(predefined.size());
  if (reference.sequences.empty() && reference.declaratorSuffix.empty()) return;
  template_ = std::make_unique<Template>(
      Template{std::move(reference.sequences), bound, std::move(reference.declaratorSuffix)});
}

void WrittenType::WrapInSequence() {
  if (template_ == nullptr) template_ = std::make_unique<Template>();
  template_->sequences.insert(template_->sequences.begin(), SequenceLevel());
}

void WrittenType::CopyFrom(const WrittenType& other, const Use* named, const Use* bound) {
  kind_ = other.kind_;
  named_ = named;
  predefined_ = other.predefined_;
  predefinedSize_ = other.predefinedSize_;
  template_.reset();
  if (other.template_ == nullptr) return;
  template_ = std::make_unique<Template>(*other.template_);
  template_->bound = bound;
}

void WrittenType::SetNamed(const Use& named) {
  kind_ = definition;
  named_ = &named;
  predefined_ = nullptr;
  predefinedSize_ = 0;
  template_.reset();
}

bool WrittenType::NeedsName() const {
  return template_ != nullptr || Predefined().starts_with("fixed<");
}

bool WrittenType::Writes(const Use& use) const {
  return &use == named_ || (template_ != nullptr && &use == template_->bound);
}

std::span<const SequenceLevel> WrittenType::Sequences() const {
  if (template_ == nullptr) return {};
  return template_->sequences;
}

Node* WrittenType::BoundConstant() const {
  return template_ == nullptr || template_->bound == nullptr ? nullptr : template_->bound->used;
}

std::string_view WrittenType::DeclaratorSuffix() const {
  return template_ == nullptr ? std::string_view() : template_->declaratorSuffix;
}

bool WrittenType::endsWithBracket() const {
  return (named_ == nullptr ? Predefined() : named_->Name()).ends_with('>');
}

// Between closing brackets stands a blank: the lexer of IDL would take them for a shift.
Writer& operator<<(Writer& out, const WrittenType& type) {
  const std::size_t depth = type.template_ == nullptr ? 0 : type.template_->sequences.size();
  for (std::size_t level = 0; level < depth; ++level) out << "sequence<";
  if (type.named_ == nullptr) {
    out << type.Predefined();
  } else {
    out << *type.named_;
  }
  bool isBracket = type.endsWithBracket();
  for (std::size_t level = depth; level-- > 0;) {
    const std::string& bound = type.template_->sequences[level].bound;
    const Use* named = level == 0 ? type.template_->bound : nullptr;
    if (named != nullptr) {
      out << ", " << *named;
    } else if (!bound.empty()) {
      out << ", " << bound;
    } else if (isBracket) {
      out << ' ';
    }
    out << '>';
    isBracket = true;
  }
  return out;
}

}  // namespace mdktoidl
