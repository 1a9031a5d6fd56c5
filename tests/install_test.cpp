// What an installation holds, and that it works wherever it is put.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/file_tree.h"
#include "tests/support/installation.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;
using support::Installation;
using support::ProcessResult;

TEST(Installation, ExportsItsExample) {
  const Installation installation;
  const support::ScratchDirectory scratch;
  const fs::path model = installation.Prefix() / "share/idlexport/examples/bank.uml";
  const ProcessResult result = support::RunProcess(
      {installation.Command().string(), "-a", "one_file", "-o", "idl", model.string()},
      scratch.Path());
  EXPECT_EQ(result.status, 0) << result.output << result.errors;
  EXPECT_EQ(support::ReadFile(scratch.Path() / "idl/bank.idl"),
            support::ReadFile(IDLEXPORT_SOURCE_DIR
                              "/tests/golden/bank/one_file/files/idl/one_file/bank.idl"));
}

TEST(Installation, IsComplete) {
  const Installation installation;
  for (const char* file :
       {"share/idlexport/profile/CORBA.profile.uml", "share/idlexport/profile/CORBA.library.uml",
        "share/idlexport/examples/modelling/struct.uml", "share/man/man1/idlexport.1",
        "share/doc/idlexport/docs/modelling.md", "share/bash-completion/completions/idlexport",
        "share/zsh/site-functions/_idlexport", "share/fish/vendor_completions.d/idlexport.fish",
        "include/idlexport/host/element.h"}) {
    EXPECT_TRUE(fs::is_regular_file(installation.Prefix() / file)) << file;
  }
  for (const char* file : {"idlexportConfig.cmake", "libidlexport.so"}) {
    EXPECT_FALSE(installation.Find(file).empty()) << file;
  }
  // The place that it was built in means nothing to those who use it.
  for (const auto& [file, text] : support::ReadTree(installation.Prefix())) {
    if (file.ends_with(".so") || file == "bin/idlexport") continue;
    EXPECT_EQ(text.find(IDLEXPORT_SOURCE_DIR), std::string::npos) << file;
  }
}

}  // namespace
