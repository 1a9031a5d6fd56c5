#include "tests/support/component_grammar.h"

#include <map>
#include <regex>
#include <vector>

namespace support {

namespace {

/// The productions, over tokens with a blank behind each, by the word that begins a declaration.
std::map<std::string, std::regex> Productions() {
  const std::string word =
      "(?!(component|home|manages|primarykey|provides|uses|multiple|emits|publishes|consumes|"
      "supports|truncatable|attribute|composition|executor|segment|implements) )[A-Za-z_]\\w*";
  const std::string id = word + " ";
  const std::string name = "(::)?" + word + "(::[A-Za-z_]\\w*)* ";
  const std::string names = name + "(, " + name + ")*";
  const std::string base = "(: " + name + ")?";
  const std::string supports = "(supports " + names + ")?";

  const std::string port =
      "(provides |uses (multiple )?|emits |publishes |consumes )" + name + id + "; ";
  const std::string attribute = "(readonly )?attribute " + name + "(" + id + ")+; ";

  const std::string parameter = "in " + name + "(" + id + ")+";
  const std::string maker =
      "(factory |finder )" + id + "\\( (" + parameter + "(, " + parameter + ")*)?\\) ; ";
  const std::string other = "(?!factory |finder )[^{};]+(\\{ [^{}]*\\} )?; ";
  const std::string body = "\\{ (" + maker + "|" + other + ")*\\} ; ";

  const std::string segment = "segment " + id + "\\{ provides facet " + names + "; \\} ";
  const std::string executor = "home executor " + id + "\\{ implements " + name + "; manages " +
                               id + "(\\{ (" + segment + ")*\\} )?; \\} ; ";
  return {
      {"component", std::regex("component " + id + "(; |" + base + supports + "\\{ (" + port + "|" +
                               attribute + ")*\\} ; )")},
      {"home", std::regex("home " + id + base + supports + "manages " + name + "(primarykey " +
                          name + ")?" + body)},
      {"eventtype",
       std::regex("eventtype " + id + "(: (truncatable )?" + names + ")?" + supports + body)},
      {"composition", std::regex("composition (session |entity |process |service )" + id + "\\{ " +
                                 executor + "\\} ; ")},
  };
}

/// Names with their scopes, literals, and single marks. Comments and preprocessor lines are none.
std::vector<std::string> Tokens(const std::string& idl) {
  static const std::regex noise("(//|#)[^\n]*");
  static const std::regex token("(::)?[A-Za-z_]\\w*(::[A-Za-z_]\\w*)*|\"[^\"]*\"|[0-9.]+|\\S");
  const std::string text = std::regex_replace(idl, noise, "");
  std::vector<std::string> tokens;
  for (std::sregex_iterator each(text.begin(), text.end(), token), end; each != end; ++each) {
    tokens.push_back(each->str());
  }
  return tokens;
}

}  // namespace

std::string GrammarFault(const std::string& idl) {
  static const std::map<std::string, std::regex> productions = Productions();
  const std::vector<std::string> tokens = Tokens(idl);
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    const auto production = productions.find(tokens[at]);
    if (production == productions.end()) continue;
    std::string declaration;
    for (int depth = 0; at < tokens.size(); ++at) {
      declaration += tokens[at] + ' ';
      depth += (tokens[at] == "{") - (tokens[at] == "}");
      if (depth == 0 && tokens[at] == ";") break;
    }
    if (!std::regex_match(declaration, production->second)) return declaration;
  }
  return "";
}

}  // namespace support
