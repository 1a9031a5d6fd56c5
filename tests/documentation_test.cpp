// The options of the command: the manual page and the completions know those that it has, and no
// others. The passes of the reader: the page on the architecture has them in their order.
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/support/file_tree.h"
#include "tests/support/process.h"

namespace {

/// What the first group of the expression matches, one after the other.
std::vector<std::string> InOrder(const std::string& text, const std::string& expression) {
  const std::regex pattern(expression);
  std::vector<std::string> found;
  for (std::sregex_iterator each(text.begin(), text.end(), pattern), end; each != end; ++each) {
    found.push_back((*each)[1]);
  }
  return found;
}

std::set<std::string> Found(const std::string& text, const std::string& expression) {
  const std::vector<std::string> found = InOrder(text, expression);
  return {found.begin(), found.end()};
}

std::string Source(const std::string& file) {
  return support::ReadFile(std::string(IDLEXPORT_SOURCE_DIR "/") + file);
}

/// What bash offers for a command line, the last word of which is being written.
std::string Offered(const std::string& words) {
  const std::string script = "source " IDLEXPORT_SOURCE_DIR
                             "/command/completions/idlexport.bash\n"
                             "COMP_WORDS=(" +
                             words +
                             ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_idlexport\n"
                             "echo \"${COMPREPLY[*]}\"\n";
  return support::RunProcess({"bash", "-c", script}, IDLEXPORT_SOURCE_DIR "/examples").output;
}

/// Something that names the options: its text, and how their long and short names stand in it.
using Reference = std::tuple<std::string, std::string, std::string, std::string>;

std::vector<Reference> References() {
  return {
      {"the manual page", Source("docs/idlexport.1"), "\\.It (?:Fl \\w , )?Fl -([a-z-]+)",
       "\\.It Fl (\\w) ,"},
      {"all in the manual page", Source("docs/idlexport.1"), "Fl -([a-z-]+)", "Fl (\\w) "},
      {"bash", Offered("idlexport -"), "--([a-z-]+)", "(?:^| )-(\\w)(?= )"},
      {"zsh", Source("command/completions/idlexport.zsh"), "[',*)]--([a-z-]+)", "\\{-(\\w),"},
      {"fish", Source("command/completions/idlexport.fish"), " -l ([a-z-]+)", " -s (\\w) "},
  };
}

TEST(Documentation, NamesTheOptionsThatThereAre) {
  const std::string help = support::RunProcess({IDLEXPORT_COMMAND, "--help"}).output;
  const std::set<std::string> longOptions = Found(help, "\n +(?:-\\w,)?--([a-z-]+)");
  const std::set<std::string> shortOptions = Found(help, "\n +-(\\w),--");
  EXPECT_TRUE(longOptions.contains("artifact") && shortOptions.contains("o")) << help;
  for (const auto& [name, text, longOption, shortOption] : References()) {
    EXPECT_EQ(Found(text, longOption), longOptions) << name;
    EXPECT_EQ(Found(text, shortOption), shortOptions) << name;
  }
}

std::set<std::string> Words(const std::string& text) { return Found(text, "([a-z-]+)"); }

TEST(Documentation, NamesTheValuesThatThereAre) {
  const std::string help = support::RunProcess({IDLEXPORT_COMMAND, "--help"}).output;
  const std::set<std::string> options = Found(help, "\n +--([a-z-]+) [A-Z]+:\\{");
  EXPECT_GT(options.size(), 2u) << help;
  for (const std::string& option : options) {
    SCOPED_TRACE(option);
    const auto valuesIn = [](const std::string& text, const std::string& expression) {
      const std::set<std::string> lists = Found(text, expression);
      return lists.size() == 1 ? Words(*lists.begin()) : std::set<std::string>();
    };
    const std::set<std::string> values = valuesIn(help, "--" + option + " [A-Z]+:\\{([^}]*)\\}");
    EXPECT_GT(values.size(), 1u);
    EXPECT_EQ(valuesIn(Source("docs/idlexport.1"), "Fl -" + option + " Cm ([^\n]*)"), values);
    EXPECT_EQ(Words(Offered("idlexport --" + option + " ''")), values);
    EXPECT_EQ(valuesIn(Source("command/completions/idlexport.zsh"),
                       "--" + option + "=[^\n]*:\\(([^)]*)\\)"),
              values);
    EXPECT_EQ(valuesIn(Source("command/completions/idlexport.fish"),
                       " -l " + option + " -x -a '([^']*)'"),
              values);
  }
}

TEST(Documentation, NamesThePassesOfTheReaderInTheirOrder) {
  const auto run = InOrder(Source("xmi/reader.cpp"), "\n  (\\w+)\\(reading(?:, values)?\\);");
  const std::string page = Source("docs/architecture.md");
  const std::size_t begin = page.find("## How a file becomes elements");
  ASSERT_NE(begin, page.npos);
  const std::string section = page.substr(begin, page.find("\n## ", begin) - begin);
  EXPECT_EQ(InOrder(section, "\n\\| `(\\w+)` \\|"), run);
  EXPECT_EQ(InOrder(Source("xmi/passes/passes.h"), "\nvoid (\\w+)\\("), run);
  EXPECT_GT(run.size(), 10u);
}

TEST(Documentation, ManualPageIsWellFormed) {
  const support::ProcessResult result = support::RunProcess(
      {"groff", "-mandoc", "-ww", "-Tascii", IDLEXPORT_SOURCE_DIR "/docs/idlexport.1"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_NE(result.output.find("pathmap://TYPES/"), std::string::npos);
}

TEST(Documentation, BashCompletesOptionsValuesAndFiles) {
  const std::pair<std::string, std::string> cases[] = {
      {"idlexport --mapping ''", "one-file module-flat module-structured\n"},
      {"idlexport --diagnostics = s", "sarif\n"},
      {"idlexport --color = ''", "auto always never\n"},
      {"idlexport --color =", "auto always never\n"},
      {"idlexport --oneway-default t", "true\n"},
      {"idlexport --art", "--artifact\n"},
      {"idlexport --list ban", "bank.uml\n"},
      {"idlexport --depfile ban", "bank.uml\n"},
      {"idlexport -o mod", "modelling\n"},
      {"idlexport -o ban", "\n"},
      {"idlexport -a ban", "\n"},
  };
  for (const auto& [words, offered] : cases) EXPECT_EQ(Offered(words), offered) << words;
}

}  // namespace
