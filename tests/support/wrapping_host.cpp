#include "tests/support/wrapping_host.h"

#include <iterator>
#include <new>
#include <stdexcept>
#include <string>

#include "model/api_error.h"

namespace support {

using mdk::IMdeEntity;

namespace {

const std::string nonsense = "../\\\"(. .)\n\x01\xff";

}  // namespace

/// The model as a whole.
class WrappingHost::Whole final : public mdk::IMdeModel {
 public:
  explicit Whole(WrappingHost& host) : host_(host) {}

  IMdeEntity* FindEntity(const std::string& name) override;

  mdk::IMdeModel* real = nullptr;

 private:
  WrappingHost& host_;
};

class WrappingHost::Entity final : public IMdeEntity {
 public:
  Entity(WrappingHost& host, IMdeEntity& real) : host_(host), real_(real) {}

  void QueryInterface(const mdk::InterfaceId& id, void** result) override {
    *result = nullptr;
    if (host_.Next() != Fault::kNone) return;
    real_.QueryInterface(id, result);
    if (*result == nullptr) return;
    host_.whole_->real = static_cast<mdk::IMdeModel*>(*result);
    *result = static_cast<mdk::IMdeModel*>(host_.whole_.get());
  }

  std::string GetValue(const std::string& property, int flag) override {
    return Text([&] { return real_.GetValue(property, flag); });
  }
  std::string GetMetaclass() override {
    return Text([&] { return real_.GetMetaclass(); });
  }

  IMdeEntity* GetEntity(const std::string& property, int flag) override {
    return One([&] { return real_.GetEntity(property, flag); });
  }
  IMdeEntity* GetTarget(const std::string& property, int flag) override {
    return One([&] { return real_.GetTarget(property, flag); });
  }
  IMdeEntity* EvalExpression(const std::string& expression, int flag) override {
    return One([&] { return real_.EvalExpression(expression, flag); });
  }

  void GetEntities(const std::string& property, std::list<IMdeEntity*>& result) override {
    Many(result, [&] { real_.GetEntities(property, result); });
  }
  // What is named here, the agent takes for its own tags and removes, and rightly so: nonsense is
  // limited to nulls.
  void GetReferrers(const std::string& property, std::list<IMdeEntity*>& result) override {
    Many(
        result, [&] { real_.GetReferrers(property, result); }, 0);
  }

  bool IsKindOf(const std::string& metaclass) override {
    return Whether([&] { return real_.IsKindOf(metaclass); });
  }
  bool HasStereotype(const std::string& stereotype, int flag) override {
    return Whether([&] { return real_.HasStereotype(stereotype, flag); });
  }

  void AddEntity(const std::string& property, mdk::DefinitionRef definition, int flag,
                 mdk::Changer& changer) override {
    if (host_.Next() == Fault::kNone) real_.AddEntity(property, definition, flag, changer);
  }
  void SetExpression(const std::string& expression, const std::string& value, int flag,
                     mdk::Changer& changer) override {
    if (host_.Next() == Fault::kNone) real_.SetExpression(expression, value, flag, changer);
  }
  void Delete(mdk::Changer& changer) override {
    if (host_.Next() == Fault::kNone) real_.Delete(changer);
  }
  mdk::DefinitionRef GetDefinitionRef() override {
    return host_.Next() == Fault::kNone ? real_.GetDefinitionRef() : nullptr;
  }

 private:
  template <typename Ask>
  std::string Text(Ask ask) {
    const Fault fault = host_.Next();
    if (fault == Fault::kNone) return ask();
    return fault == Fault::kNull ? std::string() : nonsense;
  }

  template <typename Ask>
  IMdeEntity* One(Ask ask) {
    const Fault fault = host_.Next();
    if (fault == Fault::kNone) return host_.Wrap(ask());
    return fault == Fault::kNull ? nullptr : host_.Any();
  }

  template <typename Ask>
  void Many(std::list<IMdeEntity*>& result, Ask ask, int senseless = 4) {
    const Fault fault = host_.Next();
    if (fault != Fault::kNone) {
      result.push_back(nullptr);
      if (fault == Fault::kNull) return;
      for (int i = 0; i < senseless; ++i) result.push_back(host_.Any());
      return;
    }
    const std::size_t before = result.size();
    ask();
    host_.WrapAll(result, before);
  }

  template <typename Ask>
  bool Whether(Ask ask) {
    const Fault fault = host_.Next();
    return fault == Fault::kNull ? false : ask() == (fault == Fault::kNone);
  }

  WrappingHost& host_;
  IMdeEntity& real_;
};

IMdeEntity* WrappingHost::Whole::FindEntity(const std::string& name) {
  return host_.Next() == Fault::kNone ? host_.Wrap(real->FindEntity(name)) : nullptr;
}

WrappingHost::WrappingHost() : whole_(std::make_unique<Whole>(*this)) {}

WrappingHost::~WrappingHost() = default;

IMdeEntity* WrappingHost::Wrap(IMdeEntity* real) {
  if (real == nullptr) return nullptr;
  std::unique_ptr<Entity>& known = wrapped_[real];
  if (known == nullptr) {
    known = std::make_unique<Entity>(*this, *real);
    inOrder_.push_back(known.get());
  }
  return known.get();
}

void WrappingHost::WrapAll(std::list<IMdeEntity*>& elements, std::size_t from) {
  for (auto each = std::next(elements.begin(), static_cast<std::ptrdiff_t>(from));
       each != elements.end(); ++each) {
    *each = Wrap(*each);
  }
}

void WrappingHost::FailAt(std::size_t call, Fault fault, bool andAfter) {
  failing_ = call;
  fault_ = fault;
  andAfter_ = andAfter;
  calls_ = 0;
}

Fault WrappingHost::Next() {
  ++calls_;
  if (calls_ != failing_ && !(andAfter_ && calls_ > failing_)) return Fault::kNone;
  switch (fault_) {
    case Fault::kHostError:
      model::Fail(kErrorText);
    case Fault::kException:
      throw std::runtime_error("a failure of the host's own");
    case Fault::kOtherThrow:
      throw 42;
    case Fault::kBadAllocation:
      throw std::bad_alloc();
    default:
      return fault_;
  }
}

WrappingHost::Entity* WrappingHost::Any() {
  constexpr std::size_t stride = 7919;
  return inOrder_[calls_ * stride % inOrder_.size()];
}

}  // namespace support
