// XMI files for tests of the reader, and short texts for what the elements that were read answer.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/model.h"
#include "tests/support/file_tree.h"
#include "xmi/reader.h"

namespace support {

/// The namespaces that the files of tests declare.
inline constexpr std::string_view kNamespaces =
    R"(xmlns:xmi="http://www.omg.org/spec/XMI/20131001" )"
    R"(xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" )"
    R"(xmlns:uml="http://www.eclipse.org/uml2/5.0.0/UML" )"
    R"(xmlns:C="http:///schemas/CORBA/_x/1")";

/// A file with a model "M" of these members, and behind it applications of stereotypes.
std::string ModelFile(std::string_view members, std::string_view applications = "");

/// A directory of files, of which one is read as a model.
class XmiFiles {
 public:
  /// Writes a file into the directory.
  XmiFiles& Write(const std::string& name, std::string_view text);
  /// Reads a file. Called once.
  XmiFiles& Read(const std::string& name = "model.uml");
  /// Writes and reads a model of these members and applications.
  XmiFiles& ReadModel(std::string_view members, std::string_view applications = "");
  /// What reading a file says, with the directory left out; empty when it succeeds.
  std::string ErrorOf(const std::string& name);

  /// An element by its id. Fails the test when there is none.
  model::Element& operator[](std::string_view id);
  xmi::Reader& Reader() { return reader_; }
  /// The diagnostics, each "FILE:LINE: text", with the directory left out.
  std::vector<std::string> Diagnostics() const;
  std::string Path(const std::string& name) const { return (directory_.Path() / name).string(); }

 private:
  std::string WithoutDirectory(std::string text) const;

  ScratchDirectory directory_;
  model::Model model_;
  xmi::Reader reader_{model_};
};

/// The names of the elements of a list, with blanks between them; the name's place takes the text
/// of a "Comment", the parent of a "Generalization", the supplier of a "Dependency"; an empty name
/// is "-".
std::string Names(mdk::IMdeEntity& element, const std::string& property);
/// "long" or "sequence<long, 5>"; a name that means nothing is "?name". Empty without a type.
std::string TypeText(mdk::IMdeEntity& element);
/// "0..*", or empty for a single value. A bound that is a constant is "N=MAX", or "?MAX".
std::string MultiplicityText(mdk::IMdeEntity& element);
/// "IntegerValue 5", "Ident MAX=MAX" and so on; empty without a value.
std::string DefaultText(mdk::IMdeEntity& element);
/// The value of a tagged-value expression; "-" when there is none. A list is "[a|b]".
std::string TagText(mdk::IMdeEntity& element, const std::string& expression);
/// All that an element and its members answer, a line for each.
std::string Tree(mdk::IMdeEntity& element);

}  // namespace support
