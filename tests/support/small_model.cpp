#include "tests/support/small_model.h"

#include <map>
#include <set>
#include <stdexcept>
#include <vector>

#include "tests/support/file_tree.h"
#include "tests/support/xmi_files.h"

namespace support {
namespace {

/// How a word of the language stands in the file.
struct Form {
  std::string_view tag;
  std::string_view type;
  std::string_view stereotype;
  std::string_view more;
};

const std::map<std::string_view, Form> forms = {
    {"module", {"packagedElement", "Package", "CORBAModule", ""}},
    {"package", {"packagedElement", "Package", "", ""}},
    {"class", {"packagedElement", "Class", "", ""}},
    {"interface", {"packagedElement", "Interface", "CORBAInterface", ""}},
    {"local", {"packagedElement", "Interface", "CORBAInterface", ""}},
    {"abstraction", {"packagedElement", "Interface", "CORBAInterface", "isAbstract=\"true\""}},
    {"value", {"packagedElement", "Class", "CORBAValue", ""}},
    {"custom", {"packagedElement", "Class", "CORBAValue", ""}},
    {"abstract", {"packagedElement", "Class", "CORBAValue", "isAbstract=\"true\""}},
    {"event", {"packagedElement", "Class", "CORBAEvent", ""}},
    {"home", {"packagedElement", "Interface", "CORBAHome", ""}},
    {"component", {"packagedElement", "Component", "CORBAComponent", ""}},
    {"composition", {"packagedElement", "Component", "CORBAComponentImpl", ""}},
    {"struct", {"packagedElement", "Class", "CORBAStruct", ""}},
    {"union", {"packagedElement", "Class", "CORBAUnion", ""}},
    {"exception", {"packagedElement", "Class", "CORBAException", ""}},
    {"typedef", {"packagedElement", "Class", "CORBATypedef", ""}},
    {"sequence", {"packagedElement", "Class", "CORBASequence", ""}},
    {"boxed", {"packagedElement", "Class", "CORBABoxedValue", ""}},
    {"enum", {"packagedElement", "Enumeration", "CORBAEnum", ""}},
    {"const", {"ownedAttribute", "Property", "CORBAAttribute", ""}},
    {"literal", {"ownedLiteral", "EnumerationLiteral", "", ""}},
    {"field", {"ownedAttribute", "Property", "", ""}},
    {"attr", {"ownedAttribute", "Property", "CORBAAttribute", ""}},
    {"state", {"ownedAttribute", "Property", "", ""}},
    {"private", {"ownedAttribute", "Property", "", "visibility=\"private\""}},
    {"switch", {"ownedAttribute", "Property", "", ""}},
    {"case", {"ownedAttribute", "Property", "case", ""}},
    {"default", {"ownedAttribute", "Property", "case", ""}},
    {"facet", {"ownedAttribute", "Port", "CORBAFacet", ""}},
    {"sink", {"ownedAttribute", "Port", "CORBAEventSink", ""}},
    {"op", {"ownedOperation", "Operation", "", ""}},
    {"factory", {"ownedOperation", "Operation", "CORBAFactory", ""}},
    {"finder", {"ownedOperation", "Operation", "CORBAFinder", ""}},
    {"in", {"ownedParameter", "Parameter", "", ""}},
    {"out", {"ownedParameter", "Parameter", "", "direction=\"out\""}},
};

std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words;
  for (std::size_t i = 0; i < text.size();) {
    const bool isQuoted = text[i] == '\'';
    const std::size_t end = isQuoted ? text.find('\'', i + 1) + 1 : text.find_first_of(" \n", i);
    if (end > i) words.emplace_back(text.substr(i, std::min(end, text.size()) - i));
    i = std::min(end, text.size());
    while (i < text.size() && (text[i] == ' ' || text[i] == '\n')) ++i;
  }
  return words;
}

class Writer {
 public:
  explicit Writer(std::string_view text) : words_(WordsOf(text)) {}

  std::string Write(std::string_view settings) {
    std::string members;
    while (next_ < words_.size()) members += Declaration("", true);
    members += "<packagedElement xmi:type=\"uml:Artifact\" xmi:id=\"out\" name=\"Out\">" +
               manifestations_ + "</packagedElement>";
    Apply("IDLGenerator", "Artifact", "out", std::string(settings));
    return ModelFile(members, applications_);
  }

 private:
  std::string Next() {
    if (next_ == words_.size()) throw std::runtime_error("a small model ends too early");
    return words_[next_++];
  }

  bool Accept(std::string_view word) {
    if (next_ == words_.size() || words_[next_] != word) return false;
    ++next_;
    return true;
  }

  std::string NewId(const std::string& path) {
    const int count = ids_[path]++;
    return count == 0 ? path : path + "+" + std::to_string(count);
  }

  void Apply(std::string_view stereotype, std::string_view type, const std::string& id,
             const std::string& tags) {
    applications_ += "<C:" + std::string(stereotype) + " xmi:id=\"" + NewId("a") + "\" base_" +
                     std::string(type) + "=\"" + id + "\" " + tags + "/>";
  }

