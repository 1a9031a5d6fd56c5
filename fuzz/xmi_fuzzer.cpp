// Bytes as model files: they are read, and what can be exported of them is exported.
//
// An input is the file model.uml. A line "=====" begins a further file: b.uml, then c.uml...
#include <cstdint>
#include <string_view>

#include "fuzz/scratch.h"
#include "model/model.h"
#include "tests/support/file_tree.h"
#include "xmi/reader.h"

namespace {

using model::Symbol;

void WriteFiles(std::string_view input) {
  constexpr std::string_view separator = "\n=====\n";
  support::WriteFile("./model.uml", input.substr(0, input.find(separator)));
  for (char name = 'b'; name < 'e'; ++name) {
    const std::size_t end = input.find(separator);
    input = end == input.npos ? "" : input.substr(end + separator.size());
    support::WriteFile(std::string("./") + name + ".uml", input.substr(0, input.find(separator)));
  }
}

/// Whatever the input says, files go below the directory "out" of the scratch directory.
void Confine(model::Model& model, model::Element& generator) {
  for (const auto& [tag, value] : {std::pair{"targetDir", "out"},
                                   {"fileName", "Out"},
                                   {"fileSuffix", ""},
                                   {"fileMapping", "ONE_FILE"}}) {
    model.SetTag(generator, Symbol(tag), value);
  }
}

void AskAll(const xmi::Reader& reader) {
  for (model::Element* artifact : reader.Artifacts()) {
    reader.FindById(reader.IdOf(*artifact));
    reader.FindByName(reader.QualifiedName(*artifact));
    reader.Locate(*artifact);
  }
  for (const xmi::Diagnostic& diagnostic : reader.Diagnostics()) {
    if (diagnostic.text.empty()) fuzz::Fail("an empty diagnostic");
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::EnterScratchDirectory();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  WriteFiles({reinterpret_cast<const char*>(data), size});
  model::Model model;
  xmi::Reader reader(model);
  try {
    reader.Read("model.uml");
  } catch (const xmi::ReadError&) {
    return 0;
  }
  AskAll(reader);
  for (model::Element* artifact : reader.Artifacts()) {
    model::Element* generator = artifact->Application(Symbol("IDLGenerator"));
    if (generator == nullptr) continue;
    Confine(model, *generator);
    fuzz::Export(*artifact);
    break;
  }
  return 0;
}
