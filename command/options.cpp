#include "command/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>

#include "placement/failure.h"

namespace command {
namespace {

using placement::Failure;
using placement::kBadInput;

constexpr const char* exitStatuses =
    "Exit status: 0 no errors; 1 the model has errors, the export was aborted or a file\n"
    "couldn't be written; 2 bad usage or a model file that can't be read; 3 --verify found\n"
    "differences.";

/// The options as they are declared, and what their texts become.
class CommandLine {
 public:
  CommandLine() {
    AddInput();
    AddOutput();
    AddSettings();
    AddMessages();
    app_.set_help_flag("-h,--help", "Print this help and exit");
    app_.set_version_flag("--version", "idlexport " IDLEXPORT_VERSION,
                          "Print the version and exit");
    app_.footer(exitStatuses);
  }

  Options Parse(int argc, const char* const* argv) {
    try {
      app_.parse(Words(argc, argv));
    } catch (const CLI::CallForHelp&) {
      options_.information = app_.help();
      return options_;
    } catch (const CLI::CallForVersion& version) {
      options_.information = std::string(version.what()) + "\n";
      return options_;
    } catch (const CLI::ParseError& error) {
      throw Failure(kBadInput, std::string(error.what()) + " (--help tells the usage)");
    }
    return options_;
  }

 private:
  /// The words of the command line, the last one first. An option with an empty value ("--suffix=")
  /// becomes two words, or else it would take the next one for its value.
  static std::vector<std::string> Words(int argc, const char* const* argv) {
    std::vector<std::string> words;
    for (int i = 1; i < argc; ++i) {
      std::string word = argv[i];
      const bool isEmptyValue = word.starts_with("--") && word.find('=') == word.size() - 1;
      if (isEmptyValue) word.pop_back();
      words.push_back(word);
      if (isEmptyValue) words.emplace_back();
    }
    std::reverse(words.begin(), words.end());
    return words;
  }

  void AddInput() {
    app_.add_option("MODEL", options_.model, "The XMI file to read")->required()->type_name("");
    app_.add_option("-a,--artifact", options_.artifacts,
                    "Export this artifact: a \"::\"-qualified name below the root, or an xmi:id; "
                    "may be given several times")
        ->type_name("NAME")
        ->allow_extra_args(false)  // one text each time; the next word may be the model
        ->check(NotEmpty());
    app_.add_option_function<std::vector<std::string>>(
            "--map", [this](const std::vector<std::string>& texts) { TakeMaps(texts); },
            "Read references that begin with PREFIX from the directory DIR, such as "
            "pathmap://TYPES/=lib; may be given several times")
        ->type_name("PREFIX=DIR")
        ->allow_extra_args(false)  // one text each time; the next word may be the model
        ->check(IsMap());
  }

  void AddOutput() {
    Text("-o,--output", options_.output, "DIR",
         "Put the files there, not into the artifact's targetDir")
        ->check(NotEmpty());
    Flag("--prune", options_.prune,
         "Remove files of earlier exports of the artifact that this one no longer makes");
    PurposeFlag("--check", Purpose::kCheck, "Check the model; write no IDL");
    PurposeFlag("--verify", Purpose::kVerify,
                "Compare the files in place with what an export would write; print the "
                "differences, change nothing");
    PurposeFlag("--outputs", Purpose::kOutputs,
                "Print the names of the files that an export would write; write none");
    PurposeFlag("--list", Purpose::kList,
                "List the exportable artifacts, one a line, and export nothing");
    CLI::Option* depfile = Text("--depfile", options_.depfile, "FILE",
                                "Write a make rule that names all model files read")
                               ->check(NotEmpty());
    Text("--target", options_.target, "NAME",
         "What the rule of --depfile makes (default: the stamp, or else the first IDL file)")
        ->needs(depfile)
        ->check(NotEmpty());
    Text("--stamp", options_.stamp, "FILE", "Touch this file when all went well")
        ->check(NotEmpty());
    Text("--graph", options_.graph, "FILE", "Draw what depends on what: FILE.dot or FILE.svg")
        ->check(NotEmpty());
  }

