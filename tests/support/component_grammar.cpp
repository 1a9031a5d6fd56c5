#include "tests/support/component_grammar.h"

#include <initializer_list>
#include <regex>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace support {

namespace {

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

class Parser {
 public:
  explicit Parser(const std::string& idl) : tokens_(Tokens(idl)) {}

  void Parse() {
    while (next_ < tokens_.size()) Declaration();
  }

 private:
  const std::string& Next() const {
    static const std::string none = "the end";
    return next_ < tokens_.size() ? tokens_[next_] : none;
  }
  bool At(std::initializer_list<std::string_view> words) const {
    for (const std::string_view word : words) {
      if (Next() == word) return true;
    }
    return false;
  }
  bool Take(std::string_view word) { return Next() == word ? (++next_, true) : false; }
  [[noreturn]] void Fail(std::string_view expected) const {
    std::string before;
    for (std::size_t at = next_ < 4 ? 0 : next_ - 4; at < next_; ++at) before += tokens_[at] + ' ';
    throw std::runtime_error(std::string(expected) + " expected behind: " + before +
                             "- found: " + Next());
  }
  void Expect(std::string_view word) {
    if (!Take(word)) Fail(word);
  }
  void Name() {
    static const std::regex name("(::)?[A-Za-z_]\\w*(::[A-Za-z_]\\w*)*");
    if (!std::regex_match(Next(), name)) Fail("a name");
    ++next_;
  }
  void Identifier() {
    if (Next().find(':') != std::string::npos) Fail("an identifier");
    Name();
  }
  void Names() {
    do Name();
    while (Take(","));
  }
  template <typename Member>
  void Block(Member member) {
    Expect("{");
    while (!Take("}")) member();
  }

  void Declaration() {
    if (Take("module")) {
      Identifier();
      Block([this] { Declaration(); });
    } else if (Take("component")) {
      Component();
    } else if (Take("home")) {
      Home();
    } else if (Take("composition")) {
      Composition();
    } else if (Next() == "eventtype" ||
               (next_ + 1 < tokens_.size() && tokens_[next_ + 1] == "eventtype")) {
      EventType();
    } else {
      return Other();
    }
    Expect(";");
  }

  /// Anything up to its ";", with balanced braces.
  void Other() {
    if (At({"}", ";", "{"})) Fail("a declaration");
    for (int depth = 0; depth > 0 || !Take(";"); ++next_) {
      if (Next() == "the end") Fail(";");
      depth += At({"{"}) - At({"}"});
      if (depth < 0) Fail(";");
    }
  }

  void Bases() {
    if (Take(":")) Name();
    if (Take("supports")) Names();
  }

  void Component() {
    Identifier();
    if (At({";"})) return;
    Bases();
    Block([this] {
      if (At({"attribute", "readonly"})) return Other();
      if (!At({"provides", "uses", "emits", "publishes", "consumes"})) Fail("a port");
      const bool uses = Take("uses");
      if (!uses) ++next_;
      if (uses) Take("multiple");
      Name();
      Identifier();
      Expect(";");
    });
  }

  void Home() {
    Identifier();
    Bases();
    Expect("manages");
    Name();
    if (Take("primarykey")) Name();
    Block([this] { Export(); });
  }

  /// A factory, a finder, or something else.
  void Export() {
    if (!Take("factory") && !Take("finder")) return Other();
    Identifier();
    Expect("(");
    while (!Take(")")) {
      Expect("in");
      Name();
      do Identifier();
      while (!At({",", ")"}));
      Take(",");
    }
    Expect(";");
  }

  void EventType() {
    if (!Take("abstract")) Take("custom");
    Expect("eventtype");
    Identifier();
    if (Take(":")) {
      Take("truncatable");
      Names();
    }
    if (Take("supports")) Names();
    Block([this] { Export(); });
  }
  void Composition() {
    if (!At({"session", "entity", "process", "service"})) Fail("a category");
    ++next_;
    Identifier();
    Expect("{");
    for (const char* word : {"home", "executor"}) Expect(word);
    Identifier();
    for (const char* word : {"{", "implements"}) Expect(word);
    Name();
    for (const char* word : {";", "manages"}) Expect(word);
    Identifier();
    if (At({"{"})) Block([this] { Segment(); });
    for (const char* word : {";", "}", ";", "}"}) Expect(word);
  }

  void Segment() {
    Expect("segment");
    Identifier();
    for (const char* word : {"{", "provides"}) Expect(word);
    Names();
    for (const char* word : {";", "}", ";"}) Expect(word);
  }

  const std::vector<std::string> tokens_;
  std::size_t next_ = 0;
};

}  // namespace

std::string GrammarFault(const std::string& idl) try {
  Parser(idl).Parse();
  return "";
} catch (const std::runtime_error& fault) {
  return fault.what();
}

}  // namespace support
