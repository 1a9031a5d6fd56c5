#include "host/model_access.h"

#include <functional>
#include <string>
#include <utility>

#include "model/api_error.h"
#include "model/model.h"

namespace mdk {

/// There is one store of each model and no transactions, so a changer has nothing to keep.
class Changer {};

}  // namespace mdk

namespace model {

namespace {

class Output final : public mdk::ModelAccess {
 public:
  void PrintMessage(const std::string& text) override {
    if (sink_) sink_(text);
  }

  void SetSink(std::function<void(const std::string&)> sink) { sink_ = std::move(sink); }
  bool HasSink() const { return static_cast<bool>(sink_); }

 private:
  std::function<void(const std::string&)> sink_;
};

Output output;
std::string lastError;
mdk::Changer changer;

}  // namespace

void SetMessageSink(std::function<void(const std::string&)> sink) {
  output.SetSink(std::move(sink));
}

void Fail(std::string text) {
  lastError = std::move(text);
  throw lastError.c_str();
}

}  // namespace model

namespace mdk {

ModelAccess* GetModelAccess() { return model::output.HasSink() ? &model::output : nullptr; }

const char* GetAPIErrorMessage(const char*& text) { return text = model::lastError.c_str(); }

}  // namespace mdk

namespace mdkdll {

mdk::Changer& defaultChanger = model::changer;

}  // namespace mdkdll