  std::string TypeOf(const std::string& name) {
    static const std::set<std::string> predefined = {"any",
                                                     "boolean",
                                                     "char",
                                                     "double",
                                                     "float",
                                                     "long",
                                                     "long_long",
                                                     "native",
                                                     "octet",
                                                     "short",
                                                     "string",
                                                     "TypeCode",
                                                     "unsigned_long",
                                                     "unsigned_long_long",
                                                     "unsigned_short",
                                                     "wchar",
                                                     "wstring"};
    if (predefined.contains(name)) return "<type href=\"CORBA.library.uml#" + name + "\"/>";
    return "<type xmi:idref=\"" + name + "\"/>";
  }

  /// What stands behind a name: ": TYPE", "[BOUND]", "= VALUE", as the word has it.
  std::string Details(const std::string& word, const std::string& id) {
    std::string text;
    const bool isType = word == "typedef" || word == "sequence" || word == "boxed";
    const Form& form = forms.at(word);
    const bool isClassifier = form.tag == "packagedElement";
    const bool isTyped = form.type == "Property" || form.type == "Parameter";
    if (isTyped && next_ < words_.size() && words_[next_] != ":") text += TypeOf("long");
    while (Accept(":") || Accept(",")) {
      const std::string type = Next();
      if (isType) {
        text += "<ownedAttribute xmi:id=\"" + NewId(id + ".t") + "\" name=\"t\">" + TypeOf(type) +
                "</ownedAttribute>";
      } else if (isClassifier) {
        const std::string general = NewId("g");
        text += "<generalization xmi:id=\"" + general + "\" general=\"" + type + "\"/>";
        if (Accept("truncatable")) Apply("CORBATruncatable", "Generalization", general, "");
      } else if (word == "op") {
        text += "<ownedParameter xmi:id=\"" + NewId("r") + "\" direction=\"return\">" +
                TypeOf(type) + "</ownedParameter>";
      } else {
        text += TypeOf(type);
      }
    }
    if (Accept("[*]")) {
      text += "<upperValue xmi:type=\"uml:LiteralUnlimitedNatural\" value=\"*\"/>";
    } else if (Accept("[")) {
      text +=
          "<upperValue xmi:type=\"uml:OpaqueExpression\"><body>" + Next() + "</body></upperValue>";
      Accept("]");
    }
    if (word != "case" && Accept("=")) {
      text += "<defaultValue xmi:type=\"uml:OpaqueExpression\"><body>" + Next() +
              "</body></defaultValue>";
    }
    return text;
  }

  std::string Tags(const std::string& word) {
    static const std::map<std::string_view, std::string_view> flags = {{"const", "isConstant"},
                                                                       {"local", "isLocal"},
                                                                       {"custom", "isCustom"},
                                                                       {"default", "isDefault"}};
    const auto flag = flags.find(word);
    if (flag != flags.end()) return std::string(flag->second) + "=\"true\"";
    return word == "case" && Accept("=") ? "label=\"" + Next() + "\"" : "";
  }

  static std::string Unquoted(const std::string& word) {
    return word.starts_with('\'') ? Replaced(word.substr(1, word.size() - 2), "\\n", "&#10;")
                                  : word;
  }

  std::string Declaration(const std::string& path, bool isInPackage) {
    const std::string word = Next();
    if (!forms.contains(word)) throw std::runtime_error("a small model can't say " + word);
    const Form& form = forms.at(word);
    std::string name = Next();
    const bool isQuoted = name.starts_with('\'');
    if (isQuoted) name = Replaced(name.substr(1, name.size() - 2), "\\n", "&#10;");
    const std::string id = NewId(isQuoted ? "quoted" : path + name);
    if (path.empty()) {
      manifestations_ +=
          "<manifestation xmi:id=\"" + NewId("m") + "\" supplier=\"" + id + "\" client=\"out\"/>";
    }
    std::string body = Details(word, id);
    if (Accept("--")) body += "<ownedComment body=\"" + Unquoted(Next()) + "\"/>";
    if (!form.stereotype.empty()) Apply(form.stereotype, form.type, id, Tags(word));
    std::string raised;
    if (Accept("{")) {
      while (!Accept("}")) {
        if (Accept("raises")) {
          raised += Next() + " ";
        } else {
          body += Declaration(id + "::", word == "module" || word == "package");
        }
      }
    }
    const bool isNested = form.tag == "packagedElement" && !isInPackage;
    const std::string tag(isNested ? "nestedClassifier" : form.tag);
    std::string text = "<" + tag + " xmi:type=\"uml:" + std::string(form.type) + "\" xmi:id=\"" +
                       id + "\" name=\"" + name + "\" " + std::string(form.more);
    if (!raised.empty()) text += " raisedException=\"" + raised + "\"";
    text += ">" + body + "</" + tag + ">\n";
    return word == "const" && isInPackage ? InHolder(text) : text;
  }

  /// Packages own no attributes: their constants stand in a class of their own.
  std::string InHolder(const std::string& constant) {
    const std::string id = NewId("holder");
    Apply("CORBAConstants", "Class", id, "");
    return "<packagedElement xmi:type=\"uml:Class\" xmi:id=\"" + id + "\" name=\"constants\">" +
           constant + "</packagedElement>";
  }

  std::vector<std::string> words_;
  std::size_t next_ = 0;
  std::map<std::string, int> ids_;  // how often each was asked for
  std::string manifestations_;
  std::string applications_;
};

}  // namespace

std::string SmallModel(std::string_view text, std::string_view settings) {
  return Writer(text).Write(settings);
}

}  // namespace support
