// The CMake package as other projects use it: the example, and what can go wrong.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include "tests/support/file_tree.h"
#include "tests/support/installation.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;
using support::ProcessResult;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const fs::path exampleDirectory = IDLEXPORT_SOURCE_DIR "/examples/cmake";

/// A project that uses an installation.
class CMakePackage : public testing::Test {
 protected:
  ProcessResult Configure(const std::string& generator = "Ninja") const {
    return support::RunProcess({IDLEXPORT_CMAKE, "-S", Source().string(), "-B", Build().string(),
                                "-G", generator,
                                "-DCMAKE_PREFIX_PATH=" + installation_.Prefix().string(),
                                "-DCMAKE_CXX_COMPILER=" IDLEXPORT_CXX_COMPILER});
  }

  /// Builds the project; what the build told.
  std::string BuildAll() const {
    const ProcessResult result =
        support::RunProcess({IDLEXPORT_CMAKE, "--build", Build().string()});
    EXPECT_EQ(result.status, 0) << result.output << result.errors;
    return result.output;
  }

  /// Writes a project that finds the package, and the example's model beside it.
  void WriteProject(std::string_view commands, std::string_view languages = "NONE") const {
    fs::copy(exampleDirectory, Source(),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    support::WriteFile(Source() / "CMakeLists.txt",
                       "cmake_minimum_required(VERSION 3.25)\nproject(user LANGUAGES " +
                           std::string(languages) + ")\nfind_package(idlexport 0.1 REQUIRED)\n" +
                           std::string(commands));
  }

  void Edit(const char* file, std::string_view from, std::string_view to) const {
    const std::string text = support::ReadFile(Source() / file);
    ASSERT_THAT(text, HasSubstr(std::string(from)));
    support::WriteFile(Source() / file, support::Replaced(text, from, to));
  }

  fs::path Command() const { return installation_.Command(); }
  fs::path Source() const { return scratch_.Path() / "a source"; }
  fs::path Build() const { return scratch_.Path() / "build"; }

 private:
  support::Installation installation_;
  support::ScratchDirectory scratch_;
};

class CMakeExample : public CMakePackage, public testing::WithParamInterface<const char*> {};

TEST_P(CMakeExample, MakesWhatHasChanged) {
  const auto exports = HasSubstr("Exporting IDL from weather.uml");
  const auto compiles = HasSubstr("Compiling ");
  fs::copy(exampleDirectory, Source());
  const ProcessResult configured = Configure(GetParam());
  ASSERT_EQ(configured.status, 0) << configured.output << configured.errors;

  EXPECT_THAT(BuildAll(), AllOf(exports, HasSubstr("Compiling Stations.idl")));
  EXPECT_THAT(support::ReadFile(Build() / "Stations.hh"), HasSubstr("Units"));
  EXPECT_THAT(BuildAll(), Not(testing::AnyOf(exports, compiles)));

  // What changes the model but not the IDL ends with the export.
  for (const char* file : {"weather.uml", "units.uml"}) {
    SCOPED_TRACE(file);
    Edit(file, "</xmi:XMI>", "<!-- looked at --></xmi:XMI>");
    EXPECT_THAT(BuildAll(), AllOf(exports, Not(compiles)));
    EXPECT_THAT(BuildAll(), Not(testing::AnyOf(exports, compiles)));
  }

  Edit("units.uml", "\"degrees\"", "\"celsius\"");
  EXPECT_THAT(BuildAll(), AllOf(exports, compiles));
  EXPECT_THAT(support::ReadFile(Build() / "Units.hh"), HasSubstr("celsius"));

  Edit("weather.uml", "name=\"Stations\"", "name=\"Posts\"");
  EXPECT_THAT(BuildAll(), AllOf(exports, HasSubstr("Compiling Posts.idl")));
  EXPECT_TRUE(fs::exists(Build() / "weather_idl/Posts.idl"));
  EXPECT_FALSE(fs::exists(Build() / "weather_idl/Stations.idl"));
  EXPECT_THAT(BuildAll(), Not(testing::AnyOf(exports, compiles)));
}

TEST_P(CMakeExample, FindsTheFilesOfTheModelItself) {
  WriteProject("idlexport_generate(idl MODEL weather.uml)\nadd_custom_target(x ALL DEPENDS idl)\n");
  ASSERT_EQ(Configure(GetParam()).status, 0);
  const auto exports = HasSubstr("Exporting IDL");
  EXPECT_THAT(BuildAll(), exports);
  EXPECT_THAT(BuildAll(), Not(exports));
  Edit("units.uml", "\"degrees\"", "\"celsius\"");
  EXPECT_THAT(BuildAll(), exports);
  // Another version of the command may give other IDL.
  fs::last_write_time(Command(), fs::file_time_type::clock::now());
  EXPECT_THAT(BuildAll(), exports);
  EXPECT_THAT(BuildAll(), Not(exports));
}

TEST_P(CMakeExample, NeedsNoTargetOfItsOwn) {
  WriteProject(R"(
idlexport_generate(MODEL weather.uml ARTIFACT weather OUTPUT_DIR "my idl" OUTPUTS_VAR idl)
add_custom_command(OUTPUT copied COMMAND ${CMAKE_COMMAND} -E echo copying
  COMMAND ${CMAKE_COMMAND} -E cat ${idl} > copied DEPENDS ${idl} VERBATIM)
add_custom_target(x ALL DEPENDS copied)
)");
  const ProcessResult configured = Configure(GetParam());
  ASSERT_EQ(configured.status, 0) << configured.errors;
  const auto exports = HasSubstr("Exporting IDL");
  EXPECT_THAT(BuildAll(), AllOf(exports, HasSubstr("copying")));
  EXPECT_THAT(BuildAll(), Not(testing::AnyOf(exports, HasSubstr("copying"))));
  Edit("units.uml", "\"degrees\"", "\"celsius\"");
  EXPECT_THAT(BuildAll(), AllOf(exports, HasSubstr("copying")));
  EXPECT_THAT(support::ReadFile(Build() / "copied"), HasSubstr("celsius"));
  EXPECT_THAT(BuildAll(), Not(testing::AnyOf(exports, HasSubstr("copying"))));
}

INSTANTIATE_TEST_SUITE_P(Generators, CMakeExample, testing::Values("Ninja", "Unix Makefiles"),
                         [](const auto& info) { return support::Replaced(info.param, " ", ""); });

TEST_F(CMakePackage, PassesOnWhatIsAskedFor) {
  WriteProject(R"(
idlexport_generate(idl MODEL weather.uml ARTIFACT weather OUTPUT_DIR "some where/idl"
  MAPPING module-structured OPTIONS --suffix _1 OUTPUTS_VAR files)
list(JOIN files "|" files)
message(STATUS "files: ${files}")
add_custom_target(x ALL DEPENDS idl)
)");
  const ProcessResult configured = Configure();
  const std::string output = (Build() / "some where/idl/").string();
  EXPECT_THAT(configured.output, AllOf(HasSubstr(output + "Units/Units_1.idl"),
                                       HasSubstr(output + "Stations/Stations_1.idl")))
      << configured.errors;
  BuildAll();
  EXPECT_TRUE(fs::exists(output + "Stations/Stations_1.idl"));
}

TEST_F(CMakePackage, SaysWhatIsWrong) {
  const std::pair<const char*, const char*> cases[] = {
      {"idlexport_generate(idl)", "idlexport_generate(idl): MODEL is missing"},
      {"idlexport_generate(idl MODEL none.uml)", "there is no model file"},
      {"idlexport_generate(idl MODEL weather.uml FROBNICATE)", "unknown arguments: FROBNICATE"},
      {"idlexport_generate(idl MODEL weather.uml OUTPUTS_VAR)", "nothing behind OUTPUTS_VAR"},
      {"idlexport_generate(idl MODEL weather.uml ARTIFACT wether)",
       "nothing in the model is named 'wether'"},
      {"idlexport_generate(idl MODEL CMakeLists.txt)", "CMakeLists.txt"},
  };
  for (const auto& [call, complaint] : cases) {
    SCOPED_TRACE(call);
    WriteProject(call);
    const ProcessResult result = Configure();
    EXPECT_NE(result.status, 0);
    EXPECT_THAT(result.errors, HasSubstr(complaint));
  }
}

TEST_F(CMakePackage, OffersWhatHostsNeed) {
  WriteProject(R"(
add_library(a_host OBJECT host.cpp)
target_link_libraries(a_host PRIVATE idlexport::host)
get_target_property(agent idlexport::agent LOCATION)
if(NOT EXISTS "${agent}")
  message(FATAL_ERROR "no agent: ${agent}")
endif()
)",
               "CXX");
  std::string includes;
  for (const auto& entry : fs::directory_iterator(IDLEXPORT_SOURCE_DIR "/host")) {
    includes += "#include \"host/" + entry.path().filename().string() + "\"\n";
  }
  support::WriteFile(Source() / "host.cpp", includes +
                                                "std::string NameOf(mdk::IMdeEntity& element) {\n"
                                                "  return element.GetValue(\"Name\", 0);\n}\n");
  const ProcessResult configured = Configure();
  ASSERT_EQ(configured.status, 0) << configured.output << configured.errors;
  BuildAll();
}

}  // namespace