  void AddSettings() {
    Choice("--mapping", options_.overrides.fileMapping,
           std::map<std::string, std::string>{{"one-file", "ONE_FILE"},
                                              {"module-flat", "MODULE_FLAT"},
                                              {"module-structured", "MODULE_STRUCTURED"}},
           "How modules are spread over files: one-file, module-flat or module-structured")
        ->type_name("KIND");
    Text("--file-name", options_.overrides.fileName, "NAME", "Overrides the artifact's fileName")
        ->check(NotEmpty());
    Text("--suffix", options_.overrides.fileSuffix, "TEXT", "Overrides the artifact's fileSuffix");
    Choice("--oneway-default", options_.overrides.isAsyncDefault,
           std::map<std::string, std::string>{{"true", "true"}, {"false", "false"}},
           "Whether operations that don't say are oneway: true or false")
        ->type_name("BOOL");
    app_.add_flag_callback(
        "--verbatim", [this] { options_.overrides.isVerbatim = "true"; },
        "Write everything as the model has it, also where no compiler takes it");
  }

  void AddMessages() {
    Choice("--diagnostics", options_.diagnostics,
           std::map<std::string, DiagnosticForm>{{"text", DiagnosticForm::kText},
                                                 {"gcc", DiagnosticForm::kGcc},
                                                 {"json", DiagnosticForm::kJson},
                                                 {"sarif", DiagnosticForm::kSarif}},
           "How diagnostics are told: text, gcc (with file and line, on standard error), json or "
           "sarif (a document on standard output)")
        ->type_name("FORM");
    Choice(
        "--color", options_.colour,
        std::map<std::string, diagnostics::ColourMode>{{"auto", diagnostics::ColourMode::kAuto},
                                                       {"always", diagnostics::ColourMode::kAlways},
                                                       {"never", diagnostics::ColourMode::kNever}},
        "Whether messages are coloured: auto, always or never")
        ->type_name("WHEN");
    Flag("--strict", options_.strict, "With --verbatim: what is not legal IDL is an error");
    Flag("--werror", options_.warningsAreErrors, "Fail when there are warnings");
    Flag("-q,--quiet", options_.quiet, "No progress line and nothing without consequence");
    Flag("--summary", options_.summary, "Say at the end what was done");
  }

  CLI::Option* Text(const std::string& name, std::optional<std::string>& value,
                    const std::string& kind, const std::string& help) {
    return app_.add_option(name, value, help)->type_name(kind);
  }

  CLI::Option* Flag(const std::string& name, bool& value, const std::string& help) {
    return app_.add_flag(name, value, help);
  }

  /// At most one of these flags may be given.
  void PurposeFlag(const std::string& name, Purpose purpose, const std::string& help) {
    CLI::Option* flag = app_.add_flag_callback(
        name, [this, purpose] { options_.purpose = purpose; }, help);
    for (CLI::Option* other : purposes_) flag->excludes(other);
    purposes_.push_back(flag);
  }

  template <typename Value, typename Target>
  CLI::Option* Choice(const std::string& name, Target& target,
                      const std::map<std::string, Value>& values, const std::string& help) {
    std::vector<std::string> words;
    for (const auto& [word, value] : values) words.push_back(word);
    return app_
        .add_option_function<std::string>(
            name, [&target, values](const std::string& word) { target = values.at(word); }, help)
        ->check(CLI::IsMember(words));
  }

  void TakeMaps(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
      const std::size_t equals = text.find('=');
      options_.maps.emplace_back(text.substr(0, equals), text.substr(equals + 1));
    }
  }

  static CLI::Validator NotEmpty() {
    return {[](const std::string& text) {
              return text.empty() ? std::string("needs a text that is not empty") : std::string();
            },
            ""};
  }

  static CLI::Validator IsMap() {
    return {[](const std::string& text) {
              const std::size_t equals = text.find('=');
              const bool complete = equals != 0 && equals != text.npos && equals + 1 < text.size();
              return complete ? std::string() : "'" + text + "' is not PREFIX=DIR";
            },
            ""};
  }

  CLI::App app_{"Exports CORBA IDL from a UML model in an XMI file.", "idlexport"};
  Options options_;
  std::vector<CLI::Option*> purposes_;
};

}  // namespace

Options ParseOptions(int argc, const char* const* argv) { return CommandLine().Parse(argc, argv); }

}  // namespace command
