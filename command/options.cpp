#include "command/options.h"

#include <CLI/CLI.hpp>

#include "command/failure.h"

namespace command {
namespace {

constexpr const char* exitStatuses =
    "Exit status: 0 no errors; 1 the model has errors, the export was aborted or a file\n"
    "couldn't be written; 2 bad usage or a model file that can't be read.";

/// The value of an option, which must not be empty; nothing when the option was not given.
std::optional<std::string> ValueOf(const CLI::Option& option, const std::string& value) {
  if (option.count() == 0) return std::nullopt;
  if (value.empty()) {
    throw Failure(kBadInput, "--" + option.get_single_name() + " needs a text that is not empty");
  }
  return value;
}

}  // namespace

Options ParseOptions(int argc, const char* const* argv) {
  CLI::App app("Exports CORBA IDL from a UML model in an XMI file.", "idlexport");
  Options options;
  std::string artifact;
  std::string output;
  app.add_option("MODEL", options.model, "The XMI file to read")->required()->type_name("");
  const CLI::Option* artifactOption =
      app.add_option("-a,--artifact", artifact,
                     "Export this artifact: a \"::\"-qualified name below the root, or an xmi:id")
          ->type_name("NAME");
  const CLI::Option* outputOption =
      app.add_option("-o,--output", output,
                     "Put the files there, not into the artifact's targetDir")
          ->type_name("DIR");
  app.add_flag("--list", options.list,
               "List the exportable artifacts, one a line, and export nothing");
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.set_version_flag("--version", "idlexport " IDLEXPORT_VERSION, "Print the version and exit");
  app.footer(exitStatuses);
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    options.information = app.help();
    return options;
  } catch (const CLI::CallForVersion& version) {
    options.information = std::string(version.what()) + "\n";
    return options;
  } catch (const CLI::ParseError& error) {
    throw Failure(kBadInput, std::string(error.what()) + " (--help tells the usage)");
  }
  options.artifact = ValueOf(*artifactOption, artifact);
  options.output = ValueOf(*outputOption, output);
  return options;
}

}  // namespace command
